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
    // await returns at once and the callback runs from the event loop once the
    // work is done (never before, whatever events are delivered), exactly
    // once. A null callback is allowed.
    void await_data()
    {
        QTest::addColumn<bool>("finishedBefore");
        QTest::addColumn<bool>("result");
        QTest::addColumn<bool>("callback");
        QTest::newRow("finished, true") << true << true << true;
        QTest::newRow("finished, false") << true << false << true;
        QTest::newRow("pending, true") << false << true << true;
        QTest::newRow("pending, false") << false << false << true;
        QTest::newRow("finished, no callback") << true << true << false;
        QTest::newRow("pending, no callback") << false << true << false;
    }
    void await()
    {
        QFETCH(bool, finishedBefore);
        QFETCH(bool, result);
        QFETCH(bool, callback);
        ManualFuture<bool> work;
        if (finishedBefore)
            work.finish(result);
        QFuture<bool> future = work.future();
        Seen<bool> seen;
        seen.value = !result;
        QVERIFY(AsyncInvoker::await(future, callback ? &Seen<bool>::callback : nullptr, callback ? &seen : nullptr));
        int const early = finishedBefore && callback ? 1 : 0;
        QCOMPARE(seen.calls, early);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCOMPARE(seen.calls, early);
        if (!finishedBefore)
            work.finish(result);
        QTRY_COMPARE(seen.calls, callback ? 1 : 0);
        QCOMPARE(seen.value, callback ? result : !result);
        // Nothing is delivered twice once the watcher has gone.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        QCOMPARE(seen.calls, callback ? 1 : 0);
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
