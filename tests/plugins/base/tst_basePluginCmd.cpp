// The command bus: every command with a good payload reaches its container;
// wrong, null and stale payloads reach nothing and crash nothing.

#include "authMgr.h"
#include "authMgritem.h"
#include "baseCmdDefine.h"
#include "basepluginmodeldatainterface.h"
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
#include "settingsubitemwidget.h"
#include "submessagetipiteminterface.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"
#include "trayWidget.h"

#include <QAction>
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
    QPointer<QObject> scratch;
    std::unique_ptr<QSignalSpy> spy;
};

// How a command's payload is packed: nothing, a record (index, extra), a bare
// pointer, an int (index) or a plugin id (extra).
struct Pack {
    enum Kind { None, Record, Pointer, Int, String };
    Pack(Kind k = None, int i = 0, QVariant const& e = QVariant()) : kind(k), index(i), extra(e) {}
    Kind kind;
    int index;
    QVariant extra;
};

using Make = std::function<QObject*()>;
using Step = std::function<void(Env&, QObject*)>;
using Check = std::function<bool(Env&, QObject*)>;

// One row of the command table: the object sent, the state the command needs
// and how to see that it got where it belongs.
struct BusCase {
    Pack pack;
    Make make;
    Step arrange;
    Check reached;

    QVariant payload(QObject* o) const
    {
        switch (pack.kind) {
        case Pack::Record: return QVariant::fromValue(record(o, pack.index, pack.extra));
        case Pack::Pointer: return QVariant::fromValue<void*>(o);
        case Pack::Int: return QVariant(pack.index);
        case Pack::String: return pack.extra;
        case Pack::None: break;
        }
        return QVariant();
    }
    bool carries() const { return pack.kind != Pack::None; }
};

} // namespace

Q_DECLARE_METATYPE(BusCase)

namespace {

template <typename T = QWidget>
Make maker(char const* name = "busObject")
{
    return [name]() {
        auto* o = new T();
        o->setObjectName(QString::fromLatin1(name));
        return static_cast<QObject*>(o);
    };
}
Make const none = [] { return nullptr; };

QWidget* W(QObject* o)
{
    return static_cast<QWidget*>(o);
}

// A menu action and a home-page row may be non-widgets, which no look-up can
// tell from a stale pointer: their senders keep them alive until unregistered.
bool senderVouches(QString const& cmd)
{
    return cmd == QLatin1String(BASEPLUGIN_CMD_REGISTER_MENUITEM) || cmd == QLatin1String(BASEPLUGIN_CMD_REGISTER_HOMEPAGE);
}

bool hasAboutEntry(CQMenu* menu)
{
    for (QAction* a : menu->orderedActions()) {
        auto* wa = qobject_cast<QWidgetAction*>(a);
        auto* item = wa ? qobject_cast<CQMenuItem*>(wa->defaultWidget()) : nullptr;
        if (item && item->text() == QString::fromUtf8("关于我们"))
            return true;
    }
    return false;
}

CSettingCenterWidgetMgr* settings()
{
    return CSettingCenterWidgetMgr::singleInstance();
}

void openSettings()
{
    settings()->gotoChildObject(QStringLiteral("SettingCentreWidget"));
}

bool settingPageShown(char const* name)
{
    return settings()->window() && settings()->window()->findItem(QString::fromLatin1(name));
}

QWidget* titleRightArea(Env& e)
{
    return e.plugin->titleBar()->findChild<QWidget*>(QStringLiteral("m_pRightArea"));
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

class TestBasePluginCmd : public QObject
{
    Q_OBJECT

    using Keep = std::function<bool(QString const&, BusCase const&)>;
    std::unique_ptr<TestPluginFixture> m_fixture;
    Env m_env;

    static void addColumns()
    {
        QTest::addColumn<QString>("cmd");
        QTest::addColumn<BusCase>("bc");
        QTest::addColumn<bool>("registeredFirst");
    }

    // Every command in dispatch order; `keep` picks the rows a test needs.
    static void addRows(char const* suffix, Keep const& keep, bool registeredFirst = false)
    {
        auto add = [&](char const* cmd, Pack const& pack, Make const& make, Step const& arrange, Check const& reached) {
            BusCase const bc{pack, make, arrange ? arrange : Step([](Env&, QObject*) {}), reached};
            if (keep(QString::fromLatin1(cmd), bc))
                QTest::newRow(qPrintable(QString::fromLatin1(cmd) + QLatin1String(suffix)))
                    << QString::fromLatin1(cmd) << bc << registeredFirst;
        };
        using K = Pack::Kind;
        auto* const home = +[](Env& e) { return e.plugin->homePage(); };

        add(BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, {K::Pointer}, maker<NavigateItemWidget>("busPage"), {},
            [](Env& e, QObject*) { return e.plugin->navigateWidget()->names().contains("busPage"); });
        add(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_ITEM, {K::Pointer}, maker<NavigateItemWidget>("busPage"),
            [](Env& e, QObject* o) { e.plugin->navigateWidget()->addItem(static_cast<NavigateItemWidget*>(o)); },
            [](Env& e, QObject*) { return !e.plugin->navigateWidget()->names().contains("busPage"); });
        add(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, {K::Record, 0, QPoint(5, 6)}, maker(), {}, [](Env& e, QObject* o) {
            return W(o)->parentWidget() == e.plugin->bottomBar() && W(o)->pos() == QPoint(5, 6) && !W(o)->isHidden();
        });
        add(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, {K::Record}, maker(),
            [](Env& e, QObject* o) { W(o)->setParent(e.plugin->bottomBar()); W(o)->show(); },
            [](Env&, QObject* o) { return !W(o)->parentWidget() && W(o)->isHidden(); });
        add(BASEPLUGIN_CMD_REGISTER_HOMEPAGE, {K::Record, 25, 8}, maker(), {},
            [home](Env& e, QObject* o) { return home(e)->hasItem(25) && W(o)->parentWidget() == home(e); });
        add(BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE, {K::Int, 25}, maker(),
            [home](Env& e, QObject* o) { home(e)->registerItem(record(o, 25, 8)); },
            [home](Env& e, QObject*) { return !home(e)->hasItem(25); });
        add(BASEPLUGIN_CMD_REGISTER_CARDAREA, {K::Record, 3}, maker(), {},
            [home](Env& e, QObject* o) { return home(e)->cardsWin()->item(3) == o; });
        add(BASEPLUGIN_CMD_UNREGISTER_CARDAREA, {K::Int, 3}, maker(),
            [home](Env& e, QObject* o) { home(e)->registerItem2CardArea(record(o, 3)); },
            [home](Env& e, QObject*) { return !home(e)->cardsWin()->contains(3); });
        add(BASEPLUGIN_CMD_REGISTER_TRAY, {K::Record, 150}, maker(), {},
            [](Env&, QObject* o) { return TrayWidget::singleInstance()->menu()->items().contains(W(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_TRAY, {K::Record, 150}, maker(),
            [](Env&, QObject* o) { TrayWidget::singleInstance()->registMenu(W(o), 150); },
            [](Env&, QObject* o) { return !TrayWidget::singleInstance()->menu()->items().contains(W(o)); });
        add(BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, {K::Record, 5}, maker(), {},
            [](Env& e, QObject* o) { return e.plugin->goodsShelf()->items().contains(W(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS, {K::Int, 5}, maker(),
            [](Env& e, QObject* o) { e.plugin->goodsShelf()->registerItem(W(o), 5); },
            [](Env& e, QObject* o) { return !e.plugin->goodsShelf()->items().contains(W(o)); });
        add(BASEPLUGIN_CMD_REGISTER_MENUITEM, {K::Record, 70}, maker<QAction>(), {}, [](Env& e, QObject* o) {
            return e.plugin->rightTopMenu()->orderedActions().contains(static_cast<QAction*>(o));
        });
        add(BASEPLUGIN_CMD_UNREGISTER_MENUITEM, {K::Record, 70}, maker<QAction>(),
            [](Env& e, QObject* o) { e.plugin->execCmd(BASEPLUGIN_CMD_REGISTER_MENUITEM, QVariant::fromValue(record(o, 70))); },
            [](Env& e, QObject*) { return e.plugin->rightTopMenu()->orderedActions().size() == 1; });
        add(BASEPLUGIN_CMD_REGISTER_SETTING, {K::Pointer}, maker<SettingItemWidget>("busSettingPage"),
            [](Env&, QObject*) { openSettings(); }, [](Env&, QObject*) { return settingPageShown("busSettingPage"); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_SETTING, {K::Pointer}, maker<SettingItemWidget>("busSettingPage"),
            [](Env&, QObject* o) { openSettings(); settings()->registerItem(static_cast<SettingItemWidget*>(o)); },
            [](Env&, QObject*) { return !settingPageShown("busSettingPage"); });
        add(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, {K::Record, 0, QPoint(3, 4)}, maker("statusA"), {},
            [home](Env& e, QObject* o) { return W(o)->parentWidget() == home(e)->dataArea() && W(o)->pos() == QPoint(3, 4); });
        add(BASEPLUGIN_CMD_REGISTERWIN2TITLE, {K::Record, 120, 1}, maker(), {},
            [](Env& e, QObject* o) { return W(o)->parentWidget() == titleRightArea(e); });
        add(BASEPLUGIN_CMD_UNREGISTER2TITLE, {K::Record, 120, 1}, maker(),
            [](Env& e, QObject* o) {
                e.plugin->titleBar()->registerWin(W(o), EBASETITLEBARDIR_RIGHT, static_cast<eBaseTitleBarObjPosID>(120));
            },
            [](Env&, QObject* o) { return !W(o)->parentWidget() && W(o)->isHidden(); });
        add(BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE, {K::Pointer}, maker<SettingSubItemWidget>(), {},
            [](Env& e, QObject* o) { return e.plugin->commonSetting()->items().contains(static_cast<SettingSubItemWidget*>(o)); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_BASESETTINGPAGE, {K::Pointer}, maker<SettingSubItemWidget>(),
            [](Env& e, QObject* o) { e.plugin->commonSetting()->registerItem(static_cast<SettingSubItemWidget*>(o)); },
            [](Env& e, QObject* o) { return !e.plugin->commonSetting()->items().contains(static_cast<SettingSubItemWidget*>(o)); });
        add(PLUGINMANAGE_CMDTYPE_INSTALL, {K::String, 0, QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)}, none, {},
            [](Env& e, QObject*) { return e.plugin->dataTimer()->isActive() && e.plugin->dataTimer()->interval() == 10000; });
        add(PLUGINMANAGE_CMDTYPE_UNSTALL, {K::String, 0, QStringLiteral(EPLUGIN_ID_UPGRADE)}, none,
            [](Env& e, QObject*) { e.fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE); e.scratch = upgradeItem(); },
            [](Env& e, QObject*) { TestPluginFixture::flushDeletes(); return e.scratch.isNull(); });
        add(BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP, {K::Pointer}, maker<SubMessageTipItemInterface>(), {},
            [](Env& e, QObject* o) { return e.plugin->messageTip()->stackedWidget()->indexOf(W(o)) >= 0; });
        add(BASEPLUGIN_CMDTYPE_DELITEM2MESSAGETIP, {K::Pointer}, maker<SubMessageTipItemInterface>(),
            [](Env& e, QObject* o) { e.plugin->messageTip()->registerItem(static_cast<SubMessageTipItemInterface*>(o)); },
            [](Env& e, QObject* o) { return e.plugin->messageTip()->stackedWidget()->indexOf(W(o)) < 0; });
        for (char const* hides : {BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY, EPLUGIN_ID_BASE_CMD_SILENT_STARTUP}) {
            add(hides, {}, none, [](Env& e, QObject*) { e.fixture->mainWindow()->show(); },
                [](Env& e, QObject*) { return !e.fixture->mainWindow()->isVisible(); });
        }
        add(EPLUGIN_ID_BASE_CMD_TMP_QUIT, {}, none,
            [](Env& e, QObject*) { e.spy.reset(new QSignalSpy(e.plugin, &BasePlugin::sig_updateQuitMode)); },
            [](Env& e, QObject*) { return e.spy->count() > 0 || e.spy->wait(5000); });
        add(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, {K::Record, 20}, maker(), [](Env& e, QObject*) { e.plugin->slot_about(); },
            [](Env& e, QObject* o) { return e.plugin->aboutWin() && e.plugin->aboutWin()->isAncestorOf(W(o)); });
        add(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, {K::Int, 20}, maker(),
            [](Env& e, QObject* o) { e.plugin->slot_about(); e.plugin->aboutWin()->registerItem(W(o), 20); },
            [](Env& e, QObject* o) { return !e.plugin->aboutWin()->isAncestorOf(W(o)); });
        add(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, {}, none, {},
            [](Env& e, QObject*) { return hasAboutEntry(e.plugin->rightTopMenu()); });
        add(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE, {}, none,
            [](Env& e, QObject*) { e.plugin->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant()); },
            [](Env& e, QObject*) { return !hasAboutEntry(e.plugin->rightTopMenu()); });
        Make const authItem = [] { return static_cast<QObject*>(new AuthMgritem(7)); };
        add(BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM, {K::Pointer}, authItem, {},
            [](Env& e, QObject* o) { return e.plugin->authMgr()->items().contains(static_cast<AuthMgritem*>(o)); });
        add(BASEPLUGIN_CMD_UNREGISTER_REALAUTH_TEM, {K::Int, 7}, authItem,
            [](Env& e, QObject* o) { e.plugin->authMgr()->registerItem(static_cast<AuthMgritem*>(o)); },
            [](Env& e, QObject*) { return e.plugin->authMgr()->items().isEmpty(); });
        add(EPLUGIN_ID_SETTINGCENTER_CMD_OPEN, {}, none,
            [](Env& e, QObject*) { openSettings(); settings()->window()->removeItem(e.plugin->commonSetting()->getBarName()); },
            [](Env&, QObject*) { return settingPageShown("CommonSetting"); });
    }

private slots:
    void command_data()
    {
        addColumns();
        addRows("", [](QString const&, BusCase const&) { return true; });
    }

    void init()
    {
        m_fixture.reset(new TestPluginFixture());
        m_env = Env();
        m_env.fixture = m_fixture.get();
        m_env.plugin = m_fixture->plugin();
    }

    void cleanup()
    {
        m_env.spy.reset();
        m_fixture.reset();
    }

    void command()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QPointer<QObject> object = bc.make();
        bc.arrange(m_env, object);
        if (bc.carries())
            QVERIFY2(!bc.reached(m_env, object), "effect present before the command");
        QVERIFY(!m_env.plugin->execCmd(cmd, bc.payload(object)).isValid());
        QVERIFY(bc.reached(m_env, object));
        delete object.data();
    }

    void command_wrongPayload_data() { command_data(); }

    // A payload of another type, or a null object, unpacks to a default value:
    // nothing is reached, except by the commands that carry no payload at all.
    void command_wrongPayload()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QPointer<QObject> object = bc.make();
        bc.arrange(m_env, object);
        for (QVariant const& payload :
             {QVariant(), QVariant(1.5), QVariant(QStringLiteral("junk")), QVariant::fromValue<QObject*>(object.data()),
              QVariant(QPoint(1, 2)), QVariant::fromValue<void*>(nullptr), QVariant::fromValue(sPluginRegisterItem())}) {
            QVERIFY(!m_env.plugin->execCmd(cmd, payload).isValid());
            if (bc.carries())
                QVERIFY2(!bc.reached(m_env, object), payload.typeName());
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
        addRows(" (registered)", [](QString const&, BusCase const& bc) { return bc.carries() && bc.pack.kind != Pack::String; }, true);
    }

    void command_deletedObject()
    {
        QFETCH(QString, cmd);
        QFETCH(BusCase, bc);
        QFETCH(bool, registeredFirst);
        QObject* object = bc.make();
        bc.arrange(m_env, object);
        QVariant const payload = bc.payload(object);
        if (registeredFirst)
            m_env.plugin->execCmd(cmd, payload);
        delete object;
        TestPluginFixture::flushDeletes();
        if (!senderVouches(cmd))
            QVERIFY(!m_env.plugin->execCmd(cmd, payload).isValid());
        QWidget* probe = new QWidget();
        for (char const* again : {BASEPLUGIN_CMD_REGISTER_HOMEPAGE, BASEPLUGIN_CMD_REGISTER_CARDAREA, BASEPLUGIN_CMD_REGISTER_TRAY,
                                  BASEPLUGIN_CMD_REGISTER_TRAY_GOODS, BASEPLUGIN_CMD_REGISTERWIN2TITLE}) {
            m_env.plugin->execCmd(again, QVariant::fromValue(record(probe, 77, 1)));
            m_env.plugin->execCmd(again, QVariant::fromValue(record(probe, 78, 1)));
        }
        m_env.plugin->execCmd(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, QVariant());
        m_env.plugin->authMgr()->updateIconStatus();
        QCOMPARE(probe->parentWidget(), titleRightArea(m_env));   // the frame still works
        delete probe;
        TestPluginFixture::flushDeletes();
    }

    // What installing another plugin sets off, by its id.
    void install_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<bool>("present");   // the plugin is loaded first
        QTest::addColumn<QString>("sent");   // "target|command", "" = nothing may be sent
        QTest::newRow("test plugin") << EPLUGIN_ID_TEST << true << EPLUGIN_ID_TEST "|" TESTPLUGIN_CMDTYPE_ADDITEM;
        QTest::newRow("test plugin absent") << EPLUGIN_ID_TEST << false << "";
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
        QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
        QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
        auto* closeRow = m_env.plugin->commonSetting()->findChild<SettingSubItemWidget*>();
        QVERIFY(closeRow);
        QSignalSpy reload(closeRow, SIGNAL(sig_updateInfo(__sSettingData)));

        m_env.plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(id));

        QStringList seen;
        for (QList<QVariant> const& args : qAsConst(sig1)) {
            if (args.at(1).toString() != QLatin1String(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA))
                seen << args.at(0).toString() + "|" + args.at(1).toString();
        }
        for (QList<QVariant> const& args : qAsConst(sig))
            seen << "|" + args.at(0).toString();
        if (sent.isEmpty())
            QVERIFY2(seen.isEmpty(), qPrintable(seen.join(", ")));
        else
            QCOMPARE(seen.count(sent), 1);
        QCOMPARE(m_env.plugin->dataTimer()->isActive(), id == QLatin1String(EPLUGIN_ID_BRIDGE_BASE));
        QCOMPARE(reload.count(), id == QLatin1String(EPLUGIN_ID_ACTIVEDEFENSE) ? 1 : 0);
        if (present && id == QLatin1String(EPLUGIN_ID_TEST))
            QCOMPARE(unwrap(sig1.first().at(2)).value<sPluginRegisterItem>().object->objectName(),
                     QStringLiteral("FileDistributionPluginAction"));
        if (present && id == QLatin1String(EPLUGIN_ID_UPGRADE))
            QCOMPARE(static_cast<QWidget*>(unwrap(sig1.first().at(2)).value<void*>()), upgradeItem().data());
    }

    // No guard against a second bridge install: the signals are connected twice
    // and the timer starts over.
    void installBridgeTwice()
    {
        QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
        QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
        for (int i = 0; i < 2; ++i)
            m_env.plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
        QCOMPARE(countArg(sig, 0, EPLUGIN_ID_BASE_CMD_INIT_CONNECT), 2);
        QVERIFY(m_env.plugin->dataTimer()->isActive());

        sig1.clear();
        emit BasePluginModelDataInterface::singleInstance()->sig_centerShow();
        QTRY_COMPARE(countArg(sig1, 1, EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW), 2);
        QCOMPARE(sig1.first().at(0).toString(), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN));
    }

    void unknownCommandChangesNothing_data()
    {
        QTest::addColumn<QString>("cmd");
        QTest::newRow("unknown") << "NO_SUCH_COMMAND";
        QTest::newRow("empty") << "";
        QTest::newRow("correctly spelt uninstall") << "PLUGINMANAGE_CMDTYPE_UNINSTALL";
        QTest::newRow("correctly spelt bottom") << "BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOTTOM_WIN";
        QTest::newRow("lower case") << "baseplugin_cmd_register_homepage";
        QTest::newRow("trailing blank") << "BASEPLUGIN_CMD_REGISTER_HOMEPAGE ";
    }

    void unknownCommandChangesNothing()
    {
        QFETCH(QString, cmd);
        m_fixture->addPresentPlugin(EPLUGIN_ID_UPGRADE);
        QPointer<QWidget> upgrade = upgradeItem();
        QVERIFY(upgrade);
        QWidget row;
        TestLogCapture log;
        QSignalSpy sig(m_env.plugin, &CQBasePlugin::sig);
        QSignalSpy sig1(m_env.plugin, &CQBasePlugin::sig1);
        for (QVariant const& payload :
             {QVariant(QStringLiteral(EPLUGIN_ID_UPGRADE)), QVariant::fromValue(record(&row, 25, 8)), QVariant()})
            QVERIFY(!m_env.plugin->execCmd(cmd, payload).isValid());
        TestPluginFixture::flushDeletes();
        QVERIFY(upgrade);
        QVERIFY(!m_env.plugin->homePage()->hasItem(25));
        QVERIFY(!row.parentWidget());
        QCOMPARE(sig.count() + sig1.count(), 0);
        QVERIFY2(log.lines().isEmpty(), qPrintable(log.lines().join('\n')));
    }

    void aboutRegistrationBeforeWindowIsDropped()
    {
        QWidget badge;
        auto const payload = QVariant::fromValue(record(&badge, 20));
        m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, payload);
        m_env.plugin->slot_about();
        QVERIFY(!m_env.plugin->aboutWin()->isAncestorOf(&badge));
        m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN, payload);
        QVERIFY(m_env.plugin->aboutWin()->isAncestorOf(&badge));
        m_env.plugin->execCmd(BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN, QVariant(20));
    }

    void navigateBottomWinNotAWidget()
    {
        QAction action(nullptr);
        int const children = m_env.plugin->bottomBar()->children().size();
        m_env.plugin->execCmd(BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN, QVariant::fromValue(record(&action, 0, QPoint(1, 1))));
        m_env.plugin->execCmd(BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN, QVariant::fromValue(record(&action, 0)));
        QVERIFY(!action.parent());
        QCOMPARE(m_env.plugin->bottomBar()->children().size(), children);
    }

    void titleRegistrationWithNullObject()
    {
        QWidget* area = titleRightArea(m_env);
        int const before = area->layout()->count();
        m_env.plugin->execCmd(BASEPLUGIN_CMD_REGISTERWIN2TITLE, QVariant::fromValue(record(nullptr, 120, 1)));
        m_env.plugin->execCmd(BASEPLUGIN_CMD_UNREGISTER2TITLE, QVariant::fromValue(record(nullptr, 300, 1)));
        QCOMPARE(area->layout()->count(), before);
        QVERIFY(area->findChild<QWidget*>(QStringLiteral("m_pBtnMin"))->isVisibleTo(area));
    }
};

QTEST_MAIN(TestBasePluginCmd)
#include "tst_basePluginCmd.moc"
