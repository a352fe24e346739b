#pragma once

#include "support_global.h"

#include <QAtomicInt>
#include <QMutex>
#include <QThread>

class QTimer;

// Process-wide clock thread: a precise periodic timer (1 s unless set
// otherwise) running in a thread of its own, so that a busy GUI thread neither
// delays nor bunches the ticks. Each tick emits sig_tick with the milliseconds
// since the clock started; receivers in other threads get it queued.
//
// singleInstance() creates the thread and starts it; slot_stopThread() ends it
// and waits for it; UninitInstance() stops and releases it. Stopping twice, or
// stopping a thread that never ran, is harmless.
class SUPPORT_EXPORT CQThreadObjPrecisionTimer : public QThread
{
    Q_OBJECT
public:
    static CQThreadObjPrecisionTimer* singleInstance();
    static void UninitInstance(bool now = true);
    static bool hasInstance();

    int intervalMs() const;
    // Takes effect at once when the clock runs; values below 1 ms are refused.
    void setIntervalMs(int ms);
    // Starts the clock again after slot_stopThread(); no-op while it runs.
    void startThread();

public slots:
    void slot_stopThread();

signals:
    void sig_tick(qint64 elapsedMs);

protected:
    void run() override;

private:
    explicit CQThreadObjPrecisionTimer(QObject* parent = nullptr);
    ~CQThreadObjPrecisionTimer() override;

    QAtomicInt m_intervalMs;
    QMutex m_timerMutex;
    QTimer* m_timer = nullptr;  // lives on run()'s stack, guarded by m_timerMutex
};
