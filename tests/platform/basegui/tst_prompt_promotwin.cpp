#include "cqnoticeicon.h"
#include "promotwin.h"
#include "prompttitlewin.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

QString labelText(QWidget* win, char const* name)
{
    auto* label = win->findChild<QLabel*>(name);
    return label && !label->isHidden() ? label->text() : QStringLiteral("<hidden>");
}

} // namespace

class TestPromotWin : public QObject
{
    Q_OBJECT
private slots:
    void recordLayout();
    void parameters_data();
    void parameters();
    void answers_data();
    void answers();
    void closeButtonAnswersNothing();
    void countDownClosesUnanswered();
    void reusedWhileOpen();
    void modality_data();
    void modality();
};

// The record is filled positionally by its users; keep the field order.
void TestPromotWin::recordLayout()
{
    PromotWin::sInfo defaults;
    QCOMPARE(defaults.width, -1);
    QCOMPARE(defaults.modal, 1);
    QCOMPARE(defaults.countDown.seconds, -1);

    PromotWin::sInfo info{ -1, 0, 3, "标题", "正文", "副文", "细节", {}, "", 2, "知道了", 0 };
    QCOMPARE(info.kind, 3);
    QCOMPARE(info.title, QString("标题"));
    QCOMPARE(info.detail, QString("细节"));
    QCOMPARE(info.rightBtnText, QString("知道了"));
    QCOMPARE(info.rightBtnKind, 0);
}

void TestPromotWin::parameters_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("shownTitle");
    QTest::addColumn<QString>("shownRight");
    QTest::newRow("notice") << 1 << "通知" << "" << "知道了" << int(CQNoticeIcon::ICON_INFO) << "通知" << "知道了";
    QTest::newRow("quit confirm") << 3 << "" << "取消" << "确定" << int(CQNoticeIcon::ICON_WARNING) << "提示" << "确定";
    QTest::newRow("success") << 2 << "t" << "" << "" << int(CQNoticeIcon::ICON_SUCCESS) << "t" << "确定";
    QTest::newRow("error") << 4 << "t" << "" << "好" << int(CQNoticeIcon::ICON_ERROR) << "t" << "好";
    QTest::newRow("urgent") << 5 << "t" << "" << "好" << int(CQNoticeIcon::ICON_URGENT) << "t" << "好";
    QTest::newRow("unknown kind") << 42 << "t" << "" << "好" << int(CQNoticeIcon::ICON_INFO) << "t" << "好";
}

void TestPromotWin::parameters()
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
    auto* win = new PromotWin;
    win->setParas(info);
    win->show();

    QCOMPARE(win->titleWin()->title(), shownTitle);
    QCOMPARE(win->noticeIcon()->iconType(), icon);
    QCOMPARE(labelText(win, "m_pLabText"), info.text);
    QCOMPARE(labelText(win, "m_pLabSubText"), info.subText);
    QCOMPARE(win->findChild<QLabel*>("m_pLabSubText")->textFormat(), Qt::PlainText);
    QCOMPARE(labelText(win, "m_pLabDetail"), QString("<hidden>"));
    QCOMPARE(win->leftButton()->isHidden(), left.isEmpty());
    QCOMPARE(win->leftButton()->text(), left);
    QCOMPARE(win->rightButton()->text(), shownRight);
    QVERIFY(win->isVisible());   // show() did not block
    win->close();
}

void TestPromotWin::answers_data()
{
    QTest::addColumn<bool>("clickLeft");
    QTest::newRow("left") << true;
    QTest::newRow("right") << false;
}

void TestPromotWin::answers()
{
    QFETCH(bool, clickLeft);
    PromotWin::sInfo info;
    info.leftBtnText = "取消";
    info.rightBtnText = "确定";
    QPointer<PromotWin> win = new PromotWin;
    win->setParas(info);
    win->show();
    QSignalSpy left(win.data(), &PromotWin::sig_left_btn_clicked);
    QSignalSpy right(win.data(), &PromotWin::sig_right_btn_clicked);
    QSignalSpy closed(win.data(), &PromotWin::sig_close);
    int result = PromotWin::RESULT_NONE;
    connect(win.data(), &PromotWin::sig_close, this, [&]() { result = win->result(); });

    (clickLeft ? win->leftButton() : win->rightButton())->click();
    QCOMPARE(left.count(), clickLeft ? 1 : 0);
    QCOMPARE(right.count(), clickLeft ? 0 : 1);
    QCOMPARE(closed.count(), 1);
    QCOMPARE(result, clickLeft ? int(PromotWin::RESULT_LEFT) : int(PromotWin::RESULT_RIGHT));
    QTRY_VERIFY(win.isNull());
}

void TestPromotWin::closeButtonAnswersNothing()
{
    QPointer<PromotWin> win = new PromotWin;
    win->show();
    QSignalSpy right(win.data(), &PromotWin::sig_right_btn_clicked);
    QSignalSpy closed(win.data(), &PromotWin::sig_close);
    win->titleWin()->closeButton()->click();
    QCOMPARE(right.count(), 0);
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(win.isNull());
}

void TestPromotWin::countDownClosesUnanswered()
{
    PromotWin::sInfo info;
    info.countDown.seconds = 1;
    QPointer<PromotWin> win = new PromotWin;
    win->setParas(info);
    QSignalSpy zero(win.data(), &PromotWin::sig_time_is_zero);
    QSignalSpy right(win.data(), &PromotWin::sig_right_btn_clicked);
    QVERIFY(!win->countDownWin()->isRunning());   // counts only once shown
    win->show();
    QVERIFY(win->countDownWin()->isRunning());
    QVERIFY(zero.wait(5000));
    QCOMPARE(right.count(), 0);
    QTRY_VERIFY(win.isNull());
}

void TestPromotWin::reusedWhileOpen()
{
    PromotWin win;
    win.setAttribute(Qt::WA_DeleteOnClose, false);
    PromotWin::sInfo info;
    info.text = "第一条";
    info.leftBtnText = "取消";
    win.setParas(info);
    win.show();
    info.text = "第二条";
    info.leftBtnText.clear();
    win.setParas(info);
    QCOMPARE(labelText(&win, "m_pLabText"), QString("第二条"));
    QVERIFY(win.leftButton()->isHidden());
    QCOMPARE(win.paras().text, QString("第二条"));
}

void TestPromotWin::modality_data()
{
    QTest::addColumn<bool>("withParent");
    QTest::addColumn<int>("modal");
    QTest::addColumn<int>("expected");
    QTest::newRow("modal over parent") << true << 1 << int(Qt::WindowModal);
    QTest::newRow("notice, not modal") << true << 0 << int(Qt::NonModal);
    QTest::newRow("no parent") << false << 1 << int(Qt::NonModal);
}

void TestPromotWin::modality()
{
    QFETCH(bool, withParent);
    QFETCH(int, modal);
    QFETCH(int, expected);
    QWidget parent;
    auto* win = new PromotWin(withParent ? &parent : nullptr);
    PromotWin::sInfo info;
    info.modal = modal;
    win->setParas(info);
    QCOMPARE(int(win->windowModality()), expected);
    QVERIFY(win->isWindow());
    if (!withParent)
        delete win;
}

QTEST_MAIN(TestPromotWin)
#include "tst_prompt_promotwin.moc"
