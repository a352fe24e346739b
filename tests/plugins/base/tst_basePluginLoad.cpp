// The built module as the host sees it: metadata read without loading code,
// the entry points, and a load through the real plugin manager (with the
// bridge plugin when it is built) into a real main window.

#include "cqbaseplugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "spluginregisteritem.h"
#include "testLogCapture.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QtTest>

namespace {

QString pluginDir()
{
    return qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/lib/plugins-gui");
}

QString basePluginPath()
{
    return pluginDir() + QStringLiteral("/libui_base_plugin.so");
}

QVariant unwrap(QVariant const& v)
{
    return v.userType() == QMetaType::QVariant ? v.value<QVariant>() : v;
}

bool seen(QSignalSpy const& spy, QString const& target, QString const& cmd)
{
    for (QList<QVariant> const& args : spy) {
        if (args.at(0).toString() == target && args.at(1).toString() == cmd)
            return true;
    }
    return false;
}

void flushDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestBasePluginLoad : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void metaData_data();
    void metaData();
    void throughPluginManager();
    void entryPointReturnsOneInstance();

private:
    QPointer<QObject> m_loaded;
};

void TestBasePluginLoad::initTestCase()
{
    QVERIFY2(QFileInfo::exists(basePluginPath()), qPrintable(basePluginPath()));
}

// The block the host reads without running any of the plugin's code.
void TestBasePluginLoad::metaData_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("IID") << "IID" << "org.quorix.dravoforlinux.BasePlugin/1.0";
    QTest::newRow("className") << "className" << "BasePlugin";
    QTest::newRow("MetaData/id") << "MetaData/id" << "EPLUGIN_ID_BASE";
    QTest::newRow("MetaData/version") << "MetaData/version" << "1.0.0.7550";
    QTest::newRow("MetaData/path") << "MetaData/path" << "lib/plugins-gui/libui_base_plugin.so";
}

void TestBasePluginLoad::metaData()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QPluginLoader loader(basePluginPath());
    QJsonObject const meta = loader.metaData();
    QVERIFY(!loader.isLoaded());
    QStringList const path = key.split(QLatin1Char('/'));
    QJsonValue found = meta.value(path.first());
    if (path.size() == 2) {
        QCOMPARE(found.toObject().keys(), (QStringList{"id", "path", "version"}));
        found = found.toObject().value(path.last());
    }
    QCOMPARE(found.toString(), value);
    QCOMPARE(CQPluginManager::readPluginId(basePluginPath()), QStringLiteral("EPLUGIN_ID_BASE"));
}

void TestBasePluginLoad::throughPluginManager()
{
    CQPluginManager* manager = CQPluginManager::singleInstance();
    CQMainWindow main;
    main.resize(1000, 580);
    main.setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
    manager->setHost(&main);
    QSignalSpy commands(manager, &CQPluginManager::sig_command);
    bool const withBridge = QFileInfo::exists(pluginDir() + QStringLiteral("/libui_bridge_plugin.so"));

    QVERIFY(manager->loadPlugins(pluginDir()) >= 1);
    QStringList const ids = manager->pluginIds();
    QCOMPARE(ids.value(0), QStringLiteral("EPLUGIN_ID_BASE"));
    CQBasePlugin* base = CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_BASE"));
    QVERIFY(base);
    m_loaded = base;
    QCOMPARE(base->metaObject()->className(), "BasePlugin");
    QCOMPARE(base->info().toMap().value(QStringLiteral("version")).toString(), QStringLiteral("1.0.0.7550"));

    // The frame went into the host's window.
    QVERIFY(main.titleWidget());
    QCOMPARE(main.titleWidget()->objectName(), QStringLiteral("MainWinTitleBar"));
    QVERIFY(main.bodyWidget());
    QCOMPARE(main.bodyWidget()->objectName(), QStringLiteral("m_pNavigateBackWin"));

    // What init sent to itself came back through the bus: the four tray rows.
    int trayRows = 0;
    for (QList<QVariant> const& args : qAsConst(commands)) {
        if (args.at(0).toString() == QLatin1String("EPLUGIN_ID_BASE")
            && args.at(1).toString() == QLatin1String("BASEPLUGIN_CMD_REGISTER_TRAY"))
            ++trayRows;
    }
    QCOMPARE(trayRows, 4);

    if (withBridge) {
        QCOMPARE(ids.value(1), QStringLiteral("EPLUGIN_ID_BRIDGE_BASE"));
        QVERIFY(seen(commands, QStringLiteral("EPLUGIN_ID_ALL_PLUGIN"), QStringLiteral("EPLUGIN_ID_BASE_CMD_INIT_CONNECT")));
    } else {
        qInfo("bridge plugin not built: bridge start-up not checked here");
    }

    // Another plugin's widget, sent through the manager, lands in the title bar.
    QWidget* widget = new QWidget();
    sPluginRegisterItem item;
    item.object = widget;
    item.index = 120;
    item.extra = 1;
    manager->sendCmd(QStringLiteral("EPLUGIN_ID_BASE"), QStringLiteral("BASEPLUGIN_CMD_REGISTERWIN2TITLE"),
                     QVariant::fromValue(item));
    QVERIFY(widget->parentWidget());
    QCOMPARE(widget->parentWidget()->objectName(), QStringLiteral("m_pRightArea"));
    QVERIFY(main.titleWidget()->isAncestorOf(widget));

    // A broadcast reaches it as well: the about entry comes back as a command.
    commands.clear();
    manager->broadcast(QStringLiteral("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW"), QVariant());
    QVERIFY(seen(commands, QStringLiteral("EPLUGIN_ID_BASE"), QStringLiteral("BASEPLUGIN_CMD_REGISTER_MENUITEM")));
    for (QList<QVariant> const& args : qAsConst(commands)) {
        if (args.at(1).toString() == QLatin1String("BASEPLUGIN_CMD_REGISTER_MENUITEM"))
            QCOMPARE(unwrap(args.at(2)).value<sPluginRegisterItem>().index, 40);
    }

    delete widget;
    QPointer<QWidget> title = main.titleWidget();
    TestLogCapture log;
    manager->unloadAll();
    QVERIFY(m_loaded.isNull());
    int const privateLine = log.indexOf(QStringLiteral("[BasePluginPrivate] delete BasePluginPrivate obj"));
    int const pluginLine = log.indexOf(QStringLiteral("[BasePlugin] delete BasePlugin obj"));
    QVERIFY(privateLine >= 0);
    QVERIFY(pluginLine > privateLine);
    flushDeletes();
    QVERIFY(title.isNull());
    manager->setHost(nullptr);
}

// qt_plugin_instance keeps one instance in a guarded static: while it lives
// every loader gets the same object; once it is gone, a fresh one.
void TestBasePluginLoad::entryPointReturnsOneInstance()
{
    QPluginLoader first(basePluginPath());
    QPluginLoader second(basePluginPath());
    QObject* a = first.instance();
    QVERIFY2(a, qPrintable(first.errorString()));
    QCOMPARE(second.instance(), a);
    QVERIFY(qobject_cast<CQBasePlugin*>(a));
    QCOMPARE(a->metaObject()->className(), "BasePlugin");
    delete a;
    QObject* b = first.instance();
    QVERIFY(b);
    QCOMPARE(b->metaObject()->className(), "BasePlugin");
    delete b;
}

QTEST_MAIN(TestBasePluginLoad)
#include "tst_basePluginLoad.moc"
