#include "cqthreadobjprecisiontimer.h"

#include "clogdebug.h"

#include <QElapsedTimer>
#include <QMutexLocker>
#include <QTimer>

namespace {

char const* const kModule = "platform/support/cqthreadobjprecisiontimer";
int const kDefaultIntervalMs = 1000;

QMutex g_instanceMutex;
CQThreadObjPrecisionTimer* g_instance = nullptr;

} // namespace

CQThreadObjPrecisionTimer::CQThreadObjPrecisionTimer(QObject* parent)
    : QThread(parent)
    , m_intervalMs(kDefaultIntervalMs)
{
    setObjectName(QStringLiteral("CQThreadObjPrecisionTimer"));
}

CQThreadObjPrecisionTimer::~CQThreadObjPrecisionTimer()
{
    // A QThread destroyed while running aborts the process.
    slot_stopThread();
    BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[CQThreadObjPrecisionTimer] delete CQThreadObjPrecisionTimer obj");
}

CQThreadObjPrecisionTimer* CQThreadObjPrecisionTimer::singleInstance()
{
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance) {
        g_instance = new CQThreadObjPrecisionTimer();
        g_instance->startThread();
    }
    return g_instance;
}

void CQThreadObjPrecisionTimer::UninitInstance(bool now)
{
    CQThreadObjPrecisionTimer* instance = nullptr;
    {
        QMutexLocker lock(&g_instanceMutex);
        instance = g_instance;
        g_instance = nullptr;
    }
    if (!instance)
        return;
    instance->slot_stopThread();
    if (now)
        delete instance;
    else
        instance->deleteLater();
}

bool CQThreadObjPrecisionTimer::hasInstance()
{
    QMutexLocker lock(&g_instanceMutex);
    return g_instance != nullptr;
}

int CQThreadObjPrecisionTimer::intervalMs() const
{
    return m_intervalMs.loadRelaxed();
}

void CQThreadObjPrecisionTimer::setIntervalMs(int ms)
{
    if (ms < 1) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQThreadObjPrecisionTimer] bad interval [%d], kept [%d]", ms,
                    intervalMs());
        return;
    }
    m_intervalMs.storeRelaxed(ms);
    QMutexLocker lock(&m_timerMutex);
    if (m_timer) {
        // The timer belongs to the clock thread; change it there.
        QTimer* timer = m_timer;
        QMetaObject::invokeMethod(timer, [timer, ms]() { timer->setInterval(ms); }, Qt::QueuedConnection);
    }
}

void CQThreadObjPrecisionTimer::startThread()
{
    if (isRunning())
        return;
    start();
    BFLogPrintX(BFLOG_INFO, kModule, __FUNCTION__, __LINE__, "[CQThreadObjPrecisionTimer] clock started, interval [%d] ms", intervalMs());
}

void CQThreadObjPrecisionTimer::slot_stopThread()
{
    if (!isRunning())
        return;
    quit();
    // Called from a tick receiver in the clock thread itself: waiting there
    // would wait forever; the loop ends when that receiver returns.
    if (QThread::currentThread() != this) {
        wait();
        BFLogPrintX(BFLOG_INFO, kModule, __FUNCTION__, __LINE__, "[CQThreadObjPrecisionTimer] clock stopped");
    }
}

void CQThreadObjPrecisionTimer::run()
{
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(intervalMs());
    QElapsedTimer clock;
    clock.start();
    connect(&timer, &QTimer::timeout, &timer, [this, &clock]() { emit sig_tick(clock.elapsed()); });
    {
        QMutexLocker lock(&m_timerMutex);
        m_timer = &timer;
    }
    timer.start();
    exec();
    QMutexLocker lock(&m_timerMutex);
    m_timer = nullptr;
}
