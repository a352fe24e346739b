#include "asyncInvoker.h"

#include <QFutureInterface>
#include <QtConcurrent>
#include <QtTest>

namespace {

// What a callback saw: how often it ran, the last result and on which thread.
template <typename T>
struct Seen {
    int calls = 0;
    T value{};
    QThread* thread = nullptr;
    static void callback(void* context, void* result)
    {
        auto* self = static_cast<Seen*>(context);
        ++self->calls;
        self->value = *static_cast<T*>(result);
        self->thread = QThread::currentThread();
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
    // Already finished: the callback runs before await returns. Not finished:
    // await returns at once and the callback runs later from the event loop,
    // exactly once, on the calling thread.
    void await_callsBackOnce_data()
    {
        QTest::addColumn<bool>("finishedBefore");
        QTest::addColumn<bool>("result");
        QTest::newRow("finished, true") << true << true;
        QTest::newRow("finished, false") << true << false;
        QTest::newRow("pending, true") << false << true;
        QTest::newRow("pending, false") << false << false;
    }
    void await_callsBackOnce()
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

    void await_callsBackOnCallingThread()
    {
        QFuture<int> future = QtConcurrent::run([]() { return 7; });
        Seen<int> seen;
        AsyncInvoker::await(future, &Seen<int>::callback, &seen);
        QTRY_COMPARE(seen.calls, 1);
        QCOMPARE(seen.value, 7);
        QCOMPARE(seen.thread, QThread::currentThread());
    }

    void await_neverFinishingFutureNeverCallsBack()
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

    void await_nullCallbackIsHarmless()
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

    // Finished futures return at once; 0 and negative time-outs wait until the
    // work is done (finished by a timer: the event loop keeps running); a
    // positive one that expires gives false and gives up on the work.
    void wait_data()
    {
        QTest::addColumn<int>("timeoutMs");
        QTest::addColumn<int>("finishAfterMs");   // -1: already finished; -2: never
        QTest::newRow("already finished") << 100 << -1;
        QTest::newRow("no limit (0)") << 0 << 30;
        QTest::newRow("no limit (-1)") << -1 << 30;
        QTest::newRow("finishes in time") << 10000 << 10;
        QTest::newRow("time-out expires") << 30 << -2;
    }
    void wait()
    {
        QFETCH(int, timeoutMs);
        QFETCH(int, finishAfterMs);
        ManualFuture<int> work;
        QObject context;
        if (finishAfterMs == -1)
            work.finish(7);
        else if (finishAfterMs >= 0)
            QTimer::singleShot(finishAfterMs, &context, [&work]() { work.finish(7); });
        QFuture<int> future = work.future();
        bool const expected = finishAfterMs != -2;
        QCOMPARE(AsyncInvoker::wait(future, timeoutMs), expected);
        QCOMPARE(future.isFinished(), expected);
        if (expected)
            QCOMPARE(future.result(), 7);
        else
            QVERIFY(future.isCanceled());
    }
};

QTEST_MAIN(TestAsyncInvoker)
#include "tst_asyncInvoker.moc"
