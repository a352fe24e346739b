// The count-down of a stacked pop-up: held while the pointer rests on it and
// while it waits in the queue, except for a deadline that must not move.

#include "testMsgMgrFixture.h"
#include "testMsgWin.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace {

void pointer(QWidget* window, QEvent::Type type)
{
    QEnterEvent enter(QPointF(10, 10), QPointF(10, 10), window->mapToGlobal(QPoint(10, 10)));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(window, type == QEvent::Enter ? static_cast<QEvent*>(&enter) : &leave);
}

} // namespace

class TstMsgMgrCountdown : public QObject
{
    Q_OBJECT

    QScopedPointer<TestMsgMgrFixture> m_fixture;

private slots:
    void initTestCase()
    {
        if (!TestMsgMgrFixture::moduleBuilt())
            QSKIP("the message manager module is not built");
    }
    void init()
    {
        m_fixture.reset(new TestMsgMgrFixture);
        QVERIFY(m_fixture->loaded());
    }
    void cleanup() { m_fixture.reset(); }

    void pointerHoldsTheCountdown()
    {
        QPointer<TestCountdownWin> win = new TestCountdownWin(QStringLiteral("notice"), 30);
        TestMsgMgrFixture::registerWin(win);
        QVERIFY(win->button->isCounting());
        QSignalSpy ticks(win->button, &CQButton::sig_time_changed);

        pointer(win, QEvent::Enter);
        QVERIFY(!win->button->isCounting());
        int const held = win->button->remainingTime();
        QCOMPARE(held, 30);

        pointer(win, QEvent::Leave);
        QVERIFY(win->button->isCounting());
        QVERIFY(ticks.wait());
        QCOMPARE(win->button->remainingTime(), held - 1);
        delete win.data();
    }

    void deadlineKeepsCountingUnderThePointer()
    {
        QPointer<TestDeadlineWin> win = new TestDeadlineWin(QStringLiteral("shutdown"), 30);
        TestMsgMgrFixture::registerWin(win);
        QSignalSpy ticks(win->button, &CQButton::sig_time_changed);
        pointer(win, QEvent::Enter);
        QVERIFY(win->button->isCounting());
        QVERIFY(ticks.wait());
        QCOMPARE(win->button->remainingTime(), 29);
        delete win.data();
    }

    // Five fit the offscreen screen: the sixth waits, its time untouched,
    // until one of the others closes.
    void queuedWindowWaitsWithItsTime()
    {
        QList<QPointer<TestMsgWin>> shown;
        for (int i = 0; i < 5; ++i) {
            shown << new TestMsgWin(QString::number(i));
            TestMsgMgrFixture::registerWin(shown.last());
        }
        QPointer<TestCountdownWin> waiting = new TestCountdownWin(QStringLiteral("waiting"), 30);
        TestMsgMgrFixture::registerWin(waiting);
        QVERIFY(!waiting->isVisible());
        QVERIFY(!waiting->button->isCounting());
        QCOMPARE(waiting->button->remainingTime(), 30);
        // Updated while it waits: the new time waits as well.
        waiting->button->setTime(20, true);
        TestMsgMgrFixture::registerWin(waiting);
        QVERIFY(!waiting->button->isCounting());
        QCOMPARE(waiting->button->remainingTime(), 20);

        shown.first()->close();
        QTRY_VERIFY(waiting->isVisible());
        QVERIFY(waiting->button->isCounting());
        for (QPointer<TestMsgWin> const& win : qAsConst(shown))
            delete win.data();
        delete waiting.data();
    }
};

QTEST_MAIN(TstMsgMgrCountdown)
#include "tst_msgMgrCountdown.moc"
