// What the plugin makes of the bridge's events, of its 10-second data refresh
// and of its own frame: texts, broadcasts, windows and log lines.

#include "baseCmdDefine.h"
#include "basePlugin.h"
#include "basepluginmodeldatainterface.h"
#include "cqcloudbrainlabel.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"
#include "cardsWin.h"
#include "cqmenu.h"
#include "cqmenuitem.h"
#include "cWinAbout.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "menuWidget.h"
#include "messageTip.h"
#include "versionStatusCardWin.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"
#include "promotwin.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "testBackend.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"
#include "trayWidget.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

using Bridge = BasePluginModelDataInterface;

Bridge* bridge()
{
    return Bridge::singleInstance();
}

QVariant unwrap(QVariant const& v)
{
    return v.userType() == QMetaType::QVariant ? v.value<QVariant>() : v;
}

QString const kWeakSent = QStringLiteral("[BasePlugin] =========== notify check Weak passwd to backend");
QString const kWeakAck = QStringLiteral(
    "[BasePlugin] =========== backend receive weak passwd check, d->m_needWeakPassdCheck.store(0);");

} // namespace

class TestBasePluginEvents : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void frame();
    void trayRowsInOrder();
    void initWithoutMainWindow_data();
    void initWithoutMainWindow();
    void titleRecolouredByPage();
    void rightTopMenu();
    void aboutWindow();

    void clientVersion();
    void jump();
    void hide();
    void broadcasts_data();
    void broadcasts();
    void baseInfo();
    void protectDays_data();
    void protectDays();
    void deviceMgrPopup_data();
    void deviceMgrPopup();
    void noticeWin_data();
    void noticeWin();
    void noticeWinReusesOneWindow();

    void updateData();
    void weakPasswdAfterSilentStart_data();
    void weakPasswdAfterSilentStart();
    void homeFallbackFollowsAntivirus();

private:
    void bringUpBridge();
    int sent1(QString const& cmd) const;

    std::shared_ptr<TestBackend> m_backend;
    std::unique_ptr<TestPluginFixture> m_fixture;
    std::unique_ptr<QSignalSpy> m_sig1;
    BasePlugin* m_plugin = nullptr;
};

void TestBasePluginEvents::init()
{
    m_backend = TestBackend::install();
    m_fixture.reset(new TestPluginFixture());
    m_plugin = m_fixture->plugin();
    m_fixture->mainWindow()->show();
    m_sig1.reset(new QSignalSpy(m_plugin, &CQBasePlugin::sig1));
}

void TestBasePluginEvents::cleanup()
{
    m_sig1.reset();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (qobject_cast<PromotWin*>(w))
            w->close();
    }
    m_fixture.reset();
    TestBackend::restore();
    m_backend.reset();
}

void TestBasePluginEvents::bringUpBridge()
{
    m_plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
    // The bridge answers the refresh request queued; let those land first.
    QCoreApplication::processEvents();
}

int TestBasePluginEvents::sent1(QString const& cmd) const
{
    int n = 0;
    for (QList<QVariant> const& args : qAsConst(*m_sig1))
        n += args.at(1).toString() == cmd;
    return n;
}

// The host's main window gets the title bar and, as its body, the navigation
// background mounted under "NavigateWidget_MainWindow".
void TestBasePluginEvents::frame()
{
    CQMainWindow* main = m_fixture->mainWindow();
    QCOMPARE(main->titleWidget(), static_cast<QWidget*>(m_plugin->titleBar()));
    QVERIFY(main->bodyWidget());
    QCOMPARE(main->bodyWidget()->objectName(), QStringLiteral("m_pNavigateBackWin"));
    QCOMPARE(main->bodyWidget()->styleSheet(),
             QStringLiteral("background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #DCEAFF, stop:1 #EBF3FF);"));
    QCOMPARE(m_plugin->titleBar()->styleSheet(), QStringLiteral("#MainWinTitleBar{background:#DAE9FF}"));
    QCOMPARE(m_plugin->navigateWidget()->currentItem(), static_cast<NavigateItemWidget*>(m_plugin->homePage()));

    QWidget* bar = m_plugin->bottomBar();
    QCOMPARE(bar->objectName(), QStringLiteral("m_pWidgetBottomBar"));
    QCOMPARE(bar->size(), QSize(m_plugin->navigateWidget()->bottomArea()->width() - 2, 42));
    QCOMPARE(bar->parentWidget(), m_plugin->navigateWidget()->bottomArea());
    auto* version = bar->findChild<CQLabel*>(QStringLiteral("m_pLabelVersion"));
    QVERIFY(version);
    QCOMPARE(version->pos(), QPoint(19, 13));
    QCOMPARE(version->text(), QStringLiteral("--"));

    QVERIFY(m_plugin->messageTip());
    QCOMPARE(m_plugin->messageTip()->parentWidget(), static_cast<QWidget*>(m_plugin->homePage()));
    QCOMPARE(m_plugin->messageTip()->pos(), QPoint(40, 328));
    QVERIFY(m_plugin->versionStatusCard());
    QCOMPARE(m_plugin->homePage()->cardsWin()->item(1000), static_cast<QWidget*>(m_plugin->versionStatusCard()));
}

// Rows the plugin puts into the tray menu, through the bus, at the end of init.
void TestBasePluginEvents::trayRowsInOrder()
{
    QList<QWidget*> const rows = TrayWidget::singleInstance()->menu()->items();
    QCOMPARE(rows.size(), 5);
    QCOMPARE(rows.at(0)->height(), 32);
    QVERIFY(rows.at(0)->findChild<QWidget*>(QStringLiteral("CQLogoTitle")));
    QCOMPARE(rows.at(1)->objectName(), QStringLiteral("pLabelHint"));
    QCOMPARE(rows.at(1)->height(), 48);
    QCOMPARE(rows.at(2), static_cast<QWidget*>(m_plugin->goodsShelf()));
    QCOMPARE(qobject_cast<CQMenuItem*>(rows.at(3))->text(), QString::fromUtf8("设置"));
    QCOMPARE(qobject_cast<CQMenuItem*>(rows.at(4))->text(), QString::fromUtf8("退出"));
    QCOMPARE(static_cast<QLabel*>(rows.at(1))->text(),
             QString::fromUtf8("已保护您的电脑 <font color=#356DEE>0 </font> 天"));
}

void TestBasePluginEvents::initWithoutMainWindow_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("invalid variant") << 0;
    QTest::newRow("not a widget") << 1;
    QTest::newRow("null object") << 2;
    QTest::newRow("a string") << 3;
}

// The frame is built and usable without a window to put it in.
void TestBasePluginEvents::initWithoutMainWindow()
{
    QFETCH(int, kind);
    m_fixture.reset();
    TestLogCapture log;
    QObject notAWidget;
    QVariant const host = kind == 0 ? QVariant()
                        : kind == 1 ? QVariant::fromValue<QObject*>(&notAWidget)
                        : kind == 2 ? QVariant::fromValue<QObject*>(nullptr)
                                    : QVariant(QStringLiteral("main"));
    auto* plugin = new BasePlugin();
    QCOMPARE(plugin->init(host), 0);
    QCOMPARE(log.count(QStringLiteral("[BasePlugin] main window is null, the frame is built without it")), 1);
    QVERIFY(plugin->navigateWidget());
    QVERIFY(plugin->titleBar());
    plugin->execCmd(BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY, QVariant());
    plugin->slot_minimize();
    plugin->slot_mainFrameAutoStart();
    plugin->slot_noticeWin(_sNoticeWinInfo_());
    delete plugin;
    TestPluginFixture::flushDeletes();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (qobject_cast<PromotWin*>(w))
            w->close();
    }
    m_fixture.reset(new TestPluginFixture());
}

void TestBasePluginEvents::titleRecolouredByPage()
{
    auto* page = new NavigateItemWidget();
    page->setObjectName(QStringLiteral("otherPage"));
    m_plugin->execCmd(BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM, QVariant::fromValue<void*>(page));
    auto* logoBackground = m_plugin->titleBar()->findChild<QWidget*>(QStringLiteral("m_pLogoTitleBackground"));
    QVERIFY(m_plugin->navigateWidget()->setCurrentItem(page));
    QCOMPARE(m_plugin->titleBar()->styleSheet(), QStringLiteral("#MainWinTitleBar{background:#EBF3FF}"));
    QCOMPARE(logoBackground->styleSheet(), QStringLiteral("#m_pLogoTitleBackground{background:#DAE9FF}"));
    QVERIFY(m_plugin->navigateWidget()->setCurrentItem(m_plugin->homePage()));
    QCOMPARE(m_plugin->titleBar()->styleSheet(), QStringLiteral("#MainWinTitleBar{background:#DAE9FF}"));
    QCOMPARE(logoBackground->styleSheet(), QStringLiteral("#m_pLogoTitleBackground{background:#DAE9FF}"));
    delete page;
}

// The menu button first asks every plugin for its entries, then pops up.
void TestBasePluginEvents::rightTopMenu()
{
    CQMenu* menu = m_plugin->rightTopMenu();
    QCOMPARE(menu->orderedActions().size(), 1);   // "设置", registered at init
    emit m_plugin->titleBar()->sig_setting();
    QCOMPARE(sent1(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW), 1);
    for (QList<QVariant> const& args : qAsConst(*m_sig1)) {
        if (args.at(1).toString() != QLatin1String(EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW))
            continue;
        QCOMPARE(args.at(0).toString(), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN));
        QVERIFY(!unwrap(args.at(2)).isValid());
    }
    QVERIFY(menu->isVisible());
    QCOMPARE(menu->orderedActions().size(), 2);   // the about entry came through the bus at 40
    menu->hide();

    // "设置" opens the settings centre.
    menu->orderedActions().first()->trigger();
    QTRY_VERIFY(CSettingCenterWidgetMgr::singleInstance()->window()
                && CSettingCenterWidgetMgr::singleInstance()->window()->isVisible());
    CSettingCenterWidgetMgr::singleInstance()->window()->hide();
}

void TestBasePluginEvents::aboutWindow()
{
    QVERIFY(!m_plugin->aboutWin());
    m_plugin->slot_about();
    QCOMPARE(sent1(EPLUGIN_ID_BASE_CMD_ABOUTWIN_SHOW), 1);
    QVERIFY(m_plugin->aboutWin());
    QVERIFY(m_plugin->aboutWin()->isVisible());
    QPointer<QWidget> about = m_plugin->aboutWin();
    about->close();
    TestPluginFixture::flushDeletes();
    QVERIFY(!m_plugin->aboutWin());
    m_plugin->slot_about();
    QVERIFY(m_plugin->aboutWin());
}

void TestBasePluginEvents::clientVersion()
{
    bringUpBridge();
    auto* label = m_plugin->bottomBar()->findChild<CQLabel*>(QStringLiteral("m_pLabelVersion"));
    QString first, second, third;
    bridge()->myVersion2QuorixVersion(QStringLiteral("10.0.0.7550"), first, second, third);
    QString const expected = bridge()->quorixVersionDisplayText(first, second, third);
    QVERIFY(!expected.isEmpty());
    emit bridge()->sig_setClientVersionInfo(QStringLiteral("10.0.0.7550"));
    QTRY_VERIFY(label->text() == expected || label->toolTip() == expected);
}

void TestBasePluginEvents::jump()
{
    bringUpBridge();
    emit bridge()->sig_Jump(QStringLiteral("SettingCentreWidget"));
    QTRY_VERIFY(CSettingCenterWidgetMgr::singleInstance()->window()
                && CSettingCenterWidgetMgr::singleInstance()->window()->isVisible());
    CSettingCenterWidgetMgr::singleInstance()->window()->hide();
}

void TestBasePluginEvents::hide()
{
    bringUpBridge();
    emit bridge()->sig_hide();
    QTRY_VERIFY(!m_fixture->mainWindow()->isVisible());
}

void TestBasePluginEvents::broadcasts_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("cmd");
    QTest::newRow("centre show") << 0 << EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW;
    QTest::newRow("tray pop show") << 1 << EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_SHOW;
    QTest::newRow("tray pop hide") << 2 << EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_CLOSE;
}

void TestBasePluginEvents::broadcasts()
{
    QFETCH(int, which);
    QFETCH(QString, cmd);
    bringUpBridge();
    m_sig1->clear();
    if (which == 0)
        emit bridge()->sig_centerShow();
    else if (which == 1)
        emit bridge()->sig_trayPopShow();
    else
        emit bridge()->sig_trayPopHide();
    QTRY_COMPARE(sent1(cmd), 1);
    for (QList<QVariant> const& args : qAsConst(*m_sig1)) {
        if (args.at(1).toString() == cmd) {
            QCOMPARE(args.at(0).toString(), QStringLiteral(EPLUGIN_ID_ALL_PLUGIN));
            QVERIFY(!unwrap(args.at(2)).isValid());
        }
    }
    QVERIFY(m_fixture->mainWindow()->isVisible());
}

void TestBasePluginEvents::baseInfo()
{
    bringUpBridge();
    auto* days = m_plugin->homePage()->dataArea()->findChild<CQLabelMultiFontSize*>(QStringLiteral("CumulativeGuardDays"));
    QVERIFY(days);
    __sBaseModuleBaseInfo info;
    info.value = (quint64(3) << 32) | 25u;
    emit bridge()->sig_base_info(info);
    auto* counter = m_plugin->titleBar()->findChild<CQCloudBrainLabel*>();
    QTRY_COMPARE(counter->days(), 25);
    QCOMPARE(days->pieceText(0), QString::fromUtf8("已累计陪伴"));
    QCOMPARE(days->pieceText(1), QString::number(info.value));
    QCOMPARE(days->pieceText(2), QString::fromUtf8("天"));
}

void TestBasePluginEvents::protectDays_data()
{
    QTest::addColumn<uint>("days");
    QTest::addColumn<QString>("number");
    QTest::newRow("0") << 0u << "0";
    QTest::newRow("365") << 365u << "365";
    QTest::newRow("largest") << 4294967295u << "4294967295";
}

void TestBasePluginEvents::protectDays()
{
    QFETCH(uint, days);
    QFETCH(QString, number);
    bringUpBridge();
    emit bridge()->sig_CumulativeGuardDays(days);
    QString const expected = QString::fromUtf8("已保护您的电脑 <font color=#356DEE>%1 </font> 天").arg(number);
    QTRY_COMPARE(m_plugin->trayHintLabel()->text(), expected);
}

// A device pop-up needs a window title and a title or content; a missing
// button text and a zero time get their defaults.
void TestBasePluginEvents::deviceMgrPopup_data()
{
    QTest::addColumn<QString>("winTitle");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("btnText");
    QTest::addColumn<int>("time");
    QTest::addColumn<QStringList>("logged");
    QString const received = "[BasePlugin] receive devicesmgr gui popup msg";
    QTest::newRow("complete") << "USB" << "Blocked" << "A USB disk was blocked" << "OK" << 10 << QStringList{received};
    QTest::newRow("defaults filled") << "USB" << "Blocked" << "" << "" << 0
                                     << QStringList{received, "[BasePlugin] btnText is empty, use default text",
                                                    "[BasePlugin] time is 0, use default time"};
    QTest::newRow("content only") << "USB" << "" << "A disk" << "OK" << -1 << QStringList{received};
    QTest::newRow("only winTitle") << "USB" << "" << "" << "" << 0
                                   << QStringList{received, "[BasePlugin] title and content are empty, not popup"};
    QTest::newRow("no winTitle") << "" << "Blocked" << "A disk" << "" << 0
                                 << QStringList{received, "[BasePlugin] winTitle is empty, not popup"};
}

void TestBasePluginEvents::deviceMgrPopup()
{
    QFETCH(QString, winTitle);
    QFETCH(QString, title);
    QFETCH(QString, content);
    QFETCH(QString, btnText);
    QFETCH(int, time);
    QFETCH(QStringList, logged);
    bringUpBridge();
    TestLogCapture log;
    __sDeviceMgrPopup info;
    info.winTitle = winTitle;
    info.title = title;
    info.content = content;
    info.btnText = btnText;
    info.time = time;
    emit bridge()->sig_device_mgr_msg(info);
    QTRY_COMPARE(log.count(logged.first()), 1);
    QStringList all = log.lines().filter(QStringLiteral("[BasePlugin] "));
    QCOMPARE(all.size(), logged.size());
    for (int i = 0; i < logged.size(); ++i)
        QVERIFY2(all.at(i).endsWith(logged.at(i)), qPrintable(all.at(i)));
    // The receipt is information, the rejections and substitutions warnings.
    QVERIFY(all.first().contains(QStringLiteral(" INFO ")));
    for (int i = 1; i < all.size(); ++i)
        QVERIFY2(all.at(i).contains(QStringLiteral(" WARN")), qPrintable(all.at(i)));
}

// Notice types map to prompt kinds with 1 and 2 swapped; the four texts go in order.
void TestBasePluginEvents::noticeWin_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("kind");
    QTest::newRow("0 -> 1") << 0 << 1;
    QTest::newRow("1 -> 3") << 1 << 3;
    QTest::newRow("2 -> 2") << 2 << 2;
    QTest::newRow("3 -> 4") << 3 << 4;
    QTest::newRow("4 -> 5") << 4 << 5;
    QTest::newRow("out of range -> 1") << 9 << 1;
    QTest::newRow("negative -> 1") << -1 << 1;
}

void TestBasePluginEvents::noticeWin()
{
    QFETCH(int, type);
    QFETCH(int, kind);
    bringUpBridge();
    _sNoticeWinInfo_ info;
    info.noticeType = type;
    info.text1 = QStringLiteral("T1");
    info.text2 = QStringLiteral("T2");
    info.text3 = QStringLiteral("T3");
    info.text4 = QStringLiteral("T4");
    emit bridge()->sig_noticeWin(info);
    PromotWin* prompt = nullptr;
    QTRY_VERIFY((prompt = m_fixture->mainWindow()->findChild<PromotWin*>()) != nullptr);
    QVERIFY(prompt->isVisible());
    PromotWin::sInfo const paras = prompt->paras();
    QCOMPARE(paras.width, -1);
    QCOMPARE(paras.modal, 0);
    QCOMPARE(paras.kind, kind);
    QCOMPARE(paras.title, QStringLiteral("T1"));
    QCOMPARE(paras.text, QStringLiteral("T2"));
    QCOMPARE(paras.subText, QStringLiteral("T3"));
    QCOMPARE(paras.detail, QStringLiteral("T4"));
    QCOMPARE(paras.countDown.seconds, -1);
    QVERIFY(paras.leftBtnText.isEmpty());
    QCOMPARE(paras.rightBtnText, QString::fromUtf8("知道了"));
    QCOMPARE(paras.rightBtnKind, 0);
    QCOMPARE(sent1(EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN), 0);
}

void TestBasePluginEvents::noticeWinReusesOneWindow()
{
    _sNoticeWinInfo_ info;
    info.text2 = QStringLiteral("first");
    m_plugin->slot_noticeWin(info);
    info.text2 = QStringLiteral("second");
    m_plugin->slot_noticeWin(info);
    QList<PromotWin*> prompts = m_fixture->mainWindow()->findChildren<PromotWin*>();
    QCOMPARE(prompts.size(), 1);
    QCOMPARE(prompts.first()->paras().text, QStringLiteral("second"));
    prompts.first()->rightButton()->click();
    TestPluginFixture::flushDeletes();
    m_plugin->slot_noticeWin(info);
    QCOMPARE(m_fixture->mainWindow()->findChildren<PromotWin*>().size(), 1);
}

// One tick: refresh request, the readiness query off the GUI thread, the tray
// icon kept present.
void TestBasePluginEvents::updateData()
{
    QSignalSpy days(bridge(), &Bridge::sig_CumulativeGuardDays);
    m_plugin->slot_update_data();
    QTRY_VERIFY(m_backend->readyThread() != nullptr);
    QVERIFY(m_backend->readyThread() != QThread::currentThread());
    QTRY_VERIFY(days.count() >= 1);
    QVERIFY(TrayWidget::singleInstance()->trayIcon());
    QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), 0);
}

// After a silent start the weak-password check is asked on the tick after the
// flag is armed, and again on every tick until the backend acknowledges.
void TestBasePluginEvents::weakPasswdAfterSilentStart_data()
{
    QTest::addColumn<bool>("acknowledged");
    QTest::newRow("acknowledged") << true;
    QTest::newRow("never acknowledged") << false;
}

void TestBasePluginEvents::weakPasswdAfterSilentStart()
{
    QFETCH(bool, acknowledged);
    m_backend->acceptWeakPasswdCheck.storeRelaxed(acknowledged ? 1 : 0);
    bringUpBridge();
    TestLogCapture log;
    m_plugin->execCmd(EPLUGIN_ID_BASE_CMD_SILENT_STARTUP, QVariant());
    QVERIFY(!m_fixture->mainWindow()->isVisible());

    m_plugin->slot_update_data();   // arms the flag
    QCOMPARE(log.count(kWeakSent), 0);
    m_plugin->slot_update_data();   // asks
    QCOMPARE(log.count(kWeakSent), 1);
    QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), 1);
    if (acknowledged)
        QTRY_COMPARE(log.count(kWeakAck), 1);
    else
        QCoreApplication::processEvents();
    m_plugin->slot_update_data();
    m_plugin->slot_update_data();
    QCOMPARE(log.count(kWeakSent), acknowledged ? 1 : 3);
    QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), acknowledged ? 1 : 3);
}

void TestBasePluginEvents::homeFallbackFollowsAntivirus()
{
    HomePageWidget* home = m_plugin->homePage();
    m_plugin->slot_update_data();
    QPointer<QWidget> days = home->dataArea()->findChild<QWidget*>(QStringLiteral("CumulativeGuardDays"));
    QVERIFY(days);
    QCOMPARE(days->pos(), QPoint(0, 14));
    QCOMPARE(home->titleLabel()->text(), QString::fromUtf8("Quorix终端安全管理系统"));
    m_plugin->slot_update_data();
    QCOMPARE(home->dataArea()->findChildren<QWidget*>(QStringLiteral("CumulativeGuardDays")).size(), 1);

    m_fixture->addPresentPlugin(EPLUGIN_ID_STANDARDAV);
    m_plugin->slot_update_data();
    QCOMPARE(home->titleLabel()->text(), QString::fromUtf8("安全守护每一刻"));
    TestPluginFixture::flushDeletes();
    QVERIFY(days.isNull());
    __sBaseModuleBaseInfo info;
    m_plugin->slot_base_info(info);   // no label: nothing to fill
}

QTEST_MAIN(TestBasePluginEvents)
#include "tst_basePluginEvents.moc"
