// "EPLUGIN_ID_TEST" from build/lib/plugins-dev beside the base plugin from
// build/lib/plugins-gui, both through the real plugin manager: where the
// module lands, the developer test entry in the right-top menu, refused
// payloads and unloading.

#include "cqmainwindow.h"
#include "cqmenu.h"
#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "spluginregisteritem.h"
#include "testLogCapture.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QtTest>

namespace {

QString const kRoot = qEnvironmentVariable("QUORIX_ROOT");
QString const kBaseModule = kRoot + QStringLiteral("/lib/plugins-gui/libui_base_plugin.so");
QString const kTestModule = kRoot + QStringLiteral("/lib/plugins-dev/libui_test_plugin.so");
QString const kBaseId = QStringLiteral("EPLUGIN_ID_BASE");
QString const kTestId = QStringLiteral("EPLUGIN_ID_TEST");
QString const kEntryName = QStringLiteral("FileDistributionPluginAction");
int const kEntryKey = 60;

CQPluginManager* manager()
{
    return CQPluginManager::singleInstance();
}

CQMenu* rightTopMenu()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* menu = qobject_cast<CQMenu*>(w); menu && menu->objectName() == QLatin1String("m_pMenuRightTop"))
            return menu;
    }
    return nullptr;
}

QList<int> menuKeys()
{
    CQMenu* menu = rightTopMenu();
    return menu ? menu->keys() : QList<int>();
}

QString entryName()
{
    CQMenu* menu = rightTopMenu();
    QAction* action = menu ? menu->actionAt(kEntryKey) : nullptr;
    return action ? action->objectName() : QString();
}

void broadcast(char const* cmd)
{
    manager()->sendCmd(QStringLiteral("EPLUGIN_ID_ALL_PLUGIN"), QString::fromLatin1(cmd), QVariant());
}

int commandsTo(QSignalSpy const& spy, QString const& target)
{
    return int(std::count_if(spy.begin(), spy.end(), [&](QList<QVariant> const& args) { return args.at(0).toString() == target; }));
}

QList<QWidget*> testWindows()
{
    QList<QWidget*> out;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("BaseTestWin") && w->isVisible())
            out << w;
    }
    return out;
}

void flushDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestTestPlugin : public QObject
{
    Q_OBJECT

    QPointer<CQMainWindow> m_main;

    void loadBoth(bool baseFirst)
    {
        QStringList const order = baseFirst ? QStringList{kBaseModule, kTestModule} : QStringList{kTestModule, kBaseModule};
        for (QString const& file : order)
            QVERIFY2(manager()->loadPlugin(file), qPrintable(file));
    }

private slots:
    void init()
    {
        m_main = new CQMainWindow();
        m_main->setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
        manager()->setHost(m_main);
    }
    void cleanup()
    {
        for (QWidget* w : testWindows())
            w->close();
        manager()->unloadAll();
        manager()->setHost(nullptr);
        delete m_main.data();
        flushDeletes();
    }

    // Normal runs load every module of lib/plugins-gui; this one must not be there.
    void builtOutsideTheProductFolder()
    {
        QCOMPARE(CQPluginManager::readPluginId(kTestModule), kTestId);
        QDir const product(kRoot + QStringLiteral("/lib/plugins-gui"));
        for (QString const& file : product.entryList(QDir::Files))
            QVERIFY2(CQPluginManager::readPluginId(product.filePath(file)) != kTestId, qPrintable(file));
    }

    // Whichever comes first, the entry ends up after the about entry and
    // follows it when the menu is reported shown and hidden; it opens one window.
    void entryInTheRightTopMenu_data()
    {
        QTest::addColumn<bool>("baseFirst");
        QTest::newRow("base plugin first") << true;
        QTest::newRow("test plugin first") << false;
    }
    void entryInTheRightTopMenu()
    {
        QFETCH(bool, baseFirst);
        loadBoth(baseFirst);
        QCOMPARE(entryName(), kEntryName);
        broadcast("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW");
        QCOMPARE(menuKeys(), (QList<int>{0, 40, kEntryKey}));
        broadcast("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE");
        QCOMPARE(menuKeys(), QList<int>{0});
        broadcast("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW");
        QCOMPARE(menuKeys(), (QList<int>{0, 40, kEntryKey}));

        QAction* entry = rightTopMenu()->actionAt(kEntryKey);
        entry->trigger();
        entry->trigger();
        QCOMPARE(testWindows().size(), 1);
    }

    void wrongPayloads_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("logLine");
        QString const notRecord = QStringLiteral("[TestPlugin] add item payload is [%1], not sPluginRegisterItem, ignored");
        QString const notAction = QStringLiteral("[TestPlugin] add item object of class [%1] is not a menu action, ignored");
        QTest::newRow("no payload") << 0 << notRecord.arg("invalid");
        QTest::newRow("text") << 1 << notRecord.arg("QString");
        QTest::newRow("raw pointer") << 2 << notRecord.arg("void*");
        QTest::newRow("null object") << 3 << QStringLiteral("[TestPlugin] add item without an object, ignored");
        QTest::newRow("widget") << 4 << notAction.arg("QWidget");
        QTest::newRow("plain object") << 5 << notAction.arg("QObject");
    }
    // Logged and dropped; the entry already mounted stays.
    void wrongPayloads()
    {
        QFETCH(int, kind);
        QFETCH(QString, logLine);
        loadBoth(true);
        QWidget widget;
        QObject object;
        QVariant const payloads[] = {QVariant(),
                                     QVariant(kEntryName),
                                     QVariant::fromValue<void*>(&object),
                                     QVariant::fromValue(sPluginRegisterItem{nullptr, kEntryKey, {}}),
                                     QVariant::fromValue(sPluginRegisterItem{&widget, kEntryKey, {}}),
                                     QVariant::fromValue(sPluginRegisterItem{&object, kEntryKey, {}})};
        TestLogCapture log;
        QSignalSpy commands(manager(), &CQPluginManager::sig_command);
        manager()->sendCmd(kTestId, QStringLiteral("TESTPLUGIN_CMDTYPE_ADDITEM"), payloads[kind]);
        QCOMPARE(log.count(logLine), 1);
        QCOMPARE(commandsTo(commands, kBaseId), 0);
        QCOMPARE(entryName(), kEntryName);
    }

    // The entry leaves with the plugin, even when the menu opens again; the
    // action stays the base plugin's and comes back with a new load. Once the
    // base plugin is gone, nothing is sent to it any more.
    void unload_data()
    {
        QTest::addColumn<bool>("baseGoesFirst");
        QTest::newRow("test plugin alone") << false;
        QTest::newRow("base plugin first") << true;
    }
    void unload()
    {
        QFETCH(bool, baseGoesFirst);
        loadBoth(true);
        QPointer<CQBasePlugin> plugin = CQPluginManager::plugin(kTestId);
        QPointer<QAction> entry = rightTopMenu()->actionAt(kEntryKey);
        QSignalSpy commands(manager(), &CQPluginManager::sig_command);
        if (baseGoesFirst) {
            QVERIFY(manager()->unloadPlugin(kBaseId));
            commands.clear();
        }
        QVERIFY(manager()->unloadPlugin(kTestId));
        flushDeletes();
        QVERIFY(plugin.isNull());
        if (baseGoesFirst) {
            QCOMPARE(commandsTo(commands, kBaseId), 0);
            return;
        }
        QVERIFY(entry);
        QCOMPARE(entryName(), QString());
        broadcast("EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW");
        QCOMPARE(menuKeys(), (QList<int>{0, 40}));
        QVERIFY(manager()->loadPlugin(kTestModule));
        QCOMPARE(rightTopMenu()->actionAt(kEntryKey), entry.data());
    }
};

QTEST_MAIN(TestTestPlugin)
#include "tst_testPlugin.moc"
