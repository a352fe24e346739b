#include "asyncInvoker.h"
#include "bridgerecords.h"

#include <QFutureInterface>
#include <QSemaphore>
#include <QThreadPool>
#include <QtConcurrent>
#include <QtTest>

#include <memory>

namespace {

// What a callback saw: how often it ran and the last result.
template <typename T>
struct Seen {
    int calls = 0;
    T value{};
    static void callback(void* context, void* result)
    {
        auto* self = static_cast<Seen*>(context);
        ++self->calls;
        self->value = *static_cast<T*>(result);
    }
};

// A future driven by the test itself: nothing runs, nothing races.
template <typename T>
struct ManualFuture {
    QFutureInterface<T> iface;
    ManualFuture() { iface.reportStarted(); }
    QFuture<T> future() { return iface.future(); }
    void finish(T const& value)
    {
        iface.reportResult(value);
        iface.reportFinished();
    }
};

} // namespace

class TestAsyncInvoker : public QObject
{
    Q_OBJECT

private slots:
    void await_callsBackOnce_data();
    void await_callsBackOnce();
    void await_settingRecordIsCopied();
    void await_returnsTrueBeforeWorkStarts();
    void await_neverFinishingFutureNeverCallsBack();
    void await_runsCallbackOnCallingThread();
    void await_nullCallbackIsHarmless();

    void wait_data();
    void wait();
    void wait_keepsEventLoopRunning();
};

// Already finished: the callback runs before await returns. Not finished: it
// runs from the event loop, exactly once.
void TestAsyncInvoker::await_callsBackOnce_data()
{
    QTest::addColumn<bool>("finishedBefore");
    QTest::addColumn<bool>("result");
    QTest::newRow("finished, true") << true << true;
    QTest::newRow("finished, false") << true << false;
    QTest::newRow("pending, true") << false << true;
    QTest::newRow("pending, false") << false << false;
}

void TestAsyncInvoker::await_callsBackOnce()
{
    QFETCH(bool, finishedBefore);
    QFETCH(bool, result);
    ManualFuture<bool> work;
    if (finishedBefore)
        work.finish(result);
    QFuture<bool> future = work.future();
    Seen<bool> seen;
    seen.value = !result;

    QVERIFY(AsyncInvoker::await(future, &Seen<bool>::callback, &seen));
    QCOMPARE(seen.calls, finishedBefore ? 1 : 0);

    if (!finishedBefore)
        work.finish(result);
    QTRY_COMPARE(seen.calls, 1);
    QCOMPARE(seen.value, result);
    // Nothing is delivered twice once the watcher has gone.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(seen.calls, 1);
}

void TestAsyncInvoker::await_settingRecordIsCopied()
{
    __sSettingData stored;
    stored.key = 0;
    stored.name = QStringLiteral("_SETTING_COMMON_");
    _SETTING_COMMON_ common;
    common.closeAction = 2;
    stored.value = QVariant::fromValue(common);

    QFuture<__sSettingData> future = QtConcurrent::run([stored]() { return stored; });
    Seen<__sSettingData> seen;
    QVERIFY(AsyncInvoker::await(future, &Seen<__sSettingData>::callback, &seen));
    QTRY_COMPARE(seen.calls, 1);
    QCOMPARE(seen.value.name, stored.name);
    QCOMPARE(seen.value.value.value<_SETTING_COMMON_>().closeAction, 2);
}

void TestAsyncInvoker::await_returnsTrueBeforeWorkStarts()
{
    QThreadPool pool;
    pool.setMaxThreadCount(1);
    QSemaphore gate;
    QSemaphore running;
    // Opens the gate however the test ends, so the pool can be torn down.
    std::shared_ptr<void> opener(nullptr, [&gate](void*) { gate.release(); });
    // Occupy the only worker so that the call under test is still queued.
    QFuture<void> blocker = QtConcurrent::run(&pool, [&]() {
        running.release();
        gate.acquire();
    });
    running.acquire();

    QAtomicInt ran(0);
    QFuture<bool> queued = QtConcurrent::run(&pool, [&ran]() {
        ran.storeRelaxed(1);
        return true;
    });
    Seen<bool> seen;
    QVERIFY(AsyncInvoker::await(queued, &Seen<bool>::callback, &seen));
    QCOMPARE(ran.loadRelaxed(), 0);
    QCOMPARE(seen.calls, 0);

    opener.reset();
    QTRY_COMPARE(seen.calls, 1);
    QCOMPARE(ran.loadRelaxed(), 1);
    QCOMPARE(seen.value, true);
    blocker.waitForFinished();
}

void TestAsyncInvoker::await_neverFinishingFutureNeverCallsBack()
{
    ManualFuture<bool> work;
    QFuture<bool> future = work.future();
    Seen<bool> seen;
    QVERIFY(AsyncInvoker::await(future, &Seen<bool>::callback, &seen));
    // The watcher only reports through posted events; with all of them
    // delivered and no result, nothing may have arrived.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    QCOMPARE(seen.calls, 0);
    work.finish(true);   // lets the watcher go before `seen` goes out of scope
    QTRY_COMPARE(seen.calls, 1);
}

void TestAsyncInvoker::await_runsCallbackOnCallingThread()
{
    struct Where {
        QThread* thread = nullptr;
        static void callback(void* context, void*) { static_cast<Where*>(context)->thread = QThread::currentThread(); }
    } where;
    QFuture<bool> future = QtConcurrent::run([]() { return true; });
    AsyncInvoker::await(future, &Where::callback, &where);
    QTRY_VERIFY(where.thread != nullptr);
    QCOMPARE(where.thread, QThread::currentThread());
}

void TestAsyncInvoker::await_nullCallbackIsHarmless()
{
    ManualFuture<bool> finished;
    finished.finish(true);
    QFuture<bool> now = finished.future();
    QVERIFY(AsyncInvoker::await(now, nullptr, nullptr));

    ManualFuture<bool> later;
    QFuture<bool> pending = later.future();
    QVERIFY(AsyncInvoker::await(pending, nullptr, nullptr));
    later.finish(false);
    QCoreApplication::processEvents();
}

// wait(): finished futures return at once; 0 and negative time-outs wait until
// the work is done; a positive one that expires gives false.
void TestAsyncInvoker::wait_data()
{
    QTest::addColumn<int>("timeoutMs");
    QTest::addColumn<int>("finishAfterMs");   // -1: already finished; -2: never
    QTest::addColumn<bool>("expected");
    QTest::newRow("already finished") << 100 << -1 << true;
    QTest::newRow("no limit (0)") << 0 << 30 << true;
    QTest::newRow("no limit (-1)") << -1 << 30 << true;
    QTest::newRow("finishes in time") << 10000 << 10 << true;
    QTest::newRow("time-out expires") << 30 << -2 << false;
}

void TestAsyncInvoker::wait()
{
    QFETCH(int, timeoutMs);
    QFETCH(int, finishAfterMs);
    QFETCH(bool, expected);
    ManualFuture<int> work;
    QObject context;
    if (finishAfterMs == -1)
        work.finish(7);
    else if (finishAfterMs >= 0)
        QTimer::singleShot(finishAfterMs, &context, [&work]() { work.finish(7); });
    QFuture<int> future = work.future();

    QCOMPARE(AsyncInvoker::wait(future, timeoutMs), expected);
    QCOMPARE(future.isFinished(), expected);
    if (expected)
        QCOMPARE(future.result(), 7);
    else
        QVERIFY(future.isCanceled());   // the watcher gave up on it
}

void TestAsyncInvoker::wait_keepsEventLoopRunning()
{
    ManualFuture<int> work;
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&]() {
        if (++ticks == 3)
            work.finish(1);
    });
    ticker.start(5);
    QFuture<int> future = work.future();
    QVERIFY(AsyncInvoker::wait(future, -1));
    QCOMPARE(ticks, 3);
}

QTEST_MAIN(TestAsyncInvoker)
#include "tst_asyncInvoker.moc"
