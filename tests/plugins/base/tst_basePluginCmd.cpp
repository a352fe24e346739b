// The command bus: every command with a good payload reaches its container;
// wrong, null and stale payloads reach nothing and crash nothing.

#include "authMgr.h"
#include "authMgritem.h"
#include "basepluginmodeldatainterface.h"
#include "baseCmdDefine.h"
#include "basePlugin.h"
#include "cWinAbout.h"
#include "cardsWin.h"
#include "commonSetting.h"
#include "cqmenu.h"
#include "cqmenuitem.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "menuWidget.h"
#include "messageTip.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingitemwidget.h"
#include "settingsubitemwidget.h"
#include "submessagetipiteminterface.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"
#include "trayWidget.h"

#include <QAction>
#include <QApplication>
#include <QLayout>
#include <QStackedWidget>
#include <QTimer>
#include <QWidgetAction>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

struct Env {
    TestPluginFixture* fixture = nullptr;
    BasePlugin* plugin = nullptr;
    CQMainWindow* main = nullptr;
    QPointer<QObject> scratch;
    std::unique_ptr<QSignalSpy> spy;
};

// One row of the command table: what the command carries, the state it needs,
// how it is packed, and how to see that it got where it belongs.
struct BusCase {
    enum Kind { None, Record, Pointer, Int, String };
    Kind kind = None;
    std::function<QObject*()> make = [] { return nullptr; };
    std::function<void(Env&, QObject*)> arrange = [](Env&, QObject*) {};
    std::function<QVariant(QObject*)> payload = [](QObject*) { return QVariant(); };
    std::function<bool(Env&, QObject*)> reached;
};

} // namespace

Q_DECLARE_METATYPE(BusCase)

namespace {

std::function<QVariant(QObject*)> recordOf(int index, QVariant const& extra = QVariant())
{
    return [index, extra](QObject* o) {
        sPluginRegisterItem item;
        item.object = o;
        item.index = index;
        item.extra = extra;
        return QVariant::fromValue(item);
    };
}

std::function<QVariant(QObject*)> pointerOf()
{
    return [](QObject* o) { return QVariant::fromValue<void*>(static_cast<void*>(o)); };
}

std::function<QVariant(QObject*)> intOf(int value)
{
    return [value](QObject*) { return QVariant(value); };
}

std::function<QVariant(QObject*)> stringOf(char const* value)
{
    return [value](QObject*) { return QVariant(QString::fromLatin1(value)); };
}

template <typename T>
std::function<QObject*()> maker(QString const& name = QString())
{
    return [name]() {
        auto* w = new T();
        w->setObjectName(name.isEmpty() ? QStringLiteral("busObject") : name);
        return static_cast<QObject*>(w);
    };
}

// Commands whose object the sender must keep alive until it is registered:
// a menu action and a home-page row may be non-widgets, which no look-up can
// tell from a stale pointer.
bool senderVouches(QString const& cmd)
{
    return cmd == QLatin1String(BASEPLUGIN_CMD_REGISTER_MENUITEM) || cmd == QLatin1String(BASEPLUGIN_CMD_REGISTER_HOMEPAGE);
}

// QSignalSpy keeps a QVariant argument wrapped in another QVariant.
QVariant unwrap(QVariant const& v)
{
    return v.userType() == QMetaType::QVariant ? v.value<QVariant>() : v;
}

QWidget* W(QObject* o)
{
    return static_cast<QWidget*>(o);
}

QAction* aboutAction(CQMenu* menu)
{
    for (QAction* a : menu->orderedActions()) {
        auto* wa = qobject_cast<QWidgetAction*>(a);
        auto* item = wa ? qobject_cast<CQMenuItem*>(wa->defaultWidget()) : nullptr;
        if (item && item->text() == QString::fromUtf8("关于我们"))
            return a;
    }
    return nullptr;
}

CSettingCenterWidgetMgr* settings()
{
    return CSettingCenterWidgetMgr::singleInstance();
}

void openSettings()
{
    settings()->gotoChildObject(QStringLiteral("SettingCentreWidget"));
}

QWidget* titleRightArea(Env& e)
{
    return e.plugin->titleBar()->findChild<QWidget*>(QStringLiteral("m_pRightArea"));
}

} // namespace

class TestBasePluginCmd : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void command_data() { addRows([](QString const&, BusCase const&) { return true; }); }
    void command();
    void command_wrongPayload_data() { addRows([](QString const&, BusCase const&) { return true; }); }
    void command_wrongPayload();
    void command_objectDeletedBeforeSend_data();
    void command_objectDeletedBeforeSend();
    void command_objectDeletedAfterRegistration_data();
    void command_objectDeletedAfterRegistration();

    void install_data();
    void install();
    void installBridgeTwice();
    void unknownCommandChangesNothing_data();
    void unknownCommandChangesNothing();
    void aboutRegistrationBeforeWindowIsDropped();
    void navigateBottomWinNotAWidget();
    void titleRegistrationWithNullObject();

private:
    static void addRows(std::function<bool(QString const&, BusCase const&)> const& keep);

    std::unique_ptr<TestPluginFixture> m_fixture;
    Env m_env;
};

void TestBasePluginCmd::init()
{
    m_fixture.reset(new TestPluginFixture());
    m_env = Env();
    m_env.fixture = m_fixture.get();
    m_env.plugin = m_fixture->plugin();
    m_env.main = m_fixture->mainWindow();
    QVERIFY(m_env.plugin->homePage());
}

void TestBasePluginCmd::cleanup()
{
    m_env.spy.reset();
    m_fixture.reset();
}

// Every command in dispatch order; `keep` picks the rows a test needs.
void TestBasePluginCmd::addRows(std::function<bool(QString const&, BusCase const&)> const& keep)
{
    QTest::addColumn<QString>("cmd");
    QTest::addColumn<BusCase>("bc");
    using K = BusCase::Kind;
    auto row = [&keep](char const* tag, char const* cmd, BusCase const& bc) {
        if (keep(QString::fromLatin1(cmd), bc))
            QTest::newRow(tag) << QString::fromLatin1(cmd) << bc;
    };

    BusCase c;
    c = {}; c.kind = K::Pointer; c.make = maker<NavigateItemWidget>("busPage"); c.payload = pointerOf();
    c.reached = [](Env& e, QObject*) { return e.plugin->navigateWidget()->names().contains("busPage"); };
    row("01 register navigate item", BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, c);

    c = {}; c.kind = K::Pointer; c.make = maker<NavigateItemWidget>("busPage"); c.payload = pointerOf();
    c.arrange = [](Env& e, QObject* o) { e.plugin->navigateWidget()->addItem(static_cast<NavigateItemWidget*>(o)); };
    c.reached = [](Env& e, QObject*) { return !e.plugin->navigateWidget()->names().contains("busPage"); };
    row("02 unregister navigate item", BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_ITEM, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(0, QPoint(5, 6));
    c.reached = [](Env& e, QObject* o) {
        return W(o)->parentWidget() == e.plugin->bottomBar() && W(o)->pos() == QPoint(5, 6) && !W(o)->isHidden();
    };
    row("03 register navigate bottom win", BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(0);
    c.arrange = [](Env& e, QObject* o) { W(o)->setParent(e.plugin->bottomBar()); W(o)->show(); };
    c.reached = [](Env&, QObject* o) { return W(o)->parentWidget() == nullptr && W(o)->isHidden(); };
    row("04 unregister navigate bottom win", BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(25, 8);
    c.reached = [](Env& e, QObject* o) { return e.plugin->homePage()->hasItem(25) && W(o)->parentWidget() == e.plugin->homePage(); };
    row("05 register home page row", BASEPLUGIN_CMD_REGISTER_HOMEPAGE, c);

    c = {}; c.kind = K::Int; c.make = maker<QWidget>(); c.payload = intOf(25);
    c.arrange = [](Env& e, QObject* o) { e.plugin->homePage()->registerItem(sPluginRegisterItem{o, 25, 8}); };
    c.reached = [](Env& e, QObject*) { return !e.plugin->homePage()->hasItem(25); };
    row("06 unregister home page row", BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(3);
    c.reached = [](Env& e, QObject* o) { return e.plugin->homePage()->cardsWin()->item(3) == o; };
    row("07 register card", BASEPLUGIN_CMD_REGISTER_CARDAREA, c);

    c = {}; c.kind = K::Int; c.make = maker<QWidget>(); c.payload = intOf(3);
    c.arrange = [](Env& e, QObject* o) { e.plugin->homePage()->registerItem2CardArea(sPluginRegisterItem{o, 3, {}}); };
    c.reached = [](Env& e, QObject*) { return !e.plugin->homePage()->cardsWin()->contains(3); };
    row("08 unregister card", BASEPLUGIN_CMD_UNREGISTER_CARDAREA, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(150);
    c.reached = [](Env&, QObject* o) { return TrayWidget::singleInstance()->menu()->items().contains(W(o)); };
    row("09 register tray row", BASEPLUGIN_CMD_REGISTER_TRAY, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(150);
    c.arrange = [](Env&, QObject* o) { TrayWidget::singleInstance()->registMenu(W(o), 150); };
    c.reached = [](Env&, QObject* o) { return !TrayWidget::singleInstance()->menu()->items().contains(W(o)); };
    row("10 unregister tray row", BASEPLUGIN_CMD_UNREGISTER_TRAY, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(5);
    c.reached = [](Env& e, QObject* o) { return e.plugin->goodsShelf()->items().contains(W(o)); };
    row("11 register goods tile", BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, c);

    c = {}; c.kind = K::Int; c.make = maker<QWidget>(); c.payload = intOf(5);
    c.arrange = [](Env& e, QObject* o) { e.plugin->goodsShelf()->registerItem(W(o), 5); };
    c.reached = [](Env& e, QObject* o) { return !e.plugin->goodsShelf()->items().contains(W(o)); };
    row("12 unregister goods tile", BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS, c);

    c = {}; c.kind = K::Record; c.make = maker<QAction>(); c.payload = recordOf(70);
    c.reached = [](Env& e, QObject* o) { return e.plugin->rightTopMenu()->orderedActions().contains(static_cast<QAction*>(o)); };
    row("13 register menu item", BASEPLUGIN_CMD_REGISTER_MENUITEM, c);

    c = {}; c.kind = K::Record; c.make = maker<QAction>(); c.payload = recordOf(70);
    c.arrange = [](Env& e, QObject* o) { e.plugin->execCmd(BASEPLUGIN_CMD_REGISTER_MENUITEM, recordOf(70)(o)); };
    c.reached = [](Env& e, QObject*) { return e.plugin->rightTopMenu()->orderedActions().size() == 1; };
    row("14 unregister menu item", BASEPLUGIN_CMD_UNREGISTER_MENUITEM, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SettingItemWidget>("busSettingPage"); c.payload = pointerOf();
    c.arrange = [](Env&, QObject*) { openSettings(); };
    c.reached = [](Env&, QObject* o) { return settings()->window() && settings()->window()->findItem("busSettingPage") == o; };
    row("15 register setting page", BASEPLUGIN_CMD_REGISTER_SETTING, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SettingItemWidget>("busSettingPage"); c.payload = pointerOf();
    c.arrange = [](Env&, QObject* o) { openSettings(); settings()->registerItem(static_cast<SettingItemWidget*>(o)); };
    c.reached = [](Env&, QObject*) { return !settings()->window() || !settings()->window()->findItem("busSettingPage"); };
    row("16 unregister setting page", BASEPLUGIN_CMDTYPE_UNREGISTER_SETTING, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>("statusA"); c.payload = recordOf(0, QPoint(3, 4));
    c.reached = [](Env& e, QObject* o) { return W(o)->parentWidget() == e.plugin->homePage()->dataArea() && W(o)->pos() == QPoint(3, 4); };
    row("17 register data area widget", BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(120, 1);
    c.reached = [](Env& e, QObject* o) { return W(o)->parentWidget() == titleRightArea(e); };
    row("18 register title widget", BASEPLUGIN_CMD_REGISTERWIN2TITLE, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(120, 1);
    c.arrange = [](Env& e, QObject* o) {
        e.plugin->titleBar()->registerWin(W(o), EBASETITLEBARDIR_RIGHT, static_cast<eBaseTitleBarObjPosID>(120));
    };
    c.reached = [](Env&, QObject* o) { return W(o)->parentWidget() == nullptr && W(o)->isHidden(); };
    row("19 unregister title widget", BASEPLUGIN_CMD_UNREGISTER2TITLE, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SettingSubItemWidget>(); c.payload = pointerOf();
    c.reached = [](Env& e, QObject* o) { return e.plugin->commonSetting()->items().contains(static_cast<SettingSubItemWidget*>(o)); };
    row("20 register base setting row", BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SettingSubItemWidget>(); c.payload = pointerOf();
    c.arrange = [](Env& e, QObject* o) { e.plugin->commonSetting()->registerItem(static_cast<SettingSubItemWidget*>(o)); };
    c.reached = [](Env& e, QObject* o) { return !e.plugin->commonSetting()->items().contains(static_cast<SettingSubItemWidget*>(o)); };
    row("21 unregister base setting row", BASEPLUGIN_CMDTYPE_UNREGISTER_BASESETTINGPAGE, c);

    c = {}; c.kind = K::String; c.payload = stringOf(EPLUGIN_ID_BRIDGE_BASE);
    c.reached = [](Env& e, QObject*) { return e.plugin->dataTimer()->isActive() && e.plugin->dataTimer()->interval() == 10000; };
    row("22 install", PLUGINMANAGE_CMDTYPE_INSTALL, c);

    c = {}; c.kind = K::String; c.payload = stringOf(EPLUGIN_ID_UPGRADE);
    c.arrange = [](Env& e, QObject*) {
        e.fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE);
        for (QWidget* w : QApplication::allWidgets()) {
            if (w->inherits("ClientUpgradeItemWin"))
                e.scratch = w;
        }
    };
    c.reached = [](Env& e, QObject*) { TestPluginFixture::flushDeletes(); return e.scratch.isNull(); };
    row("23 unstall upgrade", PLUGINMANAGE_CMDTYPE_UNSTALL, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SubMessageTipItemInterface>(); c.payload = pointerOf();
    c.reached = [](Env& e, QObject* o) { return e.plugin->messageTip()->stackedWidget()->indexOf(W(o)) >= 0; };
    row("24 add message tip panel", BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP, c);

    c = {}; c.kind = K::Pointer; c.make = maker<SubMessageTipItemInterface>(); c.payload = pointerOf();
    c.arrange = [](Env& e, QObject* o) { e.plugin->messageTip()->registerItem(static_cast<SubMessageTipItemInterface*>(o)); };
    c.reached = [](Env& e, QObject* o) { return e.plugin->messageTip()->stackedWidget()->indexOf(W(o)) < 0; };
    row("25 delete message tip panel", BASEPLUGIN_CMDTYPE_DELITEM2MESSAGETIP, c);

    c = {}; c.kind = K::None;
    c.arrange = [](Env& e, QObject*) { e.main->show(); };
    c.reached = [](Env& e, QObject*) { return !e.main->isVisible(); };
    row("26 minimise to tray", BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY, c);

    c = {}; c.kind = K::None;
    c.arrange = [](Env& e, QObject*) { e.spy.reset(new QSignalSpy(e.plugin, &BasePlugin::sig_updateQuitMode)); };
    c.reached = [](Env& e, QObject*) { return e.spy->count() > 0 || e.spy->wait(5000); };
    row("27 temporary quit asks for the quit mode", EPLUGIN_ID_BASE_CMD_TMP_QUIT, c);

    c = {}; c.kind = K::None;
    c.arrange = [](Env& e, QObject*) { e.main->show(); };
    c.reached = [](Env& e, QObject*) { return !e.main->isVisible(); };
    row("28 silent start-up", EPLUGIN_ID_BASE_CMD_SILENT_STARTUP, c);

    c = {}; c.kind = K::Record; c.make = maker<QWidget>(); c.payload = recordOf(20);
    c.arrange = [](Env& e, QObject*) { e.plugin->slot_about(); };
    c.reached = [](Env& e, QObject* o) { return e.plugin->aboutWin() && e.plugin->aboutWin()->isAncestorOf(W(o)); };
    row("29 register about badge", BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, c);

    c = {}; c.kind = K::Int; c.make = maker<QWidget>(); c.payload = intOf(20);
    c.arrange = [](Env& e, QObject* o) { e.plugin->slot_about(); e.plugin->aboutWin()->registerItem(W(o), 20); };
    c.reached = [](Env& e, QObject* o) { return !e.plugin->aboutWin()->isAncestorOf(W(o)); };
    row("30 unregister about badge", BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, c);

    c = {}; c.kind = K::None;
    c.reached = [](Env& e, QObject*) { return aboutAction(e.plugin->rightTopMenu()) != nullptr; };
    row("31 right-top menu shows", EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, c);

    c = {}; c.kind = K::None;
    c.arrange = [](Env& e, QObject*) { e.plugin->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant()); };
    c.reached = [](Env& e, QObject*) { return aboutAction(e.plugin->rightTopMenu()) == nullptr; };
    row("32 right-top menu hides", EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE, c);

    c = {}; c.kind = K::Pointer; c.make = [] { return static_cast<QObject*>(new AuthMgritem(7)); }; c.payload = pointerOf();
    c.reached = [](Env& e, QObject* o) { return e.plugin->authMgr()->items().contains(static_cast<AuthMgritem*>(o)); };
    row("33 register auth item", BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM, c);

    c = {}; c.kind = K::Int; c.make = [] { return static_cast<QObject*>(new AuthMgritem(7)); }; c.payload = intOf(7);
    c.arrange = [](Env& e, QObject* o) { e.plugin->authMgr()->registerItem(static_cast<AuthMgritem*>(o)); };
    c.reached = [](Env& e, QObject*) { return e.plugin->authMgr()->items().isEmpty(); };
    row("34 unregister auth item", BASEPLUGIN_CMD_UNREGISTER_REALAUTH_TEM, c);

    c = {}; c.kind = K::None;
    c.arrange = [](Env& e, QObject*) {
        openSettings();
        if (SettingCentreWidget* w = settings()->window())
            w->removeItem(e.plugin->commonSetting()->getBarName());
    };
    c.reached = [](Env& e, QObject*) {
        return settings()->window() && settings()->window()->findItem(e.plugin->commonSetting()->getBarName()) != nullptr;
    };
    row("35 settings centre opens", EPLUGIN_ID_SETTINGCENTER_CMD_OPEN, c);
}

void TestBasePluginCmd::command()
{
    QFETCH(QString, cmd);
    QFETCH(BusCase, bc);
    QPointer<QObject> object = bc.make();
    bc.arrange(m_env, object);
    if (bc.kind != BusCase::None)
        QVERIFY2(!bc.reached(m_env, object), "effect present before the command");

    QVariant const result = m_env.plugin->execCmd(cmd, bc.payload(object));

    QVERIFY(!result.isValid());
    QVERIFY(bc.reached(m_env, object));
    delete object.data();
}

// A payload of another type, or a null object, unpacks to a default value:
// nothing is reached, except by the commands that carry no payload at all.
void TestBasePluginCmd::command_wrongPayload()
{
    QFETCH(QString, cmd);
    QFETCH(BusCase, bc);
    QPointer<QObject> object = bc.make();
    bc.arrange(m_env, object);
    QList<QVariant> const wrong = {QVariant(), QVariant(1.5), QVariant(QStringLiteral("junk")),
                                   QVariant::fromValue<QObject*>(object.data()), QVariant(QPoint(1, 2)),
                                   QVariant::fromValue<void*>(nullptr), QVariant::fromValue(sPluginRegisterItem())};
    for (QVariant const& payload : wrong) {
        QVERIFY(!m_env.plugin->execCmd(cmd, payload).isValid());
        if (bc.kind != BusCase::None)
            QVERIFY2(!bc.reached(m_env, object), payload.typeName());
    }
    delete object.data();
}

// The sender deleted its object and still sends the stale pointer: it is not
// found among the live widgets, so nothing is touched. Menu actions are not
// widgets; their senders keep them alive until they are unregistered.
void TestBasePluginCmd::command_objectDeletedBeforeSend_data()
{
    addRows([](QString const& cmd, BusCase const& bc) {
        return (bc.kind == BusCase::Record || bc.kind == BusCase::Pointer) && !senderVouches(cmd);
    });
}

void TestBasePluginCmd::command_objectDeletedBeforeSend()
{
    QFETCH(QString, cmd);
    QFETCH(BusCase, bc);
    QObject* object = bc.make();
    bc.arrange(m_env, object);
    QVariant const stale = bc.payload(object);
    delete object;
    TestPluginFixture::flushDeletes();
    QVERIFY(!m_env.plugin->execCmd(cmd, stale).isValid());
    // The frame still works afterwards.
    QWidget* probe = new QWidget();
    m_env.plugin->execCmd(BASEPLUGIN_CMD_REGISTERWIN2TITLE, recordOf(121, 1)(probe));
    QCOMPARE(probe->parentWidget(), titleRightArea(m_env));
    delete probe;
}

// The owner deletes its widget while it is registered; later commands about
// the same container (and the stale pointer itself) must not touch it.
void TestBasePluginCmd::command_objectDeletedAfterRegistration_data()
{
    addRows([](QString const&, BusCase const& bc) { return bc.kind != BusCase::None && bc.kind != BusCase::String; });
}

void TestBasePluginCmd::command_objectDeletedAfterRegistration()
{
    QFETCH(QString, cmd);
    QFETCH(BusCase, bc);
    QObject* object = bc.make();
    bc.arrange(m_env, object);
    QVariant const payload = bc.payload(object);
    m_env.plugin->execCmd(cmd, payload);
    delete object;
    TestPluginFixture::flushDeletes();
    if (!senderVouches(cmd))
        m_env.plugin->execCmd(cmd, payload);
    // Relayouts of every keyed container.
    QWidget* probe = new QWidget();
    for (char const* again : {BASEPLUGIN_CMD_REGISTER_HOMEPAGE, BASEPLUGIN_CMD_REGISTER_CARDAREA,
                              BASEPLUGIN_CMD_REGISTER_TRAY, BASEPLUGIN_CMD_REGISTER_TRAY_GOODS,
                              BASEPLUGIN_CMD_REGISTERWIN2TITLE}) {
        m_env.plugin->execCmd(again, recordOf(77, 1)(probe));
        m_env.plugin->execCmd(again, recordOf(78, 1)(probe));
    }
    m_env.plugin->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant());
    if (m_env.plugin->authMgr())
        m_env.plugin->authMgr()->updateIconStatus();
    delete probe;
    TestPluginFixture::flushDeletes();
}

// What installing another plugin sets off, by its id.
void TestBasePluginCmd::install_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("present");   // a plugin to make present first
    QTest::addColumn<QString>("sentTarget");
    QTest::addColumn<QString>("sentCmd");   // "" = nothing may be sent
    QTest::newRow("test plugin present") << EPLUGIN_ID_TEST << EPLUGIN_ID_TEST << EPLUGIN_ID_TEST << TESTPLUGIN_CMDTYPE_ADDITEM;
    QTest::newRow("test plugin absent") << EPLUGIN_ID_TEST << "" << "" << "";
    QTest::newRow("upgrade plugin present") << EPLUGIN_ID_UPGRADE << EPLUGIN_ID_UPGRADE << EPLUGIN_ID_UPGRADE
                                            << EPLUGIN_ID_UPGRADE_CMD_REGISTER_ITEM;
    QTest::newRow("upgrade plugin absent") << EPLUGIN_ID_UPGRADE << "" << "" << "";
    QTest::newRow("bridge") << EPLUGIN_ID_BRIDGE_BASE << "" << "" << EPLUGIN_ID_BASE_CMD_INIT_CONNECT;
    QTest::newRow("antivirus") << EPLUGIN_ID_STANDARDAV << "" << "" << "";
    QTest::newRow("vulnerability scan") << EPLUGIN_ID_VULSCAN << "" << "" << "";
    QTest::newRow("active defence") << EPLUGIN_ID_ACTIVEDEFENSE << "" << "" << "";
    QTest::newRow("anything else") << "EPLUGIN_ID_SOMETHING" << "" << "" << "";
    QTest::newRow("empty id") << "" << "" << "" << "";
}

void TestBasePluginCmd::install()
{
    QFETCH(QString, id);
    QFETCH(QString, present);
    QFETCH(QString, sentTarget);
    QFETCH(QString, sentCmd);
    if (!present.isEmpty())
        m_fixture->addPresentPlugin(present);
    QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
    QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
    auto* closeRow = m_env.plugin->commonSetting()->findChild<SettingSubItemWidget*>();
    std::unique_ptr<QSignalSpy> reload;
    if (closeRow)
        reload.reset(new QSignalSpy(closeRow, SIGNAL(sig_updateInfo(__sSettingData))));

    m_env.plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(id));

    QStringList sent;
    for (QList<QVariant> const& args : qAsConst(sig1)) {
        if (args.at(1).toString() != QLatin1String(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA))
            sent << args.at(0).toString() + "|" + args.at(1).toString();
    }
    for (QList<QVariant> const& args : qAsConst(sig))
        sent << "|" + args.at(0).toString();
    if (sentCmd.isEmpty()) {
        QVERIFY2(sent.isEmpty(), qPrintable(sent.join(", ")));
    } else {
        QCOMPARE(sent.count(sentTarget + "|" + sentCmd), 1);
    }
    bool const bridge = id == QLatin1String(EPLUGIN_ID_BRIDGE_BASE);
    QCOMPARE(m_env.plugin->dataTimer()->isActive(), bridge);
    if (id == QLatin1String(EPLUGIN_ID_ACTIVEDEFENSE) && reload)
        QCOMPARE(reload->count(), 1);
    if (id == QLatin1String(EPLUGIN_ID_TEST) && !present.isEmpty()) {
        auto const item = unwrap(sig1.first().at(2)).value<sPluginRegisterItem>();
        QCOMPARE(item.object->objectName(), QStringLiteral("FileDistributionPluginAction"));
    }
    if (id == QLatin1String(EPLUGIN_ID_UPGRADE) && !present.isEmpty()) {
        auto* item = static_cast<QWidget*>(unwrap(sig1.first().at(2)).value<void*>());
        QVERIFY(QApplication::allWidgets().contains(item));
        QVERIFY(item->inherits("ClientUpgradeItemWin"));
        QVERIFY(m_env.plugin->versionStatusCard());
    }
}

// No guard against a second bridge install: the signals are connected twice
// and the timer starts over.
void TestBasePluginCmd::installBridgeTwice()
{
    QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
    QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
    m_env.plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    m_env.plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    QCOMPARE(sig.count(), 2);
    QCOMPARE(sig.at(0).at(0).toString(), QStringLiteral(EPLUGIN_ID_BASE_CMD_INIT_CONNECT));
    QVERIFY(!sig.at(0).at(1).isValid());
    QVERIFY(m_env.plugin->dataTimer()->isActive());
    QCOMPARE(m_env.plugin->dataTimer()->interval(), 10000);

    sig1.clear();
    emit BasePluginModelDataInterface::singleInstance()->sig_centerShow();
    auto const shows = [&sig1]() {
        int n = 0;
        for (QList<QVariant> const& args : qAsConst(sig1))
            n += args.at(1).toString() == QLatin1String(EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW);
        return n;
    };
    QTRY_COMPARE(shows(), 2);
    QCOMPARE(sig1.first().at(0).toString(), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN));
}

void TestBasePluginCmd::unknownCommandChangesNothing_data()
{
    QTest::addColumn<QString>("cmd");
    QTest::newRow("unknown") << "NO_SUCH_COMMAND";
    QTest::newRow("empty") << "";
    QTest::newRow("correctly spelt uninstall") << "PLUGINMANAGE_CMDTYPE_UNINSTALL";
    QTest::newRow("correctly spelt bottom") << "BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOTTOM_WIN";
    QTest::newRow("lower case") << "baseplugin_cmd_register_homepage";
    QTest::newRow("trailing blank") << "BASEPLUGIN_CMD_REGISTER_HOMEPAGE ";
    QTest::newRow("other prefix") << "BASEPLUGIN_CMDTYPE_REGISTER_SETTING";
}

void TestBasePluginCmd::unknownCommandChangesNothing()
{
    QFETCH(QString, cmd);
    m_fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE);
    QPointer<QWidget> upgradeItem;
    for (QWidget* w : QApplication::allWidgets()) {
        if (w->inherits("ClientUpgradeItemWin"))
            upgradeItem = w;
    }
    QVERIFY(upgradeItem);
    QWidget row;
    TestLogCapture log;
    QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
    QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
    for (QVariant const& payload : {QVariant(QStringLiteral(EPLUGIN_ID_UPGRADE)),
                                    QVariant::fromValue(sPluginRegisterItem{&row, 25, 8}), QVariant()}) {
        QVERIFY(!m_env.plugin->execCmd(cmd, payload).isValid());
    }
    TestPluginFixture::flushDeletes();
    QVERIFY(upgradeItem);
    QVERIFY(!m_env.plugin->homePage()->hasItem(25));
    QCOMPARE(row.parentWidget(), nullptr);
    QCOMPARE(sig.count() + sig1.count(), 0);
    QVERIFY2(log.lines().isEmpty(), qPrintable(log.lines().join('\n')));
}

void TestBasePluginCmd::aboutRegistrationBeforeWindowIsDropped()
{
    QWidget* badge = new QWidget();
    QVERIFY(!m_env.plugin->aboutWin());
    m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, recordOf(20)(badge));
    m_env.plugin->slot_about();
    QVERIFY(m_env.plugin->aboutWin());
    QVERIFY(!m_env.plugin->aboutWin()->isAncestorOf(badge));
    m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, QVariant(20));
    m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, recordOf(20)(badge));
    QVERIFY(m_env.plugin->aboutWin()->isAncestorOf(badge));
    delete badge;
}

void TestBasePluginCmd::navigateBottomWinNotAWidget()
{
    QAction action(nullptr);
    int const children = m_env.plugin->bottomBar()->children().size();
    m_env.plugin->execCmd(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, recordOf(0, QPoint(1, 1))(&action));
    m_env.plugin->execCmd(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, recordOf(0)(&action));
    QCOMPARE(action.parent(), nullptr);
    QCOMPARE(m_env.plugin->bottomBar()->children().size(), children);
}

void TestBasePluginCmd::titleRegistrationWithNullObject()
{
    QWidget* area = titleRightArea(m_env);
    int const before = area->layout()->count();
    m_env.plugin->execCmd(BASEPLUGIN_CMD_REGISTERWIN2TITLE, recordOf(120, 1)(nullptr));
    m_env.plugin->execCmd(BASEPLUGIN_CMD_UNREGISTER2TITLE, recordOf(300, 1)(nullptr));
    QCOMPARE(area->layout()->count(), before);
    QVERIFY(area->findChild<QWidget*>(QStringLiteral("m_pBtnMin"))->isVisibleTo(area));
}

QTEST_MAIN(TestBasePluginCmd)
#include "tst_basePluginCmd.moc"
