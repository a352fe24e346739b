// The developer test window: what each page sends reaches the bridge signal
// with every field as typed, refused input reaches nothing, and the window
// the plugin opens sends a notice that ends up as a notice window.

#include "baseTestPage.h"
#include "baseTestWin.h"
#include "basepluginmodeldatainterface.h"
#include "messagecenterpluginmodeldatainterface.h"
#include "prompttitlewin.h"
#include "testBackend.h"
#include "testPluginFixture.h"
#include "uniNoticeMsg.h"

#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

#include <memory>

namespace {

using Fields = QVariantMap;

QObject* bridgeNamed(QString const& name)
{
    if (name == QLatin1String("messageCentre"))
        return MessageCenterPluginModelDataInterface::singleInstance();
    return BasePluginModelDataInterface::singleInstance();
}

// One emission's arguments as texts, a record field by field in its order.
QStringList describe(QList<QVariant> const& args)
{
    QStringList out;
    auto const n = [](qint64 v) { return QString::number(v); };
    for (QVariant const& arg : args) {
        int const type = arg.userType();
        if (type == qMetaTypeId<__sUniNoticeMsgInfo>()) {
            auto const r = arg.value<__sUniNoticeMsgInfo>();
            out << r.id << n(r.value1) << r.text1 << r.text2 << n(r.number1) << n(r.number2) << r.text3 << n(r.number3)
                << r.text4 << r.text5 << n(r.number4);
        } else if (type == qMetaTypeId<__sDeviceMgrPopup>()) {
            auto const r = arg.value<__sDeviceMgrPopup>();
            out << r.winTitle << r.title << r.content << r.btnText << n(r.time) << r.text5;
        } else if (type == qMetaTypeId<_sNoticeWinInfo_>()) {
            auto const r = arg.value<_sNoticeWinInfo_>();
            out << n(r.noticeType) << r.text1 << r.text2 << r.text3 << r.text4;
        } else if (type == qMetaTypeId<__sBaseModuleBaseInfo>()) {
            out << QString::number(arg.value<__sBaseModuleBaseInfo>().value);
        } else {
            out << arg.toString();
        }
    }
    return out;
}

// Every event of the page unchosen, then the row's fields set (a box by its
// checked state).
bool fill(QWidget* page, Fields const& fields)
{
    for (QGroupBox* box : page->findChildren<QGroupBox*>())
        box->setChecked(false);
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        QWidget* w = page->findChild<QWidget*>(it.key());
        if (auto* box = qobject_cast<QGroupBox*>(w))
            box->setChecked(it->toBool());
        else if (auto* line = qobject_cast<QLineEdit*>(w))
            line->setText(it->toString());
        else if (auto* text = qobject_cast<QPlainTextEdit*>(w))
            text->setPlainText(it->toString());
        else if (auto* spin = qobject_cast<QSpinBox*>(w))
            spin->setValue(it->toInt());
        else if (auto* combo = qobject_cast<QComboBox*>(w))
            combo->setCurrentIndex(combo->findData(it->toInt()));
        else
            return false;
    }
    return true;
}

// Shows the page through the navigation, fills it and presses its button.
bool sendFrom(BaseTestWin* win, QString const& pageName, Fields const& fields, int repeat = 1)
{
    QList<BaseTestPage*> const pages = win->pages();
    auto const found = std::find_if(pages.begin(), pages.end(), [&](BaseTestPage* p) { return p->objectName() == pageName; });
    if (found == pages.end() || !fill(*found, fields))
        return false;
    win->findChild<QListWidget*>(QStringLiteral("m_pListPages"))->setCurrentRow(int(found - pages.begin()));
    win->findChild<QSpinBox*>(QStringLiteral("m_pSpinRepeat"))->setValue(repeat);
    auto* send = (*found)->findChild<QPushButton*>(QStringLiteral("m_pBtnSend"));
    if (!send || !send->isVisible())
        return false;
    QTest::mouseClick(send, Qt::LeftButton);
    return true;
}

UniNoticeMsg* noticeWindow(QString const& id)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* notice = qobject_cast<UniNoticeMsg*>(w); notice && notice->id() == id)
            return notice;
    }
    return nullptr;
}

} // namespace

class TestBaseTestWin : public QObject
{
    Q_OBJECT

    QPointer<BaseTestWin> m_win;

private slots:
    void init()
    {
        m_win = new BaseTestWin();
        m_win->show();
    }
    void cleanup()
    {
        delete m_win.data();
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (qobject_cast<MsgMgrWinInterface*>(w))
                w->close();
        }
        TestPluginFixture::flushDeletes();
        TestBackend::restore();
    }

    void sendsEveryField_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<int>("repeat");
        QTest::addColumn<QString>("bridge");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QStringList>("expected");   // per emission
        QString const popup = QStringLiteral("BaseTestPopupPage");
        QString const order = QStringLiteral("BaseTestOrderPage");
        QString const status = QStringLiteral("BaseTestStatusPage");
        QByteArray const notice = SIGNAL(sig_UniNotifyMsg(__sUniNoticeMsgInfo));
        QString const cap256(256, QLatin1Char('t'));
        QString const cap128(128, QLatin1Char('i'));

        QTest::newRow("notice, link") << popup
            << Fields{{"m_pBoxNotice", true}, {"m_pEditNoticeId", "n-1"}, {"m_pSpinNoticeLevel", 2},
                      {"m_pEditNoticeHeading", "Heading"}, {"m_pEditNoticeTitle", "<b>Title</b>"},
                      {"m_pSpinNoticeCountDown", 0}, {"m_pSpinNoticeButton", 4}, {"m_pEditNoticeBody", "one\ntwo"},
                      {"m_pSpinNoticeNumber3", 7}, {"m_pEditNoticeLinkText", "查看"}, {"m_pComboNoticeJumpKind", 0},
                      {"m_pEditNoticeTarget", "https://example.org/a?b=1"}}
            << 1 << "base" << notice
            << QStringList{"n-1", "2", "Heading", "<b>Title</b>", "0", "4", "one\ntwo", "7", "查看", "https://example.org/a?b=1", "0"};
        QTest::newRow("notice at the caps, page jump") << popup
            << Fields{{"m_pBoxNotice", true}, {"m_pEditNoticeId", cap128}, {"m_pSpinNoticeLevel", 9},
                      {"m_pEditNoticeHeading", ""}, {"m_pEditNoticeTitle", cap256}, {"m_pSpinNoticeCountDown", 86400},
                      {"m_pSpinNoticeButton", 99}, {"m_pEditNoticeBody", ""}, {"m_pSpinNoticeNumber3", -1},
                      {"m_pEditNoticeLinkText", "设置"}, {"m_pComboNoticeJumpKind", 1},
                      {"m_pEditNoticeTarget", "SettingCentreWidget"}}
            << 1 << "base" << notice
            << QStringList{cap128, "9", "", cap256, "86400", "99", "", "-1", "设置", "SettingCentreWidget", "1"};
        QTest::newRow("device pop-up, nothing filled in for the plugin") << popup
            << Fields{{"m_pBoxDevice", true}, {"m_pEditDeviceWinTitle", "设备管控"}, {"m_pEditDeviceTitle", "U 盘"},
                      {"m_pEditDeviceContent", "c"}, {"m_pEditDeviceBtnText", ""}, {"m_pSpinDeviceTime", 0},
                      {"m_pEditDeviceDetails", "厂商: SanDisk"}}
            << 3 << "base" << QByteArray(SIGNAL(sig_device_mgr_msg(__sDeviceMgrPopup)))
            << QStringList{"设备管控", "U 盘", "c", "", "0", "厂商: SanDisk"};
        QTest::newRow("restart order") << order
            << Fields{{"m_pBoxPower", true}, {"m_pComboPowerMethod", 2}, {"m_pSpinPowerTime", 5}}
            << 1 << "base" << QByteArray(SIGNAL(sig_shutdown_reboot_notice(int, int))) << QStringList{"2", "5"};
        QTest::newRow("prompt of kind 3") << order
            << Fields{{"m_pBoxPrompt", true}, {"m_pComboPromptType", 3}, {"m_pEditPromptText1", "T1"},
                      {"m_pEditPromptText2", "T2"}, {"m_pEditPromptText3", "T3"}, {"m_pEditPromptText4", "T4"}}
            << 1 << "base" << QByteArray(SIGNAL(sig_noticeWin(_sNoticeWinInfo_))) << QStringList{"3", "T1", "T2", "T3", "T4"};
        QTest::newRow("page jump") << order << Fields{{"m_pBoxJump", true}, {"m_pEditJumpPage", "SettingCentreWidget"}}
            << 1 << "base" << QByteArray(SIGNAL(sig_Jump(QString))) << QStringList{"SettingCentreWidget"};
        QTest::newRow("hide") << order << Fields{{"m_pBoxWindow", true}, {"m_pComboWindowEvent", 1}}
            << 2 << "base" << QByteArray(SIGNAL(sig_hide())) << QStringList();
        QTest::newRow("quit") << order << Fields{{"m_pBoxWindow", true}, {"m_pComboWindowEvent", 4}}
            << 1 << "base" << QByteArray(SIGNAL(sig_appQuit())) << QStringList();
        QTest::newRow("weak password acknowledged") << order << Fields{{"m_pBoxWeakPasswd", true}}
            << 1 << "base" << QByteArray(SIGNAL(sig_weakPasswdCheckRecieved())) << QStringList();
        QTest::newRow("guard days") << status << Fields{{"m_pBoxGuardDays", true}, {"m_pSpinGuardDays", 36500}}
            << 1 << "base" << QByteArray(SIGNAL(sig_CumulativeGuardDays(unsigned int))) << QStringList{"36500"};
        QTest::newRow("base info, all 64 bits in hex") << status
            << Fields{{"m_pBoxBaseInfo", true}, {"m_pEditBaseInfo", "0xFFFFFFFFFFFFFFFF"}}
            << 1 << "base" << QByteArray(SIGNAL(sig_base_info(__sBaseModuleBaseInfo))) << QStringList{"18446744073709551615"};
        QTest::newRow("base info, a leading zero is no octal") << status
            << Fields{{"m_pBoxBaseInfo", true}, {"m_pEditBaseInfo", " 010 "}}
            << 1 << "base" << QByteArray(SIGNAL(sig_base_info(__sBaseModuleBaseInfo))) << QStringList{"10"};
        QTest::newRow("client version") << status
            << Fields{{"m_pBoxClientVersion", true}, {"m_pEditClientVersion", "10.0.3.8000"}}
            << 1 << "base" << QByteArray(SIGNAL(sig_setClientVersionInfo(QString))) << QStringList{"10.0.3.8000"};
        QTest::newRow("virus-library version") << status
            << Fields{{"m_pBoxVirusVersion", true}, {"m_pEditVirusVersion", "2026.02.01.002"}}
            << 1 << "base" << QByteArray(SIGNAL(sig_setVirusDataVersionInfo(QString))) << QStringList{"2026.02.01.002"};
        QTest::newRow("message-centre unread count") << status << Fields{{"m_pBoxUnread", true}, {"m_pSpinUnread", 42}}
            << 50 << "messageCentre" << QByteArray(SIGNAL(sig_unreadMsgCount(int))) << QStringList{"42"};
    }
    void sendsEveryField()
    {
        QFETCH(QString, page);
        QFETCH(Fields, fields);
        QFETCH(int, repeat);
        QFETCH(QString, bridge);
        QFETCH(QByteArray, signal);
        QFETCH(QStringList, expected);
        QSignalSpy spy(bridgeNamed(bridge), signal.constData());
        QVERIFY(spy.isValid());
        QVERIFY(sendFrom(m_win, page, fields, repeat));
        QCOMPARE(spy.count(), repeat);
        for (QList<QVariant> const& args : qAsConst(spy))
            QCOMPARE(describe(args), expected);
        QVERIFY2(m_win->statusText().startsWith(QString::fromUtf8("已发送：")), qPrintable(m_win->statusText()));
        QVERIFY(m_win->statusText().endsWith(QStringLiteral(" × %1").arg(repeat)));
    }

    void refused_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<QString>("reason");
        QString const popup = QStringLiteral("BaseTestPopupPage");
        QByteArray const notice = SIGNAL(sig_UniNotifyMsg(__sUniNoticeMsgInfo));
        QByteArray const baseInfo = SIGNAL(sig_base_info(__sBaseModuleBaseInfo));
        QString const notWeb = QString::fromUtf8("跳转目标必须是带主机名的 http 或 https 网址");
        auto const link = [](int kind, QString const& target) {
            return Fields{{"m_pBoxNotice", true}, {"m_pComboNoticeJumpKind", kind}, {"m_pEditNoticeTarget", target}};
        };
        QTest::newRow("javascript: link") << popup << link(0, "javascript:alert(1)") << notice << notWeb;
        QTest::newRow("file: link") << popup << link(0, "file:///etc/passwd") << notice << notWeb;
        QTest::newRow("link without a host") << popup << link(0, "https://") << notice << notWeb;
        QTest::newRow("markup as page name") << popup << link(1, "<b>x</b>") << notice
                                             << QString::fromUtf8("跳转目标只能由字母、数字和下划线组成");
        QTest::newRow("title one over its cap") << popup
            << Fields{{"m_pBoxNotice", true}, {"m_pEditNoticeTitle", QString(257, QLatin1Char('t'))}} << notice
            << QString::fromUtf8("“窗口标题”超过 256 个字符");
        QTest::newRow("a bad device pop-up keeps the notice back") << popup
            << Fields{{"m_pBoxNotice", true}, {"m_pBoxDevice", true}, {"m_pEditDeviceTitle", QString(257, QLatin1Char('t'))}}
            << notice << QString::fromUtf8("设备弹窗：“正文标题”超过 256 个字符");
        QTest::newRow("device details one over") << popup
            << Fields{{"m_pBoxDevice", true}, {"m_pEditDeviceDetails", QString(4097, QLatin1Char('d'))}}
            << QByteArray(SIGNAL(sig_device_mgr_msg(__sDeviceMgrPopup))) << QString::fromUtf8("“设备详情”超过 4096 个字符");
        QTest::newRow("page name one over") << QStringLiteral("BaseTestOrderPage")
            << Fields{{"m_pBoxJump", true}, {"m_pEditJumpPage", QString(129, QLatin1Char('a'))}}
            << QByteArray(SIGNAL(sig_Jump(QString))) << QString::fromUtf8("超过 128 个字符");
        for (char const* junk : {"12abc", "-1", "18446744073709551616", ""})
            QTest::newRow(qPrintable(QStringLiteral("base info \"%1\"").arg(junk))) << QStringLiteral("BaseTestStatusPage")
                << Fields{{"m_pBoxBaseInfo", true}, {"m_pEditBaseInfo", junk}} << baseInfo
                << QString::fromUtf8("不是 0 到 18446744073709551615 之间的整数");
        QTest::newRow("nothing chosen") << popup << Fields() << notice << QString::fromUtf8("没有选中的事件");
    }
    void refused()
    {
        QFETCH(QString, page);
        QFETCH(Fields, fields);
        QFETCH(QByteArray, signal);
        QFETCH(QString, reason);
        QSignalSpy spy(BasePluginModelDataInterface::singleInstance(), signal.constData());
        QVERIFY(sendFrom(m_win, page, fields, 5));
        QCOMPARE(spy.count(), 0);
        QString const shown = m_win->statusText();
        QVERIFY2(shown.startsWith(QString::fromUtf8("未发送：")) && shown.contains(reason), qPrintable(shown));
    }

    // Esc typed into a field closes the whole window, which goes away.
    void escCloses()
    {
        auto* edit = m_win->findChild<QLineEdit*>(QStringLiteral("m_pEditNoticeTitle"));
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_Escape);
        QVERIFY(!m_win->isVisible());
        TestPluginFixture::flushDeletes();
        QVERIFY(m_win.isNull());
    }

    // From the plugin: one window however often it is asked for, not modal;
    // its notice takes the bridge's road to a notice window; a closed window
    // is made anew, and an open one goes with the plugin.
    void openedFromThePlugin()
    {
        delete m_win.data();
        TestBackend::install();
        auto fixture = std::make_unique<TestPluginFixture>();
        BasePlugin* plugin = fixture->plugin();
        plugin->execCmd(PLUGINMANAGE_CMDTYPE_INSTALL, QVariant(QStringLiteral("EPLUGIN_ID_BRIDGE_BASE")));
        plugin->slot_showTestMainWin();
        plugin->slot_showTestMainWin();
        QCOMPARE(openWindows<BaseTestWin>().size(), 1);
        QPointer<BaseTestWin> win = openWindows<BaseTestWin>().first();
        QCOMPARE(win->windowModality(), Qt::NonModal);

        QString const title = QString::fromUtf8("来自测试窗口");
        QVERIFY(sendFrom(win, QStringLiteral("BaseTestPopupPage"),
                         Fields{{"m_pBoxNotice", true}, {"m_pEditNoticeId", "from-test-win"}, {"m_pEditNoticeTitle", title}}));
        // Made and handed to the message manager (not loaded here, so never shown).
        UniNoticeMsg* made = nullptr;
        QTRY_VERIFY((made = noticeWindow(QStringLiteral("from-test-win"))) != nullptr);
        QCOMPARE(made->findChild<PromptTitleWin*>()->title(), title);

        QTest::keyClick(win, Qt::Key_Escape);
        TestPluginFixture::flushDeletes();
        QVERIFY(win.isNull());
        plugin->slot_showTestMainWin();
        QCOMPARE(openWindows<BaseTestWin>().size(), 1);
        win = openWindows<BaseTestWin>().first();
        fixture.reset();
        TestPluginFixture::flushDeletes();
        QVERIFY(win.isNull());
    }
};

QTEST_MAIN(TestBaseTestWin)
#include "tst_baseTestWin.moc"
