#pragma once

#include <QEventLoop>
#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

// Brings the answer of a bridge call that ran on the global thread pool
// (QtConcurrent::run) back to the thread that asked, usually the GUI thread:
//
//   QFuture<bool> f = QtConcurrent::run(bridge, &Bridge::isBackendReady);
//   AsyncInvoker::await(f, &onReady, this);     // callback later, never blocks
//   AsyncInvoker::wait(f, -1);                  // nested event loop until done
//
// The callback takes the caller's context and a pointer to the result; the
// result pointer is only valid during the call, so copy what you need.
class AsyncInvoker
{
public:
    using Callback = void (*)(void* context, void* result);

    // Always true. Runs the callback at once when the future has already
    // finished, else from the event loop of the calling thread once it does.
    // A future that never finishes keeps its watcher and never calls back.
    template <typename T>
    static bool await(QFuture<T>& future, Callback callback, void* context)
    {
        auto* watcher = new QFutureWatcher<T>();
        watcher->setFuture(future);
        if (future.isFinished()) {
            deliver(watcher, callback, context);
            return true;
        }
        // The watcher reports through events posted to this thread, so a
        // future that finishes right after the test above still arrives here.
        QObject::connect(watcher, &QFutureWatcherBase::finished, watcher,
                         [watcher, callback, context]() { deliver(watcher, callback, context); });
        return true;
    }

    // Whether the future has finished. Blocks the caller in a nested event
    // loop (the GUI keeps painting and every other event is handled, so the
    // caller must expect re-entry); timeoutMs <= 0 waits without limit.
    template <typename T>
    static bool wait(QFuture<T>& future, int timeoutMs)
    {
        if (future.isFinished())
            return true;
        QFutureWatcher<T> watcher;
        QEventLoop loop;
        if (timeoutMs > 0)
            QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
        QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
        watcher.setFuture(future);
        loop.exec();
        bool const finished = future.isFinished();
        if (!finished)
            watcher.cancel();
        return finished;
    }

private:
    template <typename T>
    static void deliver(QFutureWatcher<T>* watcher, Callback callback, void* context)
    {
        T result = watcher->result();
        if (callback)
            callback(context, &result);
        watcher->cancel();
        watcher->deleteLater();
    }
};
