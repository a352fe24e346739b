#include "cqgtaskmutexmap.h"
#include "cqthreadobjprecisiontimer.h"

#include <QSignalSpy>
#include <QtTest>
#include <thread>
#include <vector>

// The kit's process-wide services used across threads: the registry of
// running tasks that the quit flow consults, and the clock thread.
class TstKitThreads : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void operations();
    void snapshotAppendsAndOutlivesRemoval();
    void concurrentWorkers();
    void ticksFromItsOwnThread();
    void stopIsIdempotentAndRestarts();
    void uninitTwiceAndRecreate();
    void stopFromTickReceiver();
    void badIntervalRefused();
};

namespace {

CQThreadObjPrecisionTimer* fastClock()
{
    CQThreadObjPrecisionTimer* clock = CQThreadObjPrecisionTimer::singleInstance();
    clock->setIntervalMs(20);
    return clock;
}

} // namespace

void TstKitThreads::init()
{
    CQGTaskMutexMap::singleInstance()->clear();
}

void TstKitThreads::cleanup()
{
    CQThreadObjPrecisionTimer::UninitInstance(true);
    QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
}

void TstKitThreads::operations()
{
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    auto add = [map](QString const& name, bool allowQuit) {
        CQTaskInfo task;
        task.name = name;
        task.allowQuit = allowQuit;
        return map->addTaskInfo(task);
    };
    auto listed = [map]() {
        QVector<CQTaskInfo> tasks;
        map->isExistTaskInfo(tasks);
        QStringList names;
        for (CQTaskInfo const& task : tasks)
            names << task.name + QLatin1Char(':') + (task.allowQuit ? QLatin1Char('1') : QLatin1Char('0'));
        return names;
    };
    QVERIFY(add(QStringLiteral("update"), true));
    QVERIFY(add(QStringLiteral("scan"), true));
    QVERIFY(add(QStringLiteral("backup"), true));
    QVERIFY(add(QStringLiteral("scan"), false));   // the same name replaces
    QVERIFY(!add(QString(), false));
    QCOMPARE(listed(), QStringList({"backup:1", "scan:0", "update:1"}));   // in name order
    QVERIFY(!map->removeTaskInfo(QStringLiteral("nope")));
    QVERIFY(map->removeTaskInfo(QStringLiteral("scan")));
    QVERIFY(!map->removeTaskInfo(QStringLiteral("scan")));
    QCOMPARE(listed(), QStringList({"backup:1", "update:1"}));
    QCOMPARE(map->count(), 2);
}

void TstKitThreads::snapshotAppendsAndOutlivesRemoval()
{
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    int calls = 0;
    CQTaskInfo task;
    task.name = QStringLiteral("scan");
    task.allowQuit = false;
    task.action = [&calls]() { return ++calls > 0; };
    QVERIFY(map->addTaskInfo(task));

    QVector<CQTaskInfo> tasks(1);   // the caller's vector is appended to
    QVERIFY(map->isExistTaskInfo(tasks));
    QCOMPARE(tasks.size(), 2);
    QVERIFY(map->removeTaskInfo(QStringLiteral("scan")));
    // The snapshot holds its own copy: the action is callable after removal.
    QVERIFY(tasks.at(1).action());
    QCOMPARE(calls, 1);
    QVector<CQTaskInfo> none;
    QVERIFY(!map->isExistTaskInfo(none));
    QVERIFY(none.isEmpty());
}

void TstKitThreads::concurrentWorkers()
{
    CQGTaskMutexMap* map = CQGTaskMutexMap::singleInstance();
    int const workers = 4;
    int const perWorker = 500;
    std::vector<std::thread> threads;
    for (int w = 0; w < workers; ++w) {
        threads.emplace_back([map, w]() {
            for (int i = 0; i < perWorker; ++i) {
                CQTaskInfo task;
                task.name = QStringLiteral("w%1-%2").arg(w).arg(i);
                map->addTaskInfo(task);
                QVector<CQTaskInfo> snapshot;
                map->isExistTaskInfo(snapshot);
                // Every other task finishes again.
                if (i % 2 == 0)
                    map->removeTaskInfo(task.name);
            }
        });
    }
    for (std::thread& t : threads)
        t.join();
    QCOMPARE(map->count(), workers * perWorker / 2);
    QVERIFY(map->contains(QStringLiteral("w3-499")));
    QVERIFY(!map->contains(QStringLiteral("w3-498")));
}

void TstKitThreads::ticksFromItsOwnThread()
{
    CQThreadObjPrecisionTimer* clock = fastClock();
    QThread* tickThread = nullptr;
    connect(clock, &CQThreadObjPrecisionTimer::sig_tick, clock, [&tickThread]() { tickThread = QThread::currentThread(); },
            Qt::DirectConnection);
    QSignalSpy ticks(clock, &CQThreadObjPrecisionTimer::sig_tick);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count() >= 3, 5000);
    QCOMPARE(tickThread, static_cast<QThread*>(clock));
    QVERIFY(ticks.last().at(0).toLongLong() > ticks.first().at(0).toLongLong());   // elapsed time grows
}

void TstKitThreads::stopIsIdempotentAndRestarts()
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

void TstKitThreads::uninitTwiceAndRecreate()
{
    fastClock();
    CQThreadObjPrecisionTimer::UninitInstance(true);
    CQThreadObjPrecisionTimer::UninitInstance(true);
    CQThreadObjPrecisionTimer::UninitInstance(false);
    QVERIFY(!CQThreadObjPrecisionTimer::hasInstance());
    QSignalSpy ticks(fastClock(), &CQThreadObjPrecisionTimer::sig_tick);
    QVERIFY(ticks.wait(5000));
}

void TstKitThreads::stopFromTickReceiver()
{
    // A receiver running in the clock thread that stops the clock must not
    // wait for its own thread to end.
    CQThreadObjPrecisionTimer* clock = fastClock();
    connect(clock, &CQThreadObjPrecisionTimer::sig_tick, clock, [clock]() { clock->slot_stopThread(); }, Qt::DirectConnection);
    QTRY_VERIFY_WITH_TIMEOUT(clock->isFinished(), 5000);
    clock->slot_stopThread();
}

void TstKitThreads::badIntervalRefused()
{
    CQThreadObjPrecisionTimer* clock = fastClock();
    clock->setIntervalMs(0);
    clock->setIntervalMs(-5);
    QCOMPARE(clock->intervalMs(), 20);
    clock->setIntervalMs(1);
    QCOMPARE(clock->intervalMs(), 1);
}

QTEST_GUILESS_MAIN(TstKitThreads)
#include "tst_kit_threads.moc"
