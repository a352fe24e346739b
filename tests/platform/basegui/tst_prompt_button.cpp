#include "cqbutton.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

class TestCQButton : public QObject
{
    Q_OBJECT
private slots:
    void countDownReachesZero();
    void noCountDown_data();
    void noCountDown();
    void shownButNotStarted();
    void captionChangedDuringCountDown();
    void stopRestoresCaption();
    void kinds_data();
    void kinds();
    void loadingStateRestoresButton();
    void receiverMayDeleteButtonAtZero();
};

void TestCQButton::countDownReachesZero()
{
    CQButton button("知道了", CQButton::KIND_SECONDARY, 12, 400);
    QSignalSpy zero(&button, &CQButton::sig_time_is_zero);
    QSignalSpy changed(&button, &CQButton::sig_time_changed);
    button.setTime(2, true);
    QCOMPARE(button.text(), QString("知道了 (2s)"));
    QVERIFY(button.isCounting());
    QVERIFY(zero.wait(5000));
    QCOMPARE(zero.count(), 1);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).at(0).toInt(), 1);
    QCOMPARE(changed.at(1).at(0).toInt(), 0);
    QCOMPARE(button.text(), QString("知道了"));
    QCOMPARE(button.remainingTime(), 0);
    QVERIFY(!button.isCounting());
}

void TestCQButton::noCountDown_data()
{
    QTest::addColumn<int>("seconds");
    QTest::newRow("zero") << 0;
    QTest::newRow("default -1") << -1;
    QTest::newRow("very negative") << -2147483647;
}

void TestCQButton::noCountDown()
{
    QFETCH(int, seconds);
    CQButton button("关机", CQButton::KIND_PRIMARY, 14, 400);
    button.setTime(5, true);
    button.setTime(seconds, true);
    QCOMPARE(button.text(), QString("关机"));
    QVERIFY(!button.isCounting());
    QCOMPARE(button.remainingTime(), 0);
}

void TestCQButton::shownButNotStarted()
{
    CQButton button("运行", CQButton::KIND_PRIMARY, 14, 400);
    button.setTime(1, false);
    QCOMPARE(button.text(), QString("运行 (1s)"));
    QVERIFY(!button.isCounting());
    QSignalSpy zero(&button, &CQButton::sig_time_is_zero);
    button.startTime();
    QVERIFY(zero.wait(3000));
}

void TestCQButton::captionChangedDuringCountDown()
{
    CQButton button("关机", CQButton::KIND_PRIMARY, 14, 400);
    QSignalSpy changed(&button, &CQButton::sig_time_changed);
    QSignalSpy zero(&button, &CQButton::sig_time_is_zero);
    button.setTime(2, true);
    button.setText("重启");
    QVERIFY(changed.wait(3000));
    QCOMPARE(button.text(), QString("重启 (1s)"));
    QVERIFY(zero.wait(3000));
    QCOMPARE(button.text(), QString("重启"));
    QCOMPARE(button.plainText(), QString("重启"));
}

void TestCQButton::stopRestoresCaption()
{
    CQButton button("拒绝指令", CQButton::KIND_SECONDARY, 14, 400);
    button.setTime(60, true);
    button.stopTime();
    QCOMPARE(button.text(), QString("拒绝指令"));
    QVERIFY(!button.isCounting());
    button.startTime();   // nothing left to count
    QVERIFY(!button.isCounting());
}

void TestCQButton::kinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("expected");
    QTest::newRow("primary") << 0 << 0;
    QTest::newRow("secondary") << 2 << 2;
    QTest::newRow("danger") << 3 << 3;
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("too big") << 4 << 0;
}

void TestCQButton::kinds()
{
    QFETCH(int, kind);
    QFETCH(int, expected);
    CQButton button(kind, 12, 400);
    QCOMPARE(button.kind(), expected);
    QCOMPARE(button.fontSize(), 12);
    QVERIFY(button.styleSheet().contains("font-size:12px"));
}

void TestCQButton::loadingStateRestoresButton()
{
    CQButton button("保存", CQButton::KIND_PRIMARY, 14, 400);
    button.startLoadingStatus(14, "", 15);
    QVERIFY(button.isLoading());
    QCOMPARE(button.text(), QString());
    QVERIFY(!button.icon().isNull());
    QCOMPARE(button.iconSize(), QSize(14, 14));
    button.stopLoadingStatus();
    QVERIFY(!button.isLoading());
    QCOMPARE(button.text(), QString("保存"));
    QVERIFY(button.icon().isNull());
    button.stopLoadingStatus();   // harmless twice
    QCOMPARE(button.text(), QString("保存"));
}

void TestCQButton::receiverMayDeleteButtonAtZero()
{
    QPointer<CQButton> button = new CQButton("完成", CQButton::KIND_PRIMARY, 14, 400);
    connect(button, &CQButton::sig_time_is_zero, button, [&button]() { delete button; });
    button->setTime(1, true);
    QTRY_VERIFY_WITH_TIMEOUT(button.isNull(), 5000);
}

QTEST_MAIN(TestCQButton)
#include "tst_prompt_button.moc"
