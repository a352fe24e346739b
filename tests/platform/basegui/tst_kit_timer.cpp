#include "cqthreadobjprecisiontimer.h"

#include <QSignalSpy>
#include <QtTest>

// The process-wide clock thread: ticks, stops cleanly, starts again.
class TstKitTimer : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void ticksFromItsOwnThread();
    void stopIsIdempotentAndRestarts();
    void uninitTwiceAndRecreate();
    void stopFromTickReceiver();
    void badIntervalRefused();

private:
    static CQThreadObjPrecisionTimer* fastClock();
};

CQThreadObjPrecisionTimer* TstKitTimer::fastClock()
{
    CQThreadObjPrecisionTimer* clock = CQThreadObjPrecisionTimer::singleInstance();
    clock->setIntervalMs(20);
    return clock;
}

void TstKitTimer::cleanup()
{
    CQThreadObjPrecisionTimer::UninitInstance(true);
    QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
}

void TstKitTimer::ticksFromItsOwnThread()
{
    CQThreadObjPrecisionTimer* clock = fastClock();
    QThread* tickThread = nullptr;
    connect(clock, &CQThreadObjPrecisionTimer::sig_tick, clock, [&tickThread]() { tickThread = QThread::currentThread(); },
            Qt::DirectConnection);
    QSignalSpy ticks(clock, &CQThreadObjPrecisionTimer::sig_tick);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count() >= 3, 5000);
    QCOMPARE(tickThread, static_cast<QThread*>(clock));
    // The elapsed time only grows.
    for (int i = 1; i < ticks.count(); ++i)
        QVERIFY(ticks.at(i).at(0).toLongLong() >= ticks.at(i - 1).at(0).toLongLong());
    QVERIFY(ticks.last().at(0).toLongLong() > 0);
}

void TstKitTimer::stopIsIdempotentAndRestarts()
{
    CQThreadObjPrecisionTimer* clock = fastClock();
    QSignalSpy ticks(clock, &CQThreadObjPrecisionTimer::sig_tick);
    QVERIFY(ticks.wait(5000));
    clock->slot_stopThread();
    QVERIFY(clock->isFinished());
    clock->slot_stopThread();
    QVERIFY(clock->isFinished());
    // Ticks already queued before the stop may still arrive; none after them.
    QCoreApplication::processEvents();
    ticks.clear();
    QVERIFY(!ticks.wait(100));

    clock->startThread();
    clock->startThread();   // already running: nothing more
    QVERIFY(ticks.wait(5000));
    QCOMPARE(CQThreadObjPrecisionTimer::singleInstance(), clock);
}

void TstKitTimer::uninitTwiceAndRecreate()
{
    fastClock();
    CQThreadObjPrecisionTimer::UninitInstance(true);
    CQThreadObjPrecisionTimer::UninitInstance(true);
    CQThreadObjPrecisionTimer::UninitInstance(false);
    QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
    QSignalSpy ticks(fastClock(), &CQThreadObjPrecisionTimer::sig_tick);
    QVERIFY(ticks.wait(5000));
}

void TstKitTimer::stopFromTickReceiver()
{
    // A receiver running in the clock thread that stops the clock must not
    // wait for its own thread to end.
    CQThreadObjPrecisionTimer* clock = fastClock();
    connect(clock, &CQThreadObjPrecisionTimer::sig_tick, clock, [clock]() { clock->slot_stopThread(); }, Qt::DirectConnection);
    QTRY_VERIFY_WITH_TIMEOUT(clock->isFinished(), 5000);
    clock->slot_stopThread();
}

void TstKitTimer::badIntervalRefused()
{
    CQThreadObjPrecisionTimer* clock = fastClock();
    clock->setIntervalMs(0);
    clock->setIntervalMs(-5);
    QCOMPARE(clock->intervalMs(), 20);
    clock->setIntervalMs(1);
    QCOMPARE(clock->intervalMs(), 1);
    QSignalSpy ticks(clock, &CQThreadObjPrecisionTimer::sig_tick);
    QVERIFY(ticks.wait(5000));
}

QTEST_GUILESS_MAIN(TstKitTimer)
#include "tst_kit_timer.moc"
