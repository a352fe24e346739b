#include "cqautocountdownwin.h"
#include "cqbutton.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

// Count-downs on buttons and under prompts.
class TestCountDown : public QObject
{
    Q_OBJECT
private slots:
    void buttonReachesZero();
    void buttonWithoutCountDown();
    void buttonKindAndLoadingState();
    void receiverMayDeleteButtonAtZero();
    void countDownWin();
};

void TestCountDown::buttonReachesZero()
{
    CQButton button("关机", CQButton::KIND_PRIMARY, 14, 400);
    QSignalSpy changed(&button, &CQButton::sig_time_changed);
    QSignalSpy zero(&button, &CQButton::sig_time_is_zero);
    button.setTime(2, false);
    QCOMPARE(button.text(), QString("关机 (2s)"));
    QVERIFY(!button.isCounting());
    button.startTime();
    button.setText("重启");   // a new caption while counting keeps the count
    QVERIFY(changed.wait(3000));
    QCOMPARE(button.text(), QString("重启 (1s)"));
    QVERIFY(zero.wait(3000));
    QCOMPARE(zero.count(), 1);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(1).at(0).toInt(), 0);
    QCOMPARE(button.text(), QString("重启"));
    QCOMPARE(button.plainText(), QString("重启"));
    QCOMPARE(button.remainingTime(), 0);
    QVERIFY(!button.isCounting());
}

void TestCountDown::buttonWithoutCountDown()
{
    CQButton button("拒绝指令", CQButton::KIND_PRIMARY, 14, 400);
    for (int seconds : { 0, -1, -2147483647 }) {
        button.setTime(5, true);
        button.setTime(seconds, true);
        QCOMPARE(button.text(), QString("拒绝指令"));
        QVERIFY(!button.isCounting());
        QCOMPARE(button.remainingTime(), 0);
    }
    button.setTime(60, true);
    button.stopTime();
    QCOMPARE(button.text(), QString("拒绝指令"));
    button.startTime();   // nothing left to count
    QVERIFY(!button.isCounting());
}

void TestCountDown::buttonKindAndLoadingState()
{
    for (int kind : { -1, 4 })
        QCOMPARE(CQButton(kind, 12, 400).kind(), int(CQButton::KIND_PRIMARY));
    CQButton button("保存", CQButton::KIND_PRIMARY, 14, 400);
    button.startLoadingStatus(14, "", 15);
    QVERIFY(button.isLoading());
    QCOMPARE(button.text(), QString());
    QVERIFY(!button.icon().isNull());
    button.stopLoadingStatus();
    button.stopLoadingStatus();   // harmless twice
    QVERIFY(!button.isLoading());
    QCOMPARE(button.text(), QString("保存"));
    QVERIFY(button.icon().isNull());
}

void TestCountDown::receiverMayDeleteButtonAtZero()
{
    QPointer<CQButton> button = new CQButton("完成", CQButton::KIND_PRIMARY, 14, 400);
    connect(button, &CQButton::sig_time_is_zero, button, [&button]() { delete button; });
    button->setTime(1, true);
    QTRY_VERIFY_WITH_TIMEOUT(button.isNull(), 5000);
}

void TestCountDown::countDownWin()
{
    QCOMPARE(CQAutoCountDownWin::formatText(QString(), 5), QString("5秒后自动关闭"));
    QCOMPARE(CQAutoCountDownWin::formatText("剩余%1秒", 3), QString("剩余3秒"));
    QCOMPARE(CQAutoCountDownWin::formatText("关闭", 2), QString("关闭 (2s)"));

    CQAutoCountDownWin win;
    QVERIFY(!win.start());   // default record: seconds -1
    win.setInfo({ 1, QString() });
    QCOMPARE(win.text(), QString("1秒后自动关闭"));
    QSignalSpy zero(&win, &CQAutoCountDownWin::sig_time_is_zero);
    QVERIFY(win.start());
    QVERIFY(zero.wait(5000));
    QCOMPARE(win.remaining(), 0);
    QVERIFY(!win.isRunning());
    QCOMPARE(win.text(), QString());
}

QTEST_MAIN(TestCountDown)
#include "tst_prompt_countdown.moc"
