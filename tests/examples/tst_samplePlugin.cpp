// The sample plugin loaded next to the real base plugin through the plugin
// manager, as the host loads them from the build tree: every contribution
// lands in the container it was sent to, at the moment the frame collects it,
// and leaves it again when the sample is unloaded.

#include "cqbaseplugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "framelinkproxy.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"
#include "spluginregisteritem.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

QString const kBaseId = QStringLiteral("EPLUGIN_ID_BASE");
QString const kBridgeId = QStringLiteral("EPLUGIN_ID_BRIDGE_BASE");
QString const kSampleId = QStringLiteral("EPLUGIN_ID_SAMPLE");

QString module(char const* folder, char const* file)
{
    return QStringLiteral("%1/lib/%2/%3").arg(qEnvironmentVariable("QUORIX_ROOT"), folder, file);
}

// When the frame asks the plugins for a contribution.
enum class Moment { Install, RightTopMenu, AboutWindow, SettingsCentre, AuthPopup };

QWidget* widgetNamed(QString const& name)
{
    for (QWidget* w : QApplication::allWidgets()) {
        if (w->objectName() == name)
            return w;
    }
    return nullptr;
}

// Containers are matched by object name, or by class for the few that have none.
bool isContainer(QObject const* o, QString const& container)
{
    return o->objectName() == container || QLatin1String(o->metaObject()->className()) == container;
}

bool inside(QWidget const* w, QString const& container)
{
    for (QWidget const* p = w ? w->parentWidget() : nullptr; p; p = p->parentWidget()) {
        if (isContainer(p, container))
            return true;
    }
    return false;
}

// Menu entries are actions, held by the menu rather than parented to it.
bool inMenu(QString const& action, QString const& menuName)
{
    auto* menu = qobject_cast<QMenu*>(widgetNamed(menuName));
    if (!menu)
        return false;
    auto const actions = menu->actions();
    return std::any_of(actions.begin(), actions.end(), [&](QAction* a) { return a->objectName() == action; });
}

bool isMounted(QString const& contribution, QString const& container)
{
    return container == QLatin1String("m_pMenuRightTop") ? inMenu(contribution, container)
                                                         : inside(widgetNamed(contribution), container);
}

void flushDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void closeTopLevel(QString const& name)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name && w->isVisible())
            w->close();
    }
}

} // namespace

Q_DECLARE_METATYPE(Moment)

class TstSamplePlugin : public QObject
{
    Q_OBJECT

    QTemporaryDir m_config;
    QPointer<CQMainWindow> m_main;

    static CQPluginManager* manager() { return CQPluginManager::singleInstance(); }

    // Does what the frame does when it collects contributions, through the
    // base plugin's own entry points.
    void reach(Moment moment)
    {
        QObject* base = manager()->plugin(kBaseId);
        QVERIFY(base);
        switch (moment) {
        case Moment::Install:
            break;
        case Moment::RightTopMenu:
            QVERIFY(QMetaObject::invokeMethod(base, "slot_setting"));
            break;
        case Moment::AboutWindow:
            QVERIFY(QMetaObject::invokeMethod(base, "slot_about"));
            break;
        case Moment::SettingsCentre:
            QVERIFY(FrameLinkProxy::singleInstance()->gotoPageByObjName(QStringLiteral("SettingCentreWidget")));
            break;
        case Moment::AuthPopup: {
            QWidget* icon = widgetNamed(QStringLiteral("m_pLabelIcon"));
            QVERIFY(icon);
            QTest::mouseClick(icon, Qt::LeftButton, Qt::NoModifier, icon->rect().center());
            break;
        }
        }
    }

    void contributionTable()
    {
        QTest::addColumn<QString>("contribution");
        QTest::addColumn<QString>("container");
        QTest::addColumn<Moment>("moment");
        struct Row { char const* name; char const* contribution; char const* container; Moment moment; };
        Row const rows[] = {
            {"navigation page", "SampleNavigatePage", "m_pNavigateBackWin", Moment::Install},
            {"asset host page", "SampleAssetPage", "m_pNavigateBackWin", Moment::Install},
            {"asset cell A", "SampleAssetCellA", "AssetArea", Moment::Install},
            {"asset cell B", "SampleAssetCellB", "AssetArea", Moment::Install},
            {"asset right slot", "SampleAssetRightSlot", "m_pWinLeft", Moment::Install},
            {"bottom bar", "SampleBottomBarWidget", "m_pWidgetBottomBar", Moment::Install},
            {"title bar left", "SampleTitleBarLeft", "m_pLeftArea", Moment::Install},
            {"title bar right", "SampleTitleBarRight", "m_pRightArea", Moment::Install},
            {"home page row", "SampleHomePageRow", "HomePageWidget", Moment::Install},
            {"card", "SampleCardBlock", "CardsWin", Moment::Install},
            {"data area", "SampleDataAreaWidget", "m_pWinDataArea", Moment::Install},
            {"message tip A", "SampleMessagePanelA", "MessageTip", Moment::Install},
            {"message tip B", "SampleMessagePanelB", "MessageTip", Moment::Install},
            {"tray status row", "SampleTrayStatusRow", "MenuWidget", Moment::Install},
            {"tray action row", "SampleTrayActionRow", "MenuWidget", Moment::Install},
            {"goods tile A", "SampleGoodsTileA", "GoodsShelf", Moment::Install},
            {"goods tile B", "SampleGoodsTileB", "GoodsShelf", Moment::Install},
            {"auth item good", "SampleAuthItemGood", "ItemsWin", Moment::AuthPopup},
            {"auth item failed", "SampleAuthItemFailed", "ItemsWin", Moment::AuthPopup},
            {"right-top menu", "SampleMenuAction", "m_pMenuRightTop", Moment::RightTopMenu},
            {"about badge", "SampleAboutBadge", "MyStackedWins1", Moment::AboutWindow},
            {"settings page", "SampleSettingPage", "SettingCentreWidget", Moment::SettingsCentre},
            {"general settings row", "SampleGeneralSettingRow", "CommonSetting", Moment::SettingsCentre},
        };
        for (Row const& row : rows)
            QTest::newRow(row.name) << QString::fromLatin1(row.contribution) << QString::fromLatin1(row.container)
                                    << row.moment;
    }

private slots:
    void initTestCase()
    {
        if (!QFile::exists(module("plugins-dev", "libui_sample_plugin.so")))
            QSKIP("the sample plugin is not built");
        QVERIFY(m_config.isValid());
        qputenv("QUORIX_CONFIG_DIR", m_config.path().toUtf8());
        m_main = new CQMainWindow();
        m_main->resize(1000, 580);
        m_main->setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
        manager()->setHost(m_main);
        QVERIFY(manager()->loadPlugin(module("plugins-gui", "libui_base_plugin.so")));
        // Optional: without it the settings pages only lack their stored values.
        manager()->loadPlugin(module("plugins-gui", "libui_bridge_plugin.so"));
        m_main->show();
    }

    void cleanupTestCase()
    {
        manager()->unloadAll();
        flushDeletes();
        delete m_main.data();
        manager()->setHost(nullptr);
        CQPluginManager::UninitInstance(true);
        flushDeletes();
    }

    void init() { QVERIFY(manager()->loadPlugin(module("plugins-dev", "libui_sample_plugin.so"))); }

    void cleanup()
    {
        manager()->unloadPlugin(kSampleId);
        for (char const* name : {"m_pMenuRightTop", "CWinAbout", "SettingCentreWidget", "ItemsWin"})
            closeTopLevel(QString::fromLatin1(name));
        flushDeletes();
    }

    void mounted_data() { contributionTable(); }
    void mounted()
    {
        QFETCH(QString, contribution);
        QFETCH(QString, container);
        QFETCH(Moment, moment);
        reach(moment);
        QVERIFY2(isMounted(contribution, container), qPrintable(contribution + " not in " + container));
    }

    // Out of the frame as soon as the sample is unloaded (the asset cells
    // leave with the page that hosts them), and deleted once the event loop
    // turns.
    void removedOnUnload_data() { contributionTable(); }
    void removedOnUnload()
    {
        QFETCH(QString, contribution);
        QFETCH(QString, container);
        QFETCH(Moment, moment);
        reach(moment);
        QVERIFY(isMounted(contribution, container));
        QWidget* before = widgetNamed(contribution);
        QPointer<QWidget> frameWindow = before ? before->window() : nullptr;
        QVERIFY(manager()->unloadPlugin(kSampleId));
        QVERIFY(!inMenu(contribution, QStringLiteral("m_pMenuRightTop")));
        QWidget* w = widgetNamed(contribution);
        QVERIFY2(!w || w->window() != frameWindow, qPrintable(contribution + " still in its window"));
        flushDeletes();
        QVERIFY(!widgetNamed(contribution));
    }

    // Whatever the frame hands back (the asset strip lets go of what was
    // placed in it rather than delete it), the sample deletes.
    void leavesNoWidgetBehind()
    {
        for (Moment moment : {Moment::RightTopMenu, Moment::AboutWindow, Moment::SettingsCentre, Moment::AuthPopup})
            reach(moment);
        QVERIFY(manager()->unloadPlugin(kSampleId));
        flushDeletes();
        QStringList left;
        for (QWidget* w : QApplication::allWidgets()) {
            if (w->objectName().startsWith(QLatin1String("Sample")))
                left << w->objectName();
        }
        QVERIFY2(left.isEmpty(), qPrintable(left.join(QLatin1Char(' '))));
    }

    // Another plugin got the sample's key first: the sample's widget is
    // refused, and unloading the sample must not free the other one's key
    // (these containers free a key whoever holds it).
    void foreignKeyLeftAlone_data()
    {
        QTest::addColumn<QString>("cmd");
        QTest::addColumn<int>("key");
        QTest::addColumn<QVariant>("extra");
        QTest::addColumn<QString>("container");
        QTest::addColumn<Moment>("moment");
        QTest::newRow("home page row") << "BASEPLUGIN_CMD_REGISTER_HOMEPAGE" << 25 << QVariant(8) << "HomePageWidget"
                                       << Moment::Install;
        QTest::newRow("card") << "BASEPLUGIN_CMD_REGISTER_CARDAREA" << 500 << QVariant() << "CardsWin" << Moment::Install;
        QTest::newRow("title bar left") << "BASEPLUGIN_CMD_REGISTERWIN2TITLE" << 10 << QVariant(0) << "m_pLeftArea"
                                        << Moment::Install;
        QTest::newRow("title bar right") << "BASEPLUGIN_CMD_REGISTERWIN2TITLE" << 150 << QVariant(1) << "m_pRightArea"
                                         << Moment::Install;
        QTest::newRow("tray row") << "BASEPLUGIN_CMD_REGISTER_TRAY" << 100 << QVariant() << "MenuWidget" << Moment::Install;
        QTest::newRow("goods tile") << "BASEPLUGIN_CMD_REGISTER_TRAY_GOODS" << 10 << QVariant() << "GoodsShelf"
                                    << Moment::Install;
        QTest::newRow("about badge") << "BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN" << 20 << QVariant() << "MyStackedWins1"
                                     << Moment::AboutWindow;
    }
    void foreignKeyLeftAlone()
    {
        QFETCH(QString, cmd);
        QFETCH(int, key);
        QFETCH(QVariant, extra);
        QFETCH(QString, container);
        QFETCH(Moment, moment);
        QVERIFY(manager()->unloadPlugin(kSampleId));
        flushDeletes();
        reach(moment);
        QPointer<QLabel> foreign = new QLabel(QStringLiteral("foreign"));
        sPluginRegisterItem item;
        item.object = foreign;
        item.index = key;
        item.extra = extra;
        manager()->sendCmd(kBaseId, cmd, QVariant::fromValue(item));
        QVERIFY(inside(foreign, container));
        QVERIFY(manager()->loadPlugin(module("plugins-dev", "libui_sample_plugin.so")));
        reach(moment);
        QVERIFY(manager()->unloadPlugin(kSampleId));
        QVERIFY(inside(foreign, container));
        // Still holding the key: a newcomer under it is refused.
        QLabel probe;
        item.object = &probe;
        manager()->sendCmd(kBaseId, cmd, QVariant::fromValue(item));
        QVERIFY(!probe.parentWidget());
        delete foreign.data();
    }

    // Both menu entries bring up the sample page, which the frame finds by
    // name through its navigation.
    void entriesOpenTheSamplePage_data()
    {
        QTest::addColumn<Moment>("moment");
        QTest::addColumn<bool>("fromTray");
        QTest::newRow("right-top menu") << Moment::RightTopMenu << false;
        QTest::newRow("tray row") << Moment::Install << true;
    }
    void entriesOpenTheSamplePage()
    {
        QFETCH(Moment, moment);
        QFETCH(bool, fromTray);
        reach(moment);
        auto* navigation = widgetNamed(QStringLiteral("m_pNavigateBackWin"))->findChild<NavigateWidget*>();
        QVERIFY(navigation);
        m_main->hide();
        if (fromTray) {
            QWidget* row = widgetNamed(QStringLiteral("SampleTrayActionRow"));
            QVERIFY(row);
            QTest::mouseClick(row, Qt::LeftButton, Qt::NoModifier, row->rect().center());
        } else {
            auto* menu = qobject_cast<QMenu*>(widgetNamed(QStringLiteral("m_pMenuRightTop")));
            QVERIFY(menu);
            auto const actions = menu->actions();
            auto const it = std::find_if(actions.begin(), actions.end(), [](QAction* a) {
                return a->objectName() == QLatin1String("SampleMenuAction");
            });
            QVERIFY(it != actions.end());
            (*it)->trigger();
        }
        QVERIFY(m_main->isVisible());
        QVERIFY(navigation->currentItem());
        QCOMPARE(navigation->currentItem()->objectName(), QStringLiteral("SampleNavigatePage"));
        navigation->setCurrentIndex(0);
    }

    // The frame comes and goes under a sample that stays: its widgets are
    // not left in the dying frame, and a new frame gets them again.
    void remountsWhenTheBaseReturns()
    {
        QPointer<QWidget> row = widgetNamed(QStringLiteral("SampleHomePageRow"));
        QVERIFY(row && inside(row, QStringLiteral("HomePageWidget")));
        QVERIFY(manager()->unloadPlugin(kBaseId));
        flushDeletes();
        QVERIFY(row.isNull());
        QVERIFY(manager()->loadPlugin(module("plugins-gui", "libui_base_plugin.so")));
        QVERIFY(isMounted(QStringLiteral("SampleHomePageRow"), QStringLiteral("HomePageWidget")));
        QVERIFY(isMounted(QStringLiteral("SampleTitleBarRight"), QStringLiteral("m_pRightArea")));
        QVERIFY(isMounted(QStringLiteral("SampleAssetCellA"), QStringLiteral("AssetArea")));
    }
};

QTEST_MAIN(TstSamplePlugin)
#include "tst_samplePlugin.moc"
