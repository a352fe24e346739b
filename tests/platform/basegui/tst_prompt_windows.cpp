#include "cqbutton.h"
#include "cqinputpassword.h"
#include "cqnoticeicon.h"
#include "msgmgrwininterface.h"
#include "promotwin.h"
#include "promptdialog.h"
#include "prompttitlewin.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

namespace {

QString labelText(QWidget* win, char const* name)
{
    auto* label = win->findChild<QLabel*>(name);
    return label && !label->isHidden() ? label->text() : QStringLiteral("<hidden>");
}

CQInputPassword::sInfo exitInfo()
{
    CQInputPassword::sInfo info;
    info.prompt = "退出将失去对电脑的保护，是否确认退出？";
    info.label = "退出密码";
    info.hint = "联系管理员获取退出密码";
    return info;
}

} // namespace

// The prompt and message windows: what they show, what an answer does, and who deletes them.
class TestPromptWindows : public QObject
{
    Q_OBJECT
private slots:
    void promotRecordFieldOrder();
    void promotParameters_data();
    void promotParameters();
    void promotAnswers_data();
    void promotAnswers();
    void promotCountDownClosesUnanswered();
    void promotModality();
    void dialogExecAnswers_data();
    void dialogExecAnswers();
    void dialogTitleCloseAfterNewLook();
    void passwordSubmit_data();
    void passwordSubmit();
    void passwordErrorState();
    void passwordCancel();
    void messageWinPreCloseOnce();
};

// The record is filled positionally by its users; keep the field order.
void TestPromptWindows::promotRecordFieldOrder()
{
    PromotWin::sInfo info{ -1, 0, 3, "标题", "正文", "副文", "细节", {}, "", 2, "知道了", 0 };
    QCOMPARE(info.kind, 3);
    QCOMPARE(info.detail, QString("细节"));
    QCOMPARE(info.rightBtnText, QString("知道了"));
    QCOMPARE(info.rightBtnKind, 0);
}

void TestPromptWindows::promotParameters_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("shownTitle");
    QTest::addColumn<QString>("shownRight");
    QTest::newRow("quit confirm") << 3 << "" << "取消" << "确定" << int(CQNoticeIcon::ICON_WARNING) << "提示" << "确定";
    QTest::newRow("success, default button") << 2 << "t" << "" << "" << int(CQNoticeIcon::ICON_SUCCESS) << "t" << "确定";
    QTest::newRow("unknown kind") << 42 << "t" << "" << "好" << int(CQNoticeIcon::ICON_INFO) << "t" << "好";
}

void TestPromptWindows::promotParameters()
{
    QFETCH(int, kind);
    QFETCH(QString, title);
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, icon);
    QFETCH(QString, shownTitle);
    QFETCH(QString, shownRight);

    PromotWin::sInfo info;
    info.kind = kind;
    info.title = title;
    info.text = "将失去对电脑的安全防护，是否确认退出？";
    info.subText = "<b>not markup</b>";
    info.leftBtnText = left;
    info.rightBtnText = right;
    PromotWin win;
    win.setAttribute(Qt::WA_DeleteOnClose, false);
    win.setParas(info);
    win.show();   // does not block

    QCOMPARE(win.titleWin()->title(), shownTitle);
    QCOMPARE(win.noticeIcon()->iconType(), icon);
    QCOMPARE(labelText(&win, "m_pLabText"), info.text);
    QCOMPARE(labelText(&win, "m_pLabSubText"), info.subText);
    QCOMPARE(win.findChild<QLabel*>("m_pLabSubText")->textFormat(), Qt::PlainText);
    QCOMPARE(labelText(&win, "m_pLabDetail"), QString("<hidden>"));
    QCOMPARE(win.leftButton()->isHidden(), left.isEmpty());
    QCOMPARE(win.rightButton()->text(), shownRight);
}

void TestPromptWindows::promotAnswers_data()
{
    QTest::addColumn<int>("which");   // 0 left, 1 right, 2 title close
    QTest::addColumn<int>("result");
    QTest::newRow("left") << 0 << int(PromotWin::RESULT_LEFT);
    QTest::newRow("right") << 1 << int(PromotWin::RESULT_RIGHT);
    QTest::newRow("title close answers nothing") << 2 << int(PromotWin::RESULT_NONE);
}

void TestPromptWindows::promotAnswers()
{
    QFETCH(int, which);
    QFETCH(int, result);
    PromotWin::sInfo info;
    info.leftBtnText = "取消";
    info.rightBtnText = "确定";
    QPointer<PromotWin> win = new PromotWin;
    win->setParas(info);
    win->show();
    QSignalSpy left(win.data(), &PromotWin::sig_left_btn_clicked);
    QSignalSpy right(win.data(), &PromotWin::sig_right_btn_clicked);
    QSignalSpy closed(win.data(), &PromotWin::sig_close);
    int got = -1;
    connect(win.data(), &PromotWin::sig_close, this, [&]() { got = win->result(); });

    QAbstractButton* buttons[] = { win->leftButton(), win->rightButton(), win->titleWin()->closeButton() };
    buttons[which]->click();
    QCOMPARE(left.count(), which == 0 ? 1 : 0);
    QCOMPARE(right.count(), which == 1 ? 1 : 0);
    QCOMPARE(closed.count(), 1);
    QCOMPARE(got, result);
    QTRY_VERIFY(win.isNull());
}

void TestPromptWindows::promotCountDownClosesUnanswered()
{
    PromotWin::sInfo info;
    info.countDown.seconds = 1;
    QPointer<PromotWin> win = new PromotWin;
    win->setParas(info);
    QSignalSpy zero(win.data(), &PromotWin::sig_time_is_zero);
    QSignalSpy right(win.data(), &PromotWin::sig_right_btn_clicked);
    QVERIFY(!win->countDownWin()->isRunning());   // counts only once shown
    win->show();
    QVERIFY(zero.wait(5000));
    QCOMPARE(right.count(), 0);
    QTRY_VERIFY(win.isNull());
}

void TestPromptWindows::promotModality()
{
    QWidget parent;
    auto* win = new PromotWin(&parent);
    PromotWin::sInfo info;
    win->setParas(info);
    QCOMPARE(win->windowModality(), Qt::WindowModal);
    info.modal = 0;   // a notice
    win->setParas(info);
    QCOMPARE(win->windowModality(), Qt::NonModal);
    PromotWin orphan;
    orphan.setParas(PromotWin::sInfo());
    QCOMPARE(orphan.windowModality(), Qt::NonModal);   // nothing to be modal over
}

void TestPromptWindows::dialogExecAnswers_data()
{
    QTest::addColumn<int>("which");   // 0 ok, 1 cancel, 2 title close
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << 0 << 1;
    QTest::newRow("cancel") << 1 << 0;
    QTest::newRow("title close") << 2 << 0;
}

void TestPromptWindows::dialogExecAnswers()
{
    QFETCH(int, which);
    QFETCH(int, result);
    QWidget window;
    window.resize(1000, 680);
    window.show();
    PromptDialog dialog(PromptDialog::MODE_TWO_ROW_TWO_BTN, "没点击保存，切换标签页会导致已填数据丢失。",
                        "确认要切换标签页吗？", &window);
    QAbstractButton* buttons[] = { dialog.okButton(), dialog.cancelButton(), dialog.titleWin()->closeButton() };
    QTimer::singleShot(0, buttons[which], &QAbstractButton::click);
    QCOMPARE(dialog.exec(), result);
}

void TestPromptWindows::dialogTitleCloseAfterNewLook()
{
    PromptTitleWin title;
    title.setParas(0, "设置中心", false, true);
    QSignalSpy spy(&title, &PromptTitleWin::sig_close_btn_clicked);
    title.setParas(2, "x", false, true);   // a new look keeps the close signal working
    title.closeButton()->click();
    QCOMPARE(spy.count(), 1);
}

void TestPromptWindows::passwordSubmit_data()
{
    QTest::addColumn<bool>("byEnter");
    QTest::newRow("button") << false;
    QTest::newRow("enter key") << true;
}

void TestPromptWindows::passwordSubmit()
{
    QFETCH(bool, byEnter);
    CQInputPassword win;
    win.setInfo(exitInfo());
    win.show();
    QCOMPARE(win.lineEdit()->echoMode(), QLineEdit::Password);
    QSignalSpy spy(&win, &CQInputPassword::sig_submit);
    win.okButton()->click();   // nothing typed: not submitted
    QCOMPARE(win.uiType(), int(CQInputPassword::UITYPE_ERROR));
    QCOMPARE(labelText(&win, "m_pLabError"), QString("请输入密码"));
    QTest::keyClicks(win.lineEdit(), "p@ss w0rd");
    if (byEnter)
        QTest::keyClick(win.lineEdit(), Qt::Key_Return);
    else
        win.okButton()->click();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("p@ss w0rd"));
}

void TestPromptWindows::passwordErrorState()
{
    CQInputPassword win;
    win.setInfo(exitInfo());
    win.show();
    win.slot_updateUIType(1);
    QCOMPARE(win.lineEdit()->property("error").toBool(), true);
    QCOMPARE(labelText(&win, "m_pLabError"), QString("密码错误，请重新输入"));
    QCOMPARE(labelText(&win, "m_pLabHint"), QString("<hidden>"));
    win.slot_updateUIType(7);   // unknown: ignored
    QCOMPARE(win.uiType(), 1);

    win.slot_updateUIType(0);
    QCOMPARE(win.lineEdit()->property("error").toBool(), false);
    QCOMPARE(labelText(&win, "m_pLabError"), QString("<hidden>"));
    QCOMPARE(labelText(&win, "m_pLabHint"), QString("联系管理员获取退出密码"));

    CQInputPassword::sInfo info = exitInfo();
    info.errorText = "密码不对";
    win.setInfo(info);
    win.slot_updateUIType(1);
    QCOMPARE(labelText(&win, "m_pLabError"), QString("密码不对"));
    // Typing again ends the error state.
    QTest::keyClicks(win.lineEdit(), "x");
    QCOMPARE(win.uiType(), 0);
}

void TestPromptWindows::passwordCancel()
{
    CQInputPassword win;
    win.show();
    QSignalSpy closed(&win, &CQInputPassword::sig_close);
    QSignalSpy submitted(&win, &CQInputPassword::sig_submit);
    win.cancelButton()->click();
    QCOMPARE(closed.count(), 1);
    QVERIFY(win.isHidden());
    win.show();
    win.titleWin()->closeButton()->click();
    QCOMPARE(closed.count(), 2);
    QCOMPARE(submitted.count(), 0);
}

void TestPromptWindows::messageWinPreCloseOnce()
{
    QStringList ids;
    auto* closed = new MsgMgrWinInterface(nullptr, "{id-1}");
    closed->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<MsgMgrWinInterface> guard(closed);
    auto* deleted = new MsgMgrWinInterface(nullptr, "x");
    for (MsgMgrWinInterface* win : { closed, deleted })
        connect(win, &MsgMgrWinInterface::sig_preClose, this, [&ids](QString const& id) { ids << id; });
    closed->show();
    closed->close();
    QCOMPARE(ids, QStringList({"{id-1}"}));
    QTRY_VERIFY(guard.isNull());   // not announced again by the destructor
    delete deleted;                // never closed: announced once, when deleted
    QCOMPARE(ids, QStringList({"{id-1}", "x"}));
}

QTEST_MAIN(TestPromptWindows)
#include "tst_prompt_windows.moc"
