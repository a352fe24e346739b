// Teardown: the fixed order, deferred deletion, the two debug lines, and no
// crash whoever goes first.

#include "baseCmdDefine.h"
#include "basePlugin.h"
#include "basepluginmodeldatainterface.h"
#include "cqmenu.h"
#include "cqthreadobjprecisiontimer.h"
#include "goodsShelf.h"
#include "mainWinTitleBar.h"
#include "navigatewidget.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"

#include <QLabel>
#include <QTimer>
#include <QtTest>

namespace {

QString const kPrivateLine = QStringLiteral("[BasePluginPrivate] delete BasePluginPrivate obj");
QString const kPluginLine = QStringLiteral("[BasePlugin] delete BasePlugin obj");

// The plugin's parts, watched across its destruction.
struct Parts {
    QPointer<QWidget> navigate;
    QPointer<QWidget> title;
    QPointer<QWidget> shelf;
    QPointer<QWidget> hint;
    QPointer<QObject> menu;
    QPointer<QObject> timer;

    explicit Parts(BasePlugin* p)
        : navigate(p->navigateWidget())
        , title(p->titleBar())
        , shelf(p->goodsShelf())
        , hint(p->trayHintLabel())
        , menu(p->rightTopMenu())
        , timer(p->dataTimer())
    {
    }

    bool allAlive() const { return navigate && title && shelf && hint && menu; }
    bool noneAlive() const { return !navigate && !title && !shelf && !hint && !menu && !timer; }
};

} // namespace

class TestBasePluginTeardown : public QObject
{
    Q_OBJECT

private slots:
    void orderAndDeferredDeletion();
    void linesAreDebugLevel();
    void mainWindowDestroyedFirst();
    void deletedWhileStillRouted();
    void deletedWithoutInit();
    void queuedBridgeEventAfterTeardown();
};

void TestBasePluginTeardown::orderAndDeferredDeletion()
{
    TestPluginFixture fixture;
    BasePlugin* plugin = fixture.plugin();
    plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    Parts parts(plugin);
    QVERIFY(parts.allAlive());
    QVERIFY(CQThreadObjPrecisionTimer::hasInstance());

    TestLogCapture log;
    QVERIFY(TestPluginFixture::manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE")));

    QCOMPARE(log.count(kPrivateLine), 1);
    QCOMPARE(log.count(kPluginLine), 1);
    QVERIFY(log.indexOf(kPrivateLine) < log.indexOf(kPluginLine));
    // The clock thread stops at once; widgets go when the event loop next runs.
    QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
    QVERIFY(parts.navigate && parts.title && parts.shelf && parts.menu);
    TestPluginFixture::flushDeletes();
    QVERIFY(parts.noneAlive());
    QVERIFY(!fixture.mainWindow()->titleWidget());
}

void TestBasePluginTeardown::linesAreDebugLevel()
{
    TestPluginFixture fixture;
    TestLogCapture log;
    CLogDebug::singleInstance()->setMinimumLevel(2);
    TestPluginFixture::manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE"));
    QCOMPARE(log.count(kPrivateLine), 0);
    QCOMPARE(log.count(kPluginLine), 0);
    CLogDebug::singleInstance()->setMinimumLevel(1);
}

void TestBasePluginTeardown::mainWindowDestroyedFirst()
{
    TestPluginFixture fixture;
    Parts parts(fixture.plugin());
    delete fixture.mainWindow();
    QVERIFY(!parts.title);
    TestLogCapture log;
    TestPluginFixture::manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE"));
    TestPluginFixture::flushDeletes();
    QCOMPARE(log.count(kPluginLine), 1);
    QVERIFY(parts.noneAlive());
}

// Deleted by someone else while the manager still routes to it: what the
// destructor sends to itself must not reach the half-destroyed plugin.
void TestBasePluginTeardown::deletedWhileStillRouted()
{
    TestPluginFixture fixture;
    QSignalSpy commands(TestPluginFixture::manager(), &CQPluginManager::sig_command);
    TestLogCapture log;
    delete fixture.plugin();
    int unregistered = 0;
    for (QList<QVariant> const& args : qAsConst(commands))
        unregistered += args.at(1).toString() == QLatin1String(BASEPLUGIN_CMD_UNREGISTER_TRAY);
    QCOMPARE(unregistered, 4);
    QCOMPARE(log.count(kPluginLine), 1);
    TestPluginFixture::flushDeletes();
    QVERIFY(!CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_BASE")));
}

void TestBasePluginTeardown::deletedWithoutInit()
{
    TestLogCapture log;
    delete new BasePlugin();
    TestPluginFixture::flushDeletes();
    QCOMPARE(log.count(kPrivateLine), 1);
    QCOMPARE(log.count(kPluginLine), 1);
}

void TestBasePluginTeardown::queuedBridgeEventAfterTeardown()
{
    TestPluginFixture fixture;
    fixture.plugin()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    emit bridge->sig_CumulativeGuardDays(3);
    emit bridge->sig_weakPasswdCheckRecieved();
    __sBaseModuleBaseInfo info;
    emit bridge->sig_base_info(info);
    TestPluginFixture::manager()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE"));
    TestPluginFixture::flushDeletes();
    QCoreApplication::processEvents();
    QVERIFY(!CQPluginManager::plugin(QStringLiteral("EPLUGIN_ID_BASE")));
}

QTEST_MAIN(TestBasePluginTeardown)
#include "tst_basePluginTeardown.moc"
