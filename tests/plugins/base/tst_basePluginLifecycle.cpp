// The built module as the host sees it (metadata read without loading code, a
// load through the real plugin manager) and its teardown: the fixed order,
// deferred deletion, the two debug lines.

#include "baseCmdDefine.h"
#include "cqmenu.h"
#include "cqthreadobjprecisiontimer.h"
#include "goodsShelf.h"
#include "mainWinTitleBar.h"
#include "navigatewidget.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QLabel>
#include <QPluginLoader>
#include <QTimer>
#include <QtTest>

namespace {

QString const kPluginDir = qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/lib/plugins-gui");
QString const kPrivateLine = QStringLiteral("[BasePluginPrivate] delete BasePluginPrivate obj");
QString const kPluginLine = QStringLiteral("[BasePlugin] delete BasePlugin obj");

// How many of the objects are still alive.
int alive(QList<QPointer<QObject>> const& parts)
{
    return int(std::count_if(parts.begin(), parts.end(), [](QPointer<QObject> const& o) { return !o.isNull(); }));
}

} // namespace

class TestBasePluginLifecycle : public QObject
{
    Q_OBJECT

private slots:
    // The block the host reads without running any of the plugin's code.
    void metaData()
    {
        QPluginLoader loader(kPluginDir + QStringLiteral("/libui_base_plugin.so"));
        QJsonObject const meta = loader.metaData();
        QVERIFY2(!meta.isEmpty() && !loader.isLoaded(), qPrintable(loader.fileName()));
        QCOMPARE(meta.value("IID").toString(), QStringLiteral("org.quorix.dravoforlinux.BasePlugin/1.0"));
        QCOMPARE(meta.value("className").toString(), QStringLiteral("BasePlugin"));
        QJsonObject const own = meta.value("MetaData").toObject();
        QCOMPARE(own.keys(), (QStringList{"id", "path", "version"}));
        QCOMPARE((QStringList{own.value("id").toString(), own.value("version").toString(), own.value("path").toString()}),
                 (QStringList{"EPLUGIN_ID_BASE", "1.0.0.7550", "lib/plugins-gui/libui_base_plugin.so"}));
        QCOMPARE(CQPluginManager::readPluginId(loader.fileName()), QStringLiteral("EPLUGIN_ID_BASE"));
    }

    void throughPluginManager()
    {
        CQPluginManager* manager = CQPluginManager::singleInstance();
        CQMainWindow main;
        main.setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
        manager->setHost(&main);
        QSignalSpy commands(manager, &CQPluginManager::sig_command);
        QVERIFY(manager->loadPlugins(kPluginDir) >= 1);
        QCOMPARE(manager->pluginIds().value(0), QStringLiteral("EPLUGIN_ID_BASE"));
        QPointer<CQBasePlugin> base = CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_BASE"));
        QCOMPARE(base->info().toMap().value(QStringLiteral("version")).toString(), QStringLiteral("1.0.0.7550"));
        QCOMPARE(main.titleWidget()->objectName(), QStringLiteral("MainWinTitleBar"));
        QCOMPARE(main.bodyWidget()->objectName(), QStringLiteral("m_pNavigateBackWin"));
        // What init sent to itself came back through the bus: the four tray rows.
        QCOMPARE(countArg(commands, 1, QStringLiteral("BASEPLUGIN_CMD_REGISTER_TRAY")), 4);
        if (QFileInfo::exists(kPluginDir + QStringLiteral("/libui_bridge_plugin.so")))
            QCOMPARE(countArg(commands, 1, QStringLiteral("EPLUGIN_ID_BASE_CMD_INIT_CONNECT")), 1);

        QPointer<QWidget> title = main.titleWidget();
        manager->unloadAll();
        QVERIFY(base.isNull());
        TestPluginFixture::flushDeletes();
        QVERIFY(title.isNull());
        manager->setHost(nullptr);
    }

    void teardownOrderAndDeferredDeletion()
    {
        TestPluginFixture fixture;
        fixture.plugin()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
        BasePlugin* p = fixture.plugin();
        // Kept to the event loop: the frame's widgets and the menu; the hint label and timer go with them.
        QList<QPointer<QObject>> const deferred{p->navigateWidget(), p->titleBar(), p->goodsShelf(), p->rightTopMenu()};
        QList<QPointer<QObject>> const rest{p->trayHintLabel(), p->dataTimer()};
        QVERIFY(CQThreadObjPrecisionTimer::hasInstance());
        TestLogCapture log;
        QVERIFY(TestPluginFixture::manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE")));
        QCOMPARE(log.count(kPrivateLine), 1);
        QCOMPARE(log.count(kPluginLine), 1);
        QVERIFY(log.indexOf(kPrivateLine) < log.indexOf(kPluginLine));
        QVERIFY(log.lines().at(log.indexOf(kPluginLine)).contains(QStringLiteral(" DEBUG ")));
        // The clock thread stops at once; widgets go when the event loop next runs.
        QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
        QCOMPARE(alive(deferred), 4);
        TestPluginFixture::flushDeletes();
        QCOMPARE(alive(deferred) + alive(rest), 0);
        QVERIFY(!fixture.mainWindow()->titleWidget());
    }

    // Loading and unloading the plugin again and again, opening its windows
    // in between, leaves the widget count where it started.
    void loadUnloadCyclesLeaveNoWidgets()
    {
        auto cycle = []() {
            TestPluginFixture fixture;
            fixture.plugin()->slot_about();
            fixture.plugin()->slot_setting();
        };
        cycle();   // singletons and caches that live for the whole process
        int const before = QApplication::allWidgets().size();
        for (int i = 0; i < 3; ++i)
            cycle();
        TestPluginFixture::flushDeletes();
        QStringList left;
        for (QWidget* w : QApplication::allWidgets())
            left << QString::fromLatin1(w->metaObject()->className()) + QLatin1Char(':') + w->objectName();
        QVERIFY2(QApplication::allWidgets().size() == before, qPrintable(left.join(QLatin1Char(' '))));
    }

    // Deleted by someone else while the manager still routes to it: what the
    // destructor sends to itself must not reach the half-destroyed plugin.
    void deletedWhileStillRouted()
    {
        TestPluginFixture fixture;
        QSignalSpy commands(TestPluginFixture::manager(), &CQPluginManager::sig_command);
        TestLogCapture log;
        delete fixture.plugin();
        QCOMPARE(countArg(commands, 1, BASEPLUGIN_CMD_UNREGISTER_TRAY), 4);
        QCOMPARE(log.count(kPluginLine), 1);
        TestPluginFixture::flushDeletes();
        QVERIFY(!CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_BASE")));
        delete new BasePlugin();   // never initialised: the same two lines
        QCOMPARE(log.count(kPrivateLine), 2);
    }
};

QTEST_MAIN(TestBasePluginLifecycle)
#include "tst_basePluginLifecycle.moc"
