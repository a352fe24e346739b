// What the plugin makes of the bridge's events and of its 10-second data
// refresh: texts, broadcasts, windows and log lines.

#include "baseCmdDefine.h"
#include "bootWin.h"
#include "devicePopWin.h"
#include "msgmgrwininterface.h"
#include "uniNoticeMsg.h"
#include "basepluginmodeldatainterface.h"
#include "cWinAbout.h"
#include "cqcloudbrainlabel.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"
#include "cqmenu.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "promotwin.h"
#include "prompttitlewin.h"
#include "cqbutton.h"
#include "settingCentreWidget.h"
#include "settingCentreWidgetMgr.h"
#include "testBackend.h"
#include "testLogCapture.h"
#include "testPluginFixture.h"

#include <QLabel>
#include <QUuid>
#include <QtTest>

#include <memory>

namespace {

BasePluginModelDataInterface* bridge()
{
    return BasePluginModelDataInterface::singleInstance();
}

void closePrompts()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (qobject_cast<PromotWin*>(w) || qobject_cast<MsgMgrWinInterface*>(w))
            w->close();
    }
    TestPluginFixture::flushDeletes();
}

template <typename T>
int liveWindows()
{
    int n = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        n += qobject_cast<T*>(w) != nullptr;
    return n;
}

// The windows handed to the message manager, in order (some may be gone
// since: compared, never dereferenced here).
QList<MsgMgrWinInterface*> registered(QSignalSpy const& sig1)
{
    QList<MsgMgrWinInterface*> out;
    for (QList<QVariant> const& args : sig1) {
        if (args.at(0).toString() == QLatin1String(EPLUGIN_ID_MSGMGR)
            && args.at(1).toString() == QLatin1String(EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN)) {
            sMsgMgrWinInfo const info = unwrap(args.at(2)).value<sMsgMgrWinInfo>();
            if (info.ownerPluginId == QLatin1String(EPLUGIN_ID_BASE) && info.priority == 10 && !info.winId.isEmpty())
                out << info.window;
        }
    }
    return out;
}

bool settingsCentreShown()
{
    SettingCentreWidget* w = CSettingCenterWidgetMgr::singleInstance()->window();
    return w && w->isVisible();
}

} // namespace

class TestBasePluginEvents : public QObject
{
    Q_OBJECT

    std::shared_ptr<TestBackend> m_backend;
    std::unique_ptr<TestPluginFixture> m_fixture;
    std::unique_ptr<QSignalSpy> m_sig1;
    BasePlugin* m_plugin = nullptr;

    void bringUpBridge()
    {
        m_plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral(EPLUGIN_ID_BRIDGE_BASE)));
        // The bridge answers the refresh request queued; let those land first.
        QCoreApplication::processEvents();
        m_sig1->clear();
    }

private slots:
    void init()
    {
        m_backend = TestBackend::install();
        m_fixture.reset(new TestPluginFixture());
        m_plugin = m_fixture->plugin();
        m_fixture->mainWindow()->show();
        m_sig1.reset(new QSignalSpy(m_plugin, &CQBasePlugin::sig1));
    }

    void cleanup()
    {
        m_sig1.reset();
        closePrompts();
        m_fixture.reset();
        TestBackend::restore();
    }

    void initWithoutMainWindow_data()
    {
        static QObject notAWidget;
        QTest::addColumn<QVariant>("host");
        QTest::newRow("invalid variant") << QVariant();
        QTest::newRow("not a widget") << QVariant::fromValue<QObject*>(&notAWidget);
        QTest::newRow("null object") << QVariant::fromValue<QObject*>(nullptr);
    }
    // The frame is built and usable without a window to put it in.
    void initWithoutMainWindow()
    {
        QFETCH(QVariant, host);
        m_fixture.reset();
        TestLogCapture log;
        auto* plugin = new BasePlugin();
        QCOMPARE(plugin->init(host), 0);
        QCOMPARE(log.count(QStringLiteral("[BasePlugin] main window is null, the frame is built without it")), 1);
        QVERIFY(plugin->navigateWidget() && plugin->titleBar());
        plugin->execCmd(BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY, QVariant());
        plugin->slot_minimize();
        plugin->slot_mainFrameAutoStart();
        plugin->slot_noticeWin(_sNoticeWinInfo_());
        delete plugin;
        TestPluginFixture::flushDeletes();
        closePrompts();
        m_fixture.reset(new TestPluginFixture());
    }

    // The menu button first asks every plugin for its entries, then pops up;
    // the about window is made anew after each close.
    void rightTopMenuAndAbout()
    {
        emit m_plugin->titleBar()->sig_setting();
        QCOMPARE(countArg(*m_sig1, 1, EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW, EPLUGIN_ID_ALL_PLUGIN), 1);
        QVERIFY(m_plugin->rightTopMenu()->isVisible());
        QCOMPARE(m_plugin->rightTopMenu()->orderedActions().size(), 2);   // "设置" and the about entry
        m_plugin->rightTopMenu()->hide();
        m_plugin->slot_about();
        QCOMPARE(countArg(*m_sig1, 1, EPLUGIN_ID_BASE_CMD_ABOUTWIN_SHOW), 1);
        m_plugin->aboutWin()->close();
        TestPluginFixture::flushDeletes();
        QVERIFY(!m_plugin->aboutWin());
        m_plugin->slot_about();
        QVERIFY(m_plugin->aboutWin()->isVisible());
    }

    void broadcasts_data()
    {
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QString>("cmd");   // re-sent to every plugin, "" = none
        QTest::addColumn<bool>("mainVisible");
        QTest::newRow("centre show") << QByteArray("sig_centerShow") << EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW << true;
        QTest::newRow("tray pop show") << QByteArray("sig_trayPopShow") << EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_SHOW << true;
        QTest::newRow("tray pop hide") << QByteArray("sig_trayPopHide") << EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_CLOSE << true;
        QTest::newRow("hide") << QByteArray("sig_hide") << "" << false;
    }
    void broadcasts()
    {
        QFETCH(QByteArray, signal);
        QFETCH(QString, cmd);
        QFETCH(bool, mainVisible);
        bringUpBridge();
        QVERIFY(QMetaObject::invokeMethod(bridge(), signal.constData()));
        QTRY_COMPARE(m_fixture->mainWindow()->isVisible(), mainVisible);
        QTRY_COMPARE(countArg(*m_sig1, 1, cmd, EPLUGIN_ID_ALL_PLUGIN), cmd.isEmpty() ? 0 : 1);
    }

    void jump()
    {
        bringUpBridge();
        emit bridge()->sig_Jump(QStringLiteral("SettingCentreWidget"));
        QTRY_VERIFY(settingsCentreShown());
    }

    // The title-bar counter takes the low word; the home page shows the whole
    // value; the tray hint any day count.
    void baseInfoAndProtectDays()
    {
        bringUpBridge();
        auto* days = m_plugin->homePage()->dataArea()->findChild<CQLabelMultiFontSize*>(QStringLiteral("CumulativeGuardDays"));
        __sBaseModuleBaseInfo info;
        info.value = (quint64(3) << 32) | 25u;
        emit bridge()->sig_base_info(info);
        QTRY_COMPARE(m_plugin->titleBar()->findChild<CQCloudBrainLabel*>()->days(), 25);
        QCOMPARE(days->pieceText(1), QString::number(info.value));
        for (uint n : {0u, 4294967295u}) {
            emit bridge()->sig_CumulativeGuardDays(n);
            QTRY_COMPARE(m_plugin->trayHintLabel()->text(), QString::fromUtf8("已保护您的电脑 <font color=#356DEE>%1 </font> 天").arg(n));
        }
    }

    // A device pop-up needs a window title and a title or content; a missing
    // button text and a zero time get their defaults. Rejections and
    // substitutions are warnings.
    void deviceMgrPopup_data()
    {
        QTest::addColumn<QStringList>("fields");   // winTitle, title, content, btnText, time
        QTest::addColumn<QStringList>("warned");
        QTest::newRow("complete") << QStringList{"USB", "Blocked", "A disk", "OK", "10"} << QStringList();
        QTest::newRow("defaults filled") << QStringList{"USB", "Blocked", "", "", "0"}
                                         << QStringList{"[BasePlugin] btnText is empty, use default text",
                                                        "[BasePlugin] time is 0, use default time"};
        QTest::newRow("content only") << QStringList{"USB", "", "A disk", "OK", "-1"} << QStringList();
        QTest::newRow("only winTitle") << QStringList{"USB", "", "", "", "0"}
                                       << QStringList{"[BasePlugin] title and content are empty, not popup"};
        QTest::newRow("no winTitle") << QStringList{"", "Blocked", "A disk", "", "0"}
                                     << QStringList{"[BasePlugin] winTitle is empty, not popup"};
    }
    void deviceMgrPopup()
    {
        QFETCH(QStringList, fields);
        QFETCH(QStringList, warned);
        bringUpBridge();
        TestLogCapture log;
        emit bridge()->sig_device_mgr_msg(
            __sDeviceMgrPopup{fields.at(0), fields.at(1), fields.at(2), fields.at(3), fields.at(4).toInt(), {}});
        QTRY_COMPARE(log.count(QStringLiteral("[BasePlugin] receive devicesmgr gui popup msg")), 1);
        QStringList const all = log.lines().filter(QStringLiteral("[BasePlugin] "));
        QCOMPARE(all.size(), warned.size() + 1);
        for (int i = 0; i < warned.size(); ++i)
            QVERIFY2(all.at(i + 1).endsWith(warned.at(i)) && all.at(i + 1).contains(" WARN"), qPrintable(all.at(i + 1)));
        bool const shown = warned.filter(QStringLiteral("not popup")).isEmpty();
        QList<DevicePopWin*> const windows = openWindows<DevicePopWin>();
        QCOMPARE(windows.size(), shown ? 1 : 0);
        QCOMPARE(registered(*m_sig1).size(), shown ? 1 : 0);
        if (!shown)
            return;
        QCOMPARE(registered(*m_sig1).first(), windows.first());
        auto* button = windows.first()->findChild<CQButton*>(QStringLiteral("m_pBtnMain"));
        QCOMPARE(button->plainText(), fields.at(3).isEmpty() ? QString::fromUtf8("知道了") : fields.at(3));
        QCOMPARE(button->isCounting(), fields.at(4).toInt() > 0);
    }

    // One window per notice id, updated in place and registered again; an
    // empty id is a new notice every time; a closed notice's id is free again.
    void uniNotices_data()
    {
        QTest::addColumn<QStringList>("ids");        // one notice per entry; "close" closes every notice
        QTest::addColumn<int>("windowsCreated");
        QTest::addColumn<int>("registrations");
        QTest::newRow("same id twice") << QStringList{"a", "a"} << 1 << 2;
        QTest::newRow("two ids") << QStringList{"a", "b"} << 2 << 2;
        QTest::newRow("empty ids") << QStringList{"", ""} << 2 << 2;
        QTest::newRow("same id after close") << QStringList{"a", "close", "a"} << 2 << 2;
    }
    void uniNotices()
    {
        QFETCH(QStringList, ids);
        QFETCH(int, windowsCreated);
        QFETCH(int, registrations);
        bringUpBridge();
        QSet<MsgMgrWinInterface*> seen;
        int sent = 0;
        for (QString const& id : ids) {
            if (id == QLatin1String("close")) {
                closePrompts();
                continue;
            }
            __sUniNoticeMsgInfo info;
            info.id = id;
            info.text2 = QStringLiteral("notice %1").arg(++sent);
            info.number1 = 0;
            emit bridge()->sig_UniNotifyMsg(info);
            QTRY_COMPARE(int(registered(*m_sig1).size()), sent);
            MsgMgrWinInterface* last = registered(*m_sig1).last();
            QVERIFY(liveWindows<UniNoticeMsg>() > 0 && QApplication::topLevelWidgets().contains(last));
            seen << last;
            QCOMPARE(last->findChild<PromptTitleWin*>()->title(), info.text2);
            if (!id.isEmpty())
                QCOMPARE(last->id(), id);
            else
                QVERIFY(!QUuid::fromString(last->id()).isNull());
        }
        QCOMPARE(seen.size(), windowsCreated);
        QCOMPARE(registered(*m_sig1).size(), registrations);
    }

    // One order window, reused: a second order changes its method and
    // count-down. The answer goes to the backend as a shutdown (0, 1) or a
    // restart (2); anything else is refused.
    void shutdownRebootOrders_data()
    {
        QTest::addColumn<int>("method");
        QTest::addColumn<int>("shutdownMethod");
        QTest::addColumn<int>("reboots");
        QTest::newRow("shutdown") << 0 << 0 << 0;
        QTest::newRow("forced shutdown") << 1 << 1 << 0;
        QTest::newRow("restart") << 2 << -1 << 1;
        QTest::newRow("unknown") << 7 << -1 << 0;
    }
    void shutdownRebootOrders()
    {
        QFETCH(int, method);
        QFETCH(int, shutdownMethod);
        QFETCH(int, reboots);
        bringUpBridge();
        TestLogCapture log;
        emit bridge()->sig_shutdown_reboot_notice(2, 600);
        emit bridge()->sig_shutdown_reboot_notice(method, 1);
        QTRY_COMPARE(registered(*m_sig1).size(), 2);
        QCOMPARE(registered(*m_sig1).first(), registered(*m_sig1).last());
        QCOMPARE(liveWindows<BootWin>(), 1);
        // Nobody answers: the second order's one-second count-down consents.
        registered(*m_sig1).first()->show();
        QTRY_COMPARE(liveWindows<BootWin>(), 0);
        QCOMPARE(m_backend->shutdownMethod.loadRelaxed(), shutdownMethod);
        QCOMPARE(m_backend->reboots.loadRelaxed(), reboots);
        QCOMPARE(log.count(QStringLiteral("[BasePlugin] method [%1] not support.").arg(method)), method == 7 ? 1 : 0);
    }

    // Notice types map to prompt kinds with 1 and 2 swapped; the four texts go in order.
    void noticeWin_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("kind");
        QTest::newRow("0 -> 1") << 0 << 1;
        QTest::newRow("1 -> 3") << 1 << 3;
        QTest::newRow("2 -> 2") << 2 << 2;
        QTest::newRow("4 -> 5") << 4 << 5;
        QTest::newRow("out of range -> 1") << 9 << 1;
        QTest::newRow("negative -> 1") << -1 << 1;
    }
    void noticeWin()
    {
        QFETCH(int, type);
        QFETCH(int, kind);
        bringUpBridge();
        emit bridge()->sig_noticeWin(_sNoticeWinInfo_{type, "T1", "T2", "T3", "T4"});
        PromotWin* prompt = nullptr;
        QTRY_VERIFY((prompt = m_fixture->mainWindow()->findChild<PromotWin*>()) != nullptr);
        PromotWin::sInfo const p = prompt->paras();
        QCOMPARE(p.kind, kind);
        QCOMPARE((QStringList{p.title, p.text, p.subText, p.detail}), (QStringList{"T1", "T2", "T3", "T4"}));
        QCOMPARE(p.rightBtnText, QString::fromUtf8("知道了"));
        QVERIFY(p.leftBtnText.isEmpty() && prompt->isVisible());
    }

    // A tick queries readiness off the GUI thread. Without an antivirus
    // module the home page shows the product name and one guard-day counter
    // (however many ticks); with one, neither.
    void dataTickFallback()
    {
        HomePageWidget* home = m_plugin->homePage();
        m_plugin->slot_update_data();
        m_plugin->slot_update_data();
        QTRY_VERIFY(m_backend->readyThread.loadRelaxed());
        QVERIFY(m_backend->readyThread.loadRelaxed() != QThread::currentThread());
        QList<QWidget*> const counters = home->dataArea()->findChildren<QWidget*>(QStringLiteral("CumulativeGuardDays"));
        QCOMPARE(counters.size(), 1);
        QPointer<QWidget> counter = counters.first();
        QCOMPARE(home->titleLabel()->text(), QString::fromUtf8("Quorix终端安全管理系统"));
        m_fixture->addPresentPlugin(EPLUGIN_ID_STANDARDAV);
        m_plugin->slot_update_data();
        QCOMPARE(home->titleLabel()->text(), QString::fromUtf8("安全守护每一刻"));
        TestPluginFixture::flushDeletes();
        QVERIFY(counter.isNull());
    }

    // After a silent start the weak-password check is asked on the tick after
    // the flag is armed, and again on every tick until the backend acknowledges.
    void weakPasswdAfterSilentStart_data()
    {
        QTest::addColumn<bool>("acknowledged");
        QTest::newRow("acknowledged") << true;
        QTest::newRow("never acknowledged") << false;
    }
    void weakPasswdAfterSilentStart()
    {
        QFETCH(bool, acknowledged);
        m_backend->acceptWeakPasswdCheck.storeRelaxed(acknowledged ? 1 : 0);
        bringUpBridge();
        TestLogCapture log;
        m_plugin->execCmd(EPLUGIN_ID_BASE_CMD_SILENT_STARTUP, QVariant());
        m_plugin->slot_update_data();   // arms the flag
        QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), 0);
        m_plugin->slot_update_data();   // asks
        QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), 1);
        if (acknowledged)
            QTRY_COMPARE(log.count(QStringLiteral("[BasePlugin] =========== backend receive weak passwd check, "
                                                  "d->m_needWeakPassdCheck.store(0);")), 1);
        m_plugin->slot_update_data();
        m_plugin->slot_update_data();
        QCOMPARE(m_backend->weakPasswdRequests.loadRelaxed(), acknowledged ? 1 : 3);
    }
};

QTEST_MAIN(TestBasePluginEvents)
#include "tst_basePluginEvents.moc"
