// The command bus: every command with a good payload reaches its container;
// wrong, null and stale payloads reach nothing and crash nothing.

#include "authMgr.h"
#include "authmgritem.h"
#include "baseCmdDefine.h"
#include "basepluginmodeldatainterface.h"
#include "cWinAbout.h"
#include "cardsWin.h"
#include "commonSetting.h"
#include "cqmenu.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "menuWidget.h"
#include "messageTip.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingsubitemwidget.h"
#include "submessagetipiteminterface.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"
#include "trayWidget.h"

#include <QLayout>
#include <QStackedWidget>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

// The fixture of the running test, and what a row's steps keep between them.
TestPluginFixture* g_fixture = nullptr;
QPointer<QObject> g_scratch;
std::unique_ptr<QSignalSpy> g_spy;

BasePlugin* P()
{
    return g_fixture->plugin();
}

template <typename T = QWidget>
T* as(QObject* o)
{
    return static_cast<T*>(o);
}

// How a payload is packed: nothing, a record (index, extra), a bare pointer,
// an int (index) or a plugin id (extra).
struct Pack {
    enum Kind { None, Record, Pointer, Int, String };
    Pack(Kind k = None, int i = 0, QVariant const& e = QVariant()) : kind(k), index(i), extra(e) {}
    Kind kind;
    int index;
    QVariant extra;
};

// One row of the command table: the object sent, the state the command needs
// and how to see that it got where it belongs.
struct BusCase {
    Pack pack;
    std::function<QObject*()> make;
    std::function<void(QObject*)> arrange;
    std::function<bool(QObject*)> reached;

    QVariant payload(QObject* o) const
    {
        QVariant const byKind[] = {QVariant(), packed(o, pack.index, pack.extra), QVariant::fromValue<void*>(o),
                                   QVariant(pack.index), pack.extra};
        return byKind[pack.kind];
    }
    bool carries() const { return pack.kind != Pack::None; }
};

template <typename T = QWidget>
std::function<QObject*()> maker(char const* name = "busObject")
{
    return [name]() {
        QObject* o = new T();
        o->setObjectName(QString::fromLatin1(name));
        return o;
    };
}

// A menu action is no widget, which no look-up can tell from a stale pointer:
// its sender keeps it alive until unregistered.
bool senderVouches(QString const& cmd)
{
    return cmd == QLatin1String(BASEPLUGIN_CMD_REGISTER_MENUITEM);
}

// Walks up from `w`; false if the chain comes back on itself.
bool parentChainEnds(QWidget* w)
{
    for (int depth = 0; w && depth < 64; ++depth)
        w = w->parentWidget();
    return !w;
}

int menuEntries()
{
    return P()->rightTopMenu()->orderedActions().size();
}

// Opening asks every plugin for its pages; the window then exists.
CSettingCenterWidgetMgr* settings()
{
    CSettingCenterWidgetMgr::singleInstance()->gotoChildObject(QStringLiteral("SettingCentreWidget"));
    return CSettingCenterWidgetMgr::singleInstance();
}

bool settingPageShown(char const* name)
{
    SettingCentreWidget* w = CSettingCenterWidgetMgr::singleInstance()->window();
    return w && w->findItem(QString::fromLatin1(name));
}

QWidget* titleRightArea()
{
    return P()->titleBar()->findChild<QWidget*>(QStringLiteral("m_pRightArea"));
}

QPointer<QWidget> upgradeItem()
{
    for (QWidget* w : QApplication::allWidgets()) {
        if (w->inherits("ClientUpgradeItemWin"))
            return w;
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(BusCase)

class TestBasePluginCmd : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestPluginFixture> m_fixture;

    // Every command in dispatch order; `keep` picks the rows a test needs.
    static void addRows(char const* suffix, std::function<bool(QString const&, BusCase const&)> const& keep,
                        bool registeredFirst = false)
    {
        using K = Pack::Kind;
        using Step = std::function<void(QObject*)>;
        auto add = [&](char const* cmd, Pack const& pack, std::function<QObject*()> const& make, Step const& arrange,
                       std::function<bool(QObject*)> const& reached) {
            BusCase const bc{pack, make ? make : [] { return static_cast<QObject*>(nullptr); },
                             arrange ? arrange : Step([](QObject*) {}), reached};
            if (keep(QString::fromLatin1(cmd), bc))
                QTest::newRow((cmd + QByteArray(suffix)).constData()) << QString::fromLatin1(cmd) << bc << registeredFirst;
        };
        HomePageWidget* (*home)() = [] { return P()->homePage(); };
        auto const widget = maker();

        add(BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, {K::Pointer}, maker<NavigateItemWidget>("busPage"), {},
            [](QObject*) { return P()->navigateWidget()->names().contains("busPage"); });
        add(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_ITEM, {K::Pointer}, maker<NavigateItemWidget>("busPage"),
            [](QObject* o) { P()->navigateWidget()->addItem(as<NavigateItemWidget>(o)); },
            [](QObject*) { return !P()->navigateWidget()->names().contains("busPage"); });
        add(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, {K::Record, 0, QPoint(5, 6)}, widget, {}, [](QObject* o) {
            return as(o)->parentWidget() == P()->bottomBar() && as(o)->pos() == QPoint(5, 6) && !as(o)->isHidden();
        });
        add(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, {K::Record}, widget,
            [](QObject* o) { as(o)->setParent(P()->bottomBar()); as(o)->show(); },
            [](QObject* o) { return !as(o)->parentWidget() && as(o)->isHidden(); });
        add(BASEPLUGIN_CMD_REGISTER_HOMEPAGE, {K::Record, 25, 8}, widget, {},
            [home](QObject* o) { return home()->hasItem(25) && as(o)->parentWidget() == home(); });
        add(BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE, {K::Int, 25}, widget,
            [home](QObject* o) { home()->registerItem(record(o, 25, 8)); },
            [home](QObject*) { return !home()->hasItem(25); });
        add(BASEPLUGIN_CMD_REGISTER_CARDAREA, {K::Record, 3}, widget, {},
            [home](QObject* o) { return home()->cardsWin()->item(3) == o; });
        add(BASEPLUGIN_CMD_UNREGISTER_CARDAREA, {K::Int, 3}, widget,
            [home](QObject* o) { home()->registerItem2CardArea(record(o, 3)); },
            [home](QObject*) { return !home()->cardsWin()->contains(3); });
        auto* const tray = +[] { return TrayWidget::singleInstance(); };
        add(BASEPLUGIN_CMD_REGISTER_TRAY, {K::Record, 150}, widget, {},
            [tray](QObject* o) { return tray()->menu()->items().contains(as(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_TRAY, {K::Record, 150}, widget, [tray](QObject* o) { tray()->registMenu(as(o), 150); },
            [tray](QObject* o) { return !tray()->menu()->items().contains(as(o)); });
        add(BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, {K::Record, 5}, widget, {},
            [](QObject* o) { return P()->goodsShelf()->items().contains(as(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS, {K::Int, 5}, widget,
            [](QObject* o) { P()->goodsShelf()->registerItem(as(o), 5); },
            [](QObject* o) { return !P()->goodsShelf()->items().contains(as(o)); });
        add(BASEPLUGIN_CMD_REGISTER_MENUITEM, {K::Record, 70}, maker<QAction>(), {},
            [](QObject* o) { return P()->rightTopMenu()->orderedActions().contains(as<QAction>(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_MENUITEM, {K::Record, 70}, maker<QAction>(),
            [](QObject* o) { P()->execCmd(BASEPLUGIN_CMD_REGISTER_MENUITEM, packed(o, 70)); },
            [](QObject*) { return menuEntries() == 1; });
        add(BASEPLUGIN_CMD_REGISTER_SETTING, {K::Pointer}, maker<SettingItemWidget>("busSettingPage"),
            [](QObject*) { settings(); }, [](QObject*) { return settingPageShown("busSettingPage"); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_SETTING, {K::Pointer}, maker<SettingItemWidget>("busSettingPage"),
            [](QObject* o) { settings()->registerItem(as<SettingItemWidget>(o)); },
            [](QObject*) { return !settingPageShown("busSettingPage"); });
        add(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, {K::Record, 0, QPoint(3, 4)}, maker("statusA"), {},
            [home](QObject* o) { return as(o)->parentWidget() == home()->dataArea() && as(o)->pos() == QPoint(3, 4); });
        add(BASEPLUGIN_CMD_REGISTERWIN2TITLE, {K::Record, 120, 1}, widget, {},
            [](QObject* o) { return as(o)->parentWidget() == titleRightArea(); });
        add(BASEPLUGIN_CMD_UNREGISTER2TITLE, {K::Record, 120, 1}, widget,
            [](QObject* o) { P()->titleBar()->registerWin(as(o), EBASETITLEBARDIR_RIGHT, eBaseTitleBarObjPosID(120)); },
            [](QObject* o) { return !as(o)->parentWidget() && as(o)->isHidden(); });
        add(BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE, {K::Pointer}, maker<SettingSubItemWidget>(), {},
            [](QObject* o) { return P()->commonSetting()->items().contains(as<SettingSubItemWidget>(o)); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_BASESETTINGPAGE, {K::Pointer}, maker<SettingSubItemWidget>(),
            [](QObject* o) { P()->commonSetting()->registerItem(as<SettingSubItemWidget>(o)); },
            [](QObject* o) { return !P()->commonSetting()->items().contains(as<SettingSubItemWidget>(o)); });
        add(PLUGINMANAGE_CMDTYPE_INSTALL, {K::String, 0, QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)}, {}, {},
            [](QObject*) { return P()->dataTimer()->isActive() && P()->dataTimer()->interval() == 10000; });
        add(PLUGINMANAGE_CMDTYPE_UNSTALL, {K::String, 0, QStringLiteral(EPLUGIN_ID_UPGRADE)}, {},
            [](QObject*) { g_fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE); g_scratch = upgradeItem(); },
            [](QObject*) { TestPluginFixture::flushDeletes(); return g_scratch.isNull(); });
        add(BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP, {K::Pointer}, maker<SubMessageTipItemInterface>(), {},
            [](QObject* o) { return P()->messageTip()->stackedWidget()->indexOf(as(o)) >= 0; });
        add(BASEPLUGIN_CMDTYPE_DELITEM2MESSAGETIP, {K::Pointer}, maker<SubMessageTipItemInterface>(),
            [](QObject* o) { P()->messageTip()->registerItem(as<SubMessageTipItemInterface>(o)); },
            [](QObject* o) { return P()->messageTip()->stackedWidget()->indexOf(as(o)) < 0; });
        for (char const* hides : {BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY, EPLUGIN_ID_BASE_CMD_SILENT_STARTUP}) {
            add(hides, {}, {}, [](QObject*) { g_fixture->mainWindow()->show(); },
                [](QObject*) { return !g_fixture->mainWindow()->isVisible(); });
        }
        add(EPLUGIN_ID_BASE_CMD_TMP_QUIT, {}, {},
            [](QObject*) { g_spy.reset(new QSignalSpy(P(), &BasePlugin::sig_updateQuitMode)); },
            [](QObject*) { return g_spy->count() > 0 || g_spy->wait(5000); });
        add(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, {K::Record, 20}, widget, [](QObject*) { P()->slot_about(); },
            [](QObject* o) { return P()->aboutWin() && P()->aboutWin()->isAncestorOf(as(o)); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, {K::Int, 20}, widget,
            [](QObject* o) { P()->slot_about(); P()->aboutWin()->registerItem(as(o), 20); },
            [](QObject* o) { return !P()->aboutWin()->isAncestorOf(as(o)); });
        // "设置" is there from init; the about entry comes and goes.
        add(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, {}, {}, {}, [](QObject*) { return menuEntries() == 2; });
        add(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE, {}, {},
            [](QObject*) { P()->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant()); },
            [](QObject*) { return menuEntries() == 1; });
        auto const authItem = [] { return static_cast<QObject*>(new AuthMgritem(7)); };
        add(BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM, {K::Pointer}, authItem, {},
            [](QObject* o) { return P()->authMgr()->items().contains(as<AuthMgritem>(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_REALAUTH_TEM, {K::Int, 7}, authItem,
            [](QObject* o) { P()->authMgr()->registerItem(as<AuthMgritem>(o)); },
            [](QObject*) { return P()->authMgr()->items().isEmpty(); });
        add(EPLUGIN_ID_SETTINGCENTER_CMD_OPEN, {}, {},
            [](QObject*) { settings()->window()->removeItem(P()->commonSetting()->getBarName()); },
            [](QObject*) { return settingPageShown("CommonSetting"); });
    }

    static void addColumns()
    {
        QTest::addColumn<QString>("cmd");
        QTest::addColumn<BusCase>("bc");
        QTest::addColumn<bool>("registeredFirst");
    }

private slots:
    void init()
    {
        m_fixture.reset(new TestPluginFixture());
        g_fixture = m_fixture.get();
    }

    void cleanup()
    {
        g_spy.reset();
        m_fixture.reset();
    }

    void command_data()
    {
        addColumns();
        addRows("", [](QString const&, BusCase const&) { return true; });
    }
    void command()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QPointer<QObject> object = bc.make();
        bc.arrange(object);
        if (bc.carries())
            QVERIFY2(!bc.reached(object), "effect present before the command");
        QVERIFY(!P()->execCmd(cmd, bc.payload(object)).isValid());
        QVERIFY(bc.reached(object));
        delete object.data();
    }

    // A payload of another type, or a null object, unpacks to a default value:
    // nothing is reached, except by the commands that carry no payload at all.
    void command_wrongPayload_data() { command_data(); }
    void command_wrongPayload()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QPointer<QObject> object = bc.make();
        bc.arrange(object);
        for (QVariant const& payload :
             {QVariant(), QVariant(1.5), QVariant(QStringLiteral("junk")), QVariant::fromValue<QObject*>(object.data()),
              QVariant(QPoint(1, 2)), QVariant::fromValue<void*>(nullptr), QVariant::fromValue(sPluginRegisterItem())}) {
            QVERIFY(!P()->execCmd(cmd, payload).isValid());
            if (bc.carries())
                QVERIFY2(!bc.reached(object), payload.typeName());
        }
        delete object.data();
    }

    // The object is deleted before it is sent (the stale pointer is not found
    // among the live widgets), or while registered (later relayouts of every
    // keyed container and the stale pointer itself must not touch it).
    void command_deletedObject_data()
    {
        addColumns();
        addRows(" (sent stale)", [](QString const& cmd, BusCase const& bc) {
            return (bc.pack.kind == Pack::Record || bc.pack.kind == Pack::Pointer) && !senderVouches(cmd);
        });
        addRows(" (registered)",
                [](QString const&, BusCase const& bc) { return bc.carries() && bc.pack.kind != Pack::String; }, true);
    }
    void command_deletedObject()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QFETCH(bool, registeredFirst);
        QObject* object = bc.make();
        bc.arrange(object);
        QVariant const payload = bc.payload(object);
        if (registeredFirst)
            P()->execCmd(cmd, payload);
        delete object;
        TestPluginFixture::flushDeletes();
        if (!senderVouches(cmd))
            QVERIFY(!P()->execCmd(cmd, payload).isValid());
        QWidget probe;
        for (char const* again : {BASEPLUGIN_CMD_REGISTER_HOMEPAGE, BASEPLUGIN_CMD_REGISTER_CARDAREA,
                                  BASEPLUGIN_CMD_REGISTER_TRAY, BASEPLUGIN_CMD_REGISTER_TRAY_GOODS,
                                  BASEPLUGIN_CMD_REGISTERWIN2TITLE}) {
            P()->execCmd(again, packed(&probe, 77, 1));
            P()->execCmd(again, packed(&probe, 78, 1));
        }
        P()->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant());
        P()->authMgr()->updateIconStatus();
        QCOMPARE(probe.parentWidget(), titleRightArea());   // the frame still works
    }

    // The frame's own widgets offered back to it by every registration: no
    // container takes itself or an ancestor, nothing loops, the frame goes on.
    void command_frameOffersItself_data()
    {
        addColumns();
        addRows("", [](QString const& cmd, BusCase const& bc) {
            return (bc.pack.kind == Pack::Record || bc.pack.kind == Pack::Pointer) && !cmd.contains("UNREGISTER")
                && !cmd.contains("DELITEM");
        });
    }
    void command_frameOffersItself()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        bc.arrange(nullptr);
        HomePageWidget* const home = P()->homePage();
        // The container itself, where the command names one, then the two
        // widgets every container of the main window sits in.
        QMap<QString, QWidget*> const self{
            {BASEPLUGIN_CMD_REGISTER_TRAY, TrayWidget::singleInstance()->menu()},
            {BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, P()->goodsShelf()},
            {BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, P()->bottomBar()},
            {BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, home->dataArea()},
            {BASEPLUGIN_CMD_REGISTER_CARDAREA, home->cardsWin()},
            {BASEPLUGIN_CMD_REGISTERWIN2TITLE, titleRightArea()}};
        QList<QWidget*> const own{self.value(cmd), g_fixture->mainWindow(), home};
        for (QWidget* w : own) {
            if (!w)
                continue;
            P()->execCmd(cmd, bc.payload(w));
            QVERIFY2(parentChainEnds(w), qPrintable(w->objectName()));
        }
        QWidget probe;
        P()->execCmd(BASEPLUGIN_CMD_REGISTERWIN2TITLE, packed(&probe, 77, 1));
        QCOMPARE(probe.parentWidget(), titleRightArea());
    }

    // A home-page row is kept whatever its object, but only a live widget is
    // ever looked at: a made-up address is carried, logged and skipped.
    void madeUpHomePageRowIsNeverTouched()
    {
        TestLogCapture log;
        auto* const madeUp = reinterpret_cast<QObject*>(quintptr(0x5a5a5a50));
        P()->execCmd(BASEPLUGIN_CMD_REGISTER_HOMEPAGE, packed(madeUp, 26, 4));
        P()->execCmd(BASEPLUGIN_CMD_REGISTER_CARDAREA, packed(madeUp, 9));
        P()->execCmd(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, packed(madeUp, 0, QPoint(1, 1)));
        QVERIFY(P()->homePage()->hasItem(26));
        QVERIFY(log.count(QStringLiteral("[HomePageWidget] w is null")) >= 1);
        QWidget row;
        P()->execCmd(BASEPLUGIN_CMD_REGISTER_HOMEPAGE, packed(&row, 27));
        QCOMPARE(row.parentWidget(), P()->homePage());
        P()->execCmd(BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE, QVariant(26));
        QVERIFY(!P()->homePage()->hasItem(26));
    }

    // What installing another plugin sets off, by its id.
    void install_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("present");   // the plugin is loaded first
        QTest::addColumn<QString>("sent");   // "target|command", "" = nothing may be sent
        QTest::newRow("test plugin") << EPLUGIN_ID_TEST << true << EPLUGIN_ID_TEST "|" TESTPLUGIN_CMDTYPE_ADDITEM;
        QTest::newRow("upgrade") << EPLUGIN_ID_UPGRADE << true << EPLUGIN_ID_UPGRADE "|" EPLUGIN_ID_UPGRADE_CMD_REGISTER_ITEM;
        QTest::newRow("upgrade absent") << EPLUGIN_ID_UPGRADE << false << "";
        QTest::newRow("bridge") << EPLUGIN_ID_BRIDGE_BASE << false << "|" EPLUGIN_ID_BASE_CMD_INIT_CONNECT;
        QTest::newRow("antivirus") << EPLUGIN_ID_STANDARDAV << false << "";
        QTest::newRow("active defence") << EPLUGIN_ID_ACTIVEDEFENSE << false << "";
        QTest::newRow("anything else") << "EPLUGIN_ID_SOMETHING" << false << "";
    }
    void install()
    {
        QFETCH(QString, id);
        QFETCH(bool, present);
        QFETCH(QString, sent);
        if (present)
            m_fixture->addPresentPlugin(id);
        QSignalSpy sig(P(), &CQBasePlugin::sig);
        QSignalSpy sig1(P(), &CQBasePlugin::sig1);
        QSignalSpy reload(P()->commonSetting()->findChild<SettingSubItemWidget*>(), SIGNAL(sig_updateInfo(__sSettingData)));
        P()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(id));

        QStringList seen;
        for (QList<QVariant> const& args : qAsConst(sig1)) {
            if (args.at(1).toString() != QLatin1String(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA))
                seen << args.at(0).toString() + "|" + args.at(1).toString();
        }
        for (QList<QVariant> const& args : qAsConst(sig))
            seen << "|" + args.at(0).toString();
        QCOMPARE(seen, sent.isEmpty() ? QStringList() : QStringList{sent});
        QCOMPARE(P()->dataTimer()->isActive(), id == QLatin1String(EPLUGIN_ID_BRIDGE_BASE));
        QCOMPARE(reload.count(), id == QLatin1String(EPLUGIN_ID_ACTIVEDEFENSE) ? 1 : 0);
        if (present && id == QLatin1String(EPLUGIN_ID_UPGRADE))   // the item window the plugin asked for
            QCOMPARE(static_cast<QWidget*>(unwrap(sig1.first().at(2)).value<void*>()), upgradeItem().data());
    }

    // No guard against a second bridge install: the signals are connected
    // twice and the timer starts over.
    void installBridgeTwice()
    {
        QSignalSpy sig1(P(), &CQBasePlugin::sig1);
        QSignalSpy sig(P(), &CQBasePlugin::sig);
        for (int i = 0; i < 2; ++i)
            P()->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
        QCOMPARE(countArg(sig, 0, EPLUGIN_ID_BASE_CMD_INIT_CONNECT), 2);
        sig1.clear();
        emit BasePluginModelDataInterface::singleInstance()->sig_centerShow();
        QTRY_COMPARE(countArg(sig1, 1, EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW), 2);
    }

    void unknownCommandChangesNothing_data()
    {
        QTest::addColumn<QString>("cmd");
        QTest::newRow("unknown") << "NO_SUCH_COMMAND";
        QTest::newRow("empty") << "";
        QTest::newRow("correctly spelt uninstall") << "PLUGINMANAGE_CMDTYPE_UNINSTALL";
        QTest::newRow("correctly spelt bottom") << "BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOTTOM_WIN";
        QTest::newRow("trailing blank") << "BASEPLUGIN_CMD_REGISTER_HOMEPAGE ";
    }
    void unknownCommandChangesNothing()
    {
        QFETCH(QString, cmd);
        m_fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE);
        QPointer<QWidget> upgrade = upgradeItem();
        QWidget row;
        TestLogCapture log;
        QSignalSpy sig(P(), &CQBasePlugin::sig);
        QSignalSpy sig1(P(), &CQBasePlugin::sig1);
        for (QVariant const& payload : {QVariant(QStringLiteral(EPLUGIN_ID_UPGRADE)), packed(&row, 25, 8), QVariant()})
            QVERIFY(!P()->execCmd(cmd, payload).isValid());
        TestPluginFixture::flushDeletes();
        QVERIFY(upgrade);
        QVERIFY(!P()->homePage()->hasItem(25) && !row.parentWidget());
        QCOMPARE(sig.count() + sig1.count(), 0);
        QVERIFY2(log.lines().isEmpty(), qPrintable(log.lines().join('\n')));
    }

    // An about badge sent before the window exists is dropped; a bottom-bar
    // "window" that is no widget and a null title widget change nothing.
    void droppedRegistrations()
    {
        QWidget badge;
        P()->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, packed(&badge, 20));
        P()->slot_about();
        QVERIFY(!P()->aboutWin()->isAncestorOf(&badge));
        P()->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, packed(&badge, 20));
        QVERIFY(P()->aboutWin()->isAncestorOf(&badge));
        P()->execCmd(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, QVariant(20));

        QAction action(nullptr);
        int const children = P()->bottomBar()->children().size();
        P()->execCmd(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, packed(&action, 0, QPoint(1, 1)));
        P()->execCmd(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, packed(&action, 0));
        QVERIFY(!action.parent());
        QCOMPARE(P()->bottomBar()->children().size(), children);

        int const before = titleRightArea()->layout()->count();
        P()->execCmd(BASEPLUGIN_CMD_REGISTERWIN2TITLE, packed(nullptr, 120, 1));
        P()->execCmd(BASEPLUGIN_CMD_UNREGISTER2TITLE, packed(nullptr, 300, 1));
        QCOMPARE(titleRightArea()->layout()->count(), before);
        QVERIFY(titleRightArea()->findChild<QWidget*>(QStringLiteral("m_pBtnMin"))->isVisibleTo(titleRightArea()));
    }
};

QTEST_MAIN(TestBasePluginCmd)
#include "tst_basePluginCmd.moc"
