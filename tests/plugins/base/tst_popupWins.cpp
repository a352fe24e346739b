// The pop-up windows of backend events: the unified notice, the device
// pop-up with its details window, and the shutdown/restart order.

#include "bootWin.h"
#include "cqbutton.h"
#include "cqlabel.h"
#include "cqtextbutton.h"
#include "cqtitlebuttons.h"
#include "devicePopSubWin.h"
#include "devicePopWin.h"
#include "framelinkproxy.h"
#include "framelinkproxyinterface.h"
#include "prompttitlewin.h"
#include "testLogCapture.h"
#include "uniNoticeMsg.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPointer>
#include <QtTest>

namespace {

template <typename T = QWidget>
T* child(QWidget* w, char const* name)
{
    return w->findChild<T*>(QString::fromLatin1(name));
}

// Records the URLs the notice hands to the desktop instead of opening them.
class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); QDesktopServices::setUrlHandler(QStringLiteral("http"), this, "open"); QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~UrlCatcher() override
    {
        for (char const* scheme : {"https", "http", "file"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
    QList<QUrl> opened;
public slots:
    void open(QUrl const& url) { opened << url; }
};

// A page the frame can be sent to by object name.
class PageCatcher : public FrameLinkProxyInterface
{
public:
    QStringList asked;
    bool gotoChildObject(QString const& objName) override
    {
        asked << objName;
        return true;
    }
};

__sUniNoticeMsgInfo notice(int countdown = 15)
{
    __sUniNoticeMsgInfo info;
    info.id = QStringLiteral("n1");
    info.text1 = QStringLiteral("Heading");
    info.text2 = QStringLiteral("Title");
    info.text3 = QStringLiteral("Body");
    info.number1 = countdown;
    return info;
}

__sDeviceMgrPopup device(QString const& details = QString(), int time = -1)
{
    return __sDeviceMgrPopup{QStringLiteral("USB"), QStringLiteral("Blocked"), QStringLiteral("A disk"),
                             QString::fromUtf8("知道了"), time, details};
}

} // namespace

class TestPopupWins : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            w->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // The level picks the title type and the strip; the heading hides for
    // good once a notice comes without one.
    void noticeLevelAndHeading()
    {
        __sUniNoticeMsgInfo info = notice();
        info.value1 = (qint64(1) << 32) | 2;   // only the low word counts
        UniNoticeMsg win(info, nullptr);
        QCOMPARE(win.findChild<PromptTitleWin*>()->type(), int(PromptTitleWin::TYPE_URGENT));
        QVERIFY(child(&win, "m_pTitleWin1")->styleSheet().contains(QLatin1String("#f37344")));
        info.value1 = 1;
        info.text1.clear();
        win.updateInfo(info);
        QCOMPARE(win.findChild<PromptTitleWin*>()->type(), int(PromptTitleWin::TYPE_NORMAL));
        QCOMPARE(child(&win, "m_pTitleWin1")->styleSheet(), QStringLiteral("#m_pTitleWin1{background:#356DEE;}}"));
        win.show();
        QVERIFY(child(&win, "m_pLabMsgTitle")->isHidden());
        info.text1 = QStringLiteral("Back");
        win.updateInfo(info);
        QVERIFY(child(&win, "m_pLabMsgTitle")->isHidden());
    }

    // The device pop-up's height follows its look, as the message manager
    // stacks by it: the compact sum counts the hidden title window, not the heading.
    void deviceHeights()
    {
        DevicePopWin win(device(QStringLiteral("vid 0781")), nullptr);
        int const body = child(&win, "m_pLabMsgContent")->height();
        int const bottom = child(&win, "m_pWinBottom")->height();
        QCOMPARE(bottom, 80);
        win.changUIType(MsgMgrWinInterface::EUITYPE_ALONE);
        QCOMPARE(win.height(), 48 + 24 + body + bottom + 56);
        win.changUIType(MsgMgrWinInterface::EUITYPE_COMPACT);
        QCOMPARE(win.height(), 4 + 24 + 48 + body + bottom + 56);
        win.changUIType(static_cast<MsgMgrWinInterface::eUIType>(3));
        QCOMPARE(win.maximumHeight(), 0);
    }

    // Every way out closes (and deletes) the notice; the count-down is one of them.
    void closingEvents_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("main button") << "main";
        QTest::newRow("title close") << "title";
        QTest::newRow("strip close") << "strip";
        QTest::newRow("count-down") << "countdown";
    }
    void closingEvents()
    {
        QFETCH(QString, how);
        int const seconds = how == QLatin1String("countdown") ? 1 : 0;
        for (int kind = 0; kind < 2; ++kind) {
            QPointer<MsgMgrWinInterface> win = kind == 0 ? static_cast<MsgMgrWinInterface*>(new UniNoticeMsg(notice(seconds), nullptr))
                                                         : new DevicePopWin(device({}, seconds), nullptr);
            win->changUIType(MsgMgrWinInterface::EUITYPE_COMPACT);
            win->show();
            QSignalSpy preClose(win.data(), &MsgMgrWinInterface::sig_preClose);
            if (how == QLatin1String("main"))
                child<CQButton>(win, "m_pBtnMain")->click();
            else if (how == QLatin1String("title"))
                emit win->findChild<PromptTitleWin*>()->sig_close_btn_clicked();
            else if (how == QLatin1String("strip"))
                win->findChild<CQCloseBtn*>(QString(), Qt::FindDirectChildrenOnly)->click();
            QTRY_VERIFY(win.isNull());
            QCOMPARE(preClose.count(), 1);
        }
    }

    // A notice without a count-down stays until the user acts.
    void noCountdown()
    {
        UniNoticeMsg win(notice(0), nullptr);
        DevicePopWin dev(device({}, -1), nullptr);
        QVERIFY(!child<CQButton>(&win, "m_pBtnMain")->isCounting());
        QVERIFY(!child<CQButton>(&dev, "m_pBtnMain")->isCounting());
        QCOMPARE(child<CQButton>(&win, "m_pBtnMain")->text(), QString::fromUtf8("知道了"));
    }

    // The text button jumps to a page (1) or opens a web page (0, http and
    // https only) and leaves the notice open; -1 does nothing. An update
    // with a jump adds a handler: two updates, two jumps per click.
    void noticeJump_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("updates");
        QTest::addColumn<int>("urls");
        QTest::addColumn<int>("pages");
        QTest::newRow("page") << 1 << "VirusScanPage" << 0 << 0 << 1;
        QTest::newRow("page, updated twice") << 1 << "VirusScanPage" << 2 << 0 << 3;
        QTest::newRow("https") << 0 << "https://example.org/a?b=c" << 0 << 1 << 0;
        QTest::newRow("file refused") << 0 << "file:///etc/passwd" << 0 << 0 << 0;
        QTest::newRow("javascript refused") << 0 << "javascript:alert(1)" << 0 << 0 << 0;
        QTest::newRow("none") << -1 << "https://example.org" << 0 << 0 << 0;
    }
    void noticeJump()
    {
        QFETCH(int, kind);
        QFETCH(QString, target);
        QFETCH(int, updates);
        QFETCH(int, urls);
        QFETCH(int, pages);
        UrlCatcher catcher;
        PageCatcher page;
        FrameLinkProxy::singleInstance()->mount(QStringLiteral("tst_pages"), &page);
        __sUniNoticeMsgInfo info = notice();
        info.number4 = kind;
        info.text5 = target;
        info.text4 = QStringLiteral("Open");
        UniNoticeMsg win(info, nullptr);
        for (int i = 0; i < updates; ++i)
            win.updateInfo(info);
        win.show();
        TestLogCapture log;
        child<CQTextButton>(&win, "m_pBtnText")->click();
        FrameLinkProxy::singleInstance()->unmount(QStringLiteral("tst_pages"));
        QCOMPARE(catcher.opened.size(), urls);
        QCOMPARE(page.asked.size(), pages);
        QVERIFY(win.isVisible());
        bool const refused = target.startsWith(QLatin1String("file")) || target.startsWith(QLatin1String("javascript"));
        QCOMPARE(log.lines().filter(QStringLiteral("only http and https are opened")).size(), refused ? 1 : 0);
    }

    // Texts from outside stay text: markup is shown as written.
    void untrustedTexts()
    {
        QString const markup = QStringLiteral("<b>x</b><img src=/etc/x>");
        __sUniNoticeMsgInfo info = notice();
        info.text1 = info.text2 = info.text3 = markup;
        UniNoticeMsg win(info, nullptr);
        __sDeviceMgrPopup d = device(markup);
        d.winTitle = d.title = d.content = markup;
        DevicePopWin dev(d, nullptr);
        DevicePopSubWin sub(markup, markup, nullptr);
        for (QWidget* w : {static_cast<QWidget*>(&win), static_cast<QWidget*>(&dev), static_cast<QWidget*>(&sub)}) {
            for (QLabel* label : w->findChildren<QLabel*>()) {
                if (!CQLabel::fullText(label).contains(QLatin1String("<b>")))
                    continue;
                QCOMPARE(label->textFormat(), Qt::PlainText);
            }
        }
    }

    // One details window per notice, re-shown by a second click; after it
    // closes a click opens a new one. No details, no button.
    void deviceDetails()
    {
        DevicePopWin without(device(), nullptr);
        QVERIFY(!child(&without, "m_pBtnText"));
        QPointer<DevicePopWin> win = new DevicePopWin(device(QStringLiteral("Vendor 0781, serial 42")), nullptr);
        win->show();
        auto* button = child<CQTextButton>(win, "m_pBtnText");
        QCOMPARE(button->text(), QString::fromUtf8("设备详情"));
        button->click();
        QPointer<DevicePopSubWin> first = win->detailsWin();
        QVERIFY(first && first->isVisible());
        button->click();
        QCOMPARE(win->detailsWin(), first.data());
        first->close();
        QTRY_VERIFY(first.isNull());
        QVERIFY(!win->detailsWin());
        button->click();
        QPointer<DevicePopSubWin> second = win->detailsWin();
        QVERIFY(second && second->isVisible());
        // The details outlive their notice.
        win->close();
        QTRY_VERIFY(win.isNull());
        QVERIFY(second && second->isVisible());
    }

    void bootTexts_data()
    {
        QTest::addColumn<int>("method");
        QTest::addColumn<QString>("action");
        QTest::newRow("0 shutdown") << 0 << QString::fromUtf8("关机");
        QTest::newRow("1 shutdown") << 1 << QString::fromUtf8("关机");
        QTest::newRow("2 restart") << 2 << QString::fromUtf8("重启");
        QTest::newRow("7 keeps restart texts") << 7 << QString::fromUtf8("重启");
    }
    void bootTexts()
    {
        QFETCH(int, method);
        QFETCH(QString, action);
        BootWin win(nullptr);
        win.setMethod(EDEVMGR_REBOOT);
        win.setMethod(static_cast<eDevMgr>(method));
        QCOMPARE(int(win.method()), method);
        QCOMPARE(child<CQButton>(&win, "m_pBtnBoot")->plainText(), action);
        QString const title = CQLabel::fullText(child<QLabel>(&win, "m_pLabTitle"));
        QVERIFY(title.contains(action == QString::fromUtf8("关机") ? QString::fromUtf8("关机指令") : QString::fromUtf8("重启指令")));
    }

    // Before a method the look cannot change; after it the compact look drops the title.
    void bootLooks()
    {
        BootWin win(nullptr);
        TestLogCapture log;
        QCOMPARE(win.changUIType(MsgMgrWinInterface::EUITYPE_COMPACT), -1);
        QCOMPARE(log.count(QStringLiteral("[BootWin] m_method [-1] not support")), 1);
        QCOMPARE(win.size(), QSize(380, 260));
        win.setMethod(EDEVMGR_SHUTDOWN);
        QCOMPARE(win.changUIType(MsgMgrWinInterface::EUITYPE_COMPACT), 0);
        QCOMPARE(win.size(), QSize(380, 204));
        QCOMPARE(child(&win, "m_pBodyWin")->pos(), QPoint(1, 1));
        QCOMPARE(win.changUIType(MsgMgrWinInterface::EUITYPE_ALONE), 0);
        QCOMPARE(win.size(), QSize(380, 260));
        QCOMPARE(child(&win, "m_pBodyWin")->pos(), QPoint(1, 56));
    }

    // Each way out emits exactly one answer and closes: the count-down and the
    // action button consent, the reject button and the title bar's close reject.
    // Hovering does not hold the count-down.
    void bootAnswers_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("boots");
        QTest::newRow("count-down") << "countdown" << 1;
        QTest::newRow("action") << "action" << 1;
        QTest::newRow("reject") << "reject" << 0;
        QTest::newRow("title close") << "title" << 0;
    }
    void bootAnswers()
    {
        QFETCH(QString, how);
        QFETCH(int, boots);
        QPointer<BootWin> win = new BootWin(nullptr);
        QSignalSpy boot(win.data(), &BootWin::sig_boot);
        QSignalSpy reject(win.data(), &BootWin::sig_reject);
        win->setMethod(EDEVMGR_REBOOT);
        win->setTime(how == QLatin1String("countdown") ? 1 : 600);
        win->show();
        win->setCountdownPaused(true);
        if (how == QLatin1String("action"))
            child<CQButton>(win, "m_pBtnBoot")->click();
        else if (how == QLatin1String("reject"))
            child<CQButton>(win, "m_pBtnReject")->click();
        else if (how == QLatin1String("title"))
            emit win->findChild<PromptTitleWin*>()->sig_close_btn_clicked();
        QTRY_VERIFY(win.isNull());
        QCOMPARE(boot.count(), boots);
        QCOMPARE(reject.count(), 1 - boots);
        if (boots)
            QCOMPARE(boot.first().first().value<eDevMgr>(), EDEVMGR_REBOOT);
    }
};

QTEST_MAIN(TestPopupWins)
#include "tst_popupWins.moc"
