#include "cqbutton.h"
#include "cqinputpassword.h"
#include "prompttitlewin.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

namespace {

CQInputPassword::sInfo exitInfo()
{
    CQInputPassword::sInfo info;
    info.prompt = "退出将失去对电脑的保护，是否确认退出？";
    info.label = "退出密码";
    info.hint = "联系管理员获取退出密码";
    return info;
}

bool visibleLabel(QWidget* w, char const* name, QString* text = nullptr)
{
    auto* label = w->findChild<QLabel*>(name);
    if (text && label)
        *text = label->text();
    return label && !label->isHidden();
}

} // namespace

class TestInputPassword : public QObject
{
    Q_OBJECT
private slots:
    void showsItsInfo();
    void submit_data();
    void submit();
    void emptyPasswordIsNotSubmitted();
    void errorState();
    void typingEndsErrorState();
    void cancelHidesAndSignals();
};

void TestInputPassword::showsItsInfo()
{
    CQInputPassword win;
    win.setInfo(exitInfo());
    QString text;
    QVERIFY(visibleLabel(&win, "m_pLabPrompt", &text));
    QCOMPARE(text, QString("退出将失去对电脑的保护，是否确认退出？"));
    QVERIFY(visibleLabel(&win, "m_pLabLabel", &text));
    QCOMPARE(text, QString("退出密码"));
    QVERIFY(visibleLabel(&win, "m_pLabHint", &text));
    QCOMPARE(text, QString("联系管理员获取退出密码"));
    QCOMPARE(win.titleWin()->title(), QString("提示"));
    QCOMPARE(win.okButton()->text(), QString("确定"));
    QCOMPARE(win.cancelButton()->text(), QString("取消"));
    QCOMPARE(win.lineEdit()->echoMode(), QLineEdit::Password);
    QVERIFY(win.isWindow());
}

void TestInputPassword::submit_data()
{
    QTest::addColumn<bool>("byEnter");
    QTest::newRow("button") << false;
    QTest::newRow("enter key") << true;
}

void TestInputPassword::submit()
{
    QFETCH(bool, byEnter);
    CQInputPassword win;
    win.setInfo(exitInfo());
    win.show();
    QSignalSpy spy(&win, &CQInputPassword::sig_submit);
    QTest::keyClicks(win.lineEdit(), "p@ss w0rd");
    if (byEnter)
        QTest::keyClick(win.lineEdit(), Qt::Key_Return);
    else
        win.okButton()->click();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QString("p@ss w0rd"));
}

void TestInputPassword::emptyPasswordIsNotSubmitted()
{
    CQInputPassword win;
    win.setInfo(exitInfo());
    QSignalSpy spy(&win, &CQInputPassword::sig_submit);
    win.okButton()->click();
    QCOMPARE(spy.count(), 0);
    QCOMPARE(win.uiType(), int(CQInputPassword::UITYPE_ERROR));
    QString text;
    QVERIFY(visibleLabel(&win, "m_pLabError", &text));
    QCOMPARE(text, QString("请输入密码"));
}

void TestInputPassword::errorState()
{
    CQInputPassword win;
    win.setInfo(exitInfo());
    win.slot_updateUIType(1);
    QCOMPARE(win.uiType(), 1);
    QCOMPARE(win.lineEdit()->property("error").toBool(), true);
    QString text;
    QVERIFY(visibleLabel(&win, "m_pLabError", &text));
    QCOMPARE(text, QString("密码错误，请重新输入"));
    QVERIFY(!visibleLabel(&win, "m_pLabHint"));

    win.slot_updateUIType(7);   // unknown: ignored
    QCOMPARE(win.uiType(), 1);

    win.slot_updateUIType(0);
    QCOMPARE(win.uiType(), 0);
    QCOMPARE(win.lineEdit()->property("error").toBool(), false);
    QVERIFY(!visibleLabel(&win, "m_pLabError"));
    QVERIFY(visibleLabel(&win, "m_pLabHint"));

    CQInputPassword::sInfo info = exitInfo();
    info.errorText = "密码不对";
    win.setInfo(info);
    win.slot_updateUIType(1);
    visibleLabel(&win, "m_pLabError", &text);
    QCOMPARE(text, QString("密码不对"));
}

void TestInputPassword::typingEndsErrorState()
{
    CQInputPassword win;
    win.setInfo(exitInfo());
    win.show();
    QTest::keyClicks(win.lineEdit(), "wrong");
    win.slot_updateUIType(1);
    QTest::keyClicks(win.lineEdit(), "x");
    QCOMPARE(win.uiType(), 0);
}

void TestInputPassword::cancelHidesAndSignals()
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

QTEST_MAIN(TestInputPassword)
#include "tst_prompt_inputpassword.moc"
