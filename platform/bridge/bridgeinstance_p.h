#pragma once

// Storage of one bridge singleton. Not part of the library's interface.

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QThread>
#include <QVector>

#include <utility>

template <typename T>
class BridgeInstance
{
public:
    // The instance, made with `create` on first use. Bridges live on the GUI
    // thread even when a pool thread asks first, so their queued emissions run there.
    template <typename Create>
    T* get(Create create)
    {
        QMutexLocker lock(&m_mutex);
        if (!m_instance) {
            m_instance = create();
            if (QCoreApplication* app = QCoreApplication::instance(); app && m_instance->thread() != app->thread())
                m_instance->moveToThread(app->thread());
        }
        return m_instance;
    }

    // Forgets the instance at once (a later get() makes a new one) and deletes
    // it now or from the event loop.
    void release(bool now)
    {
        T* instance = nullptr;
        {
            QMutexLocker lock(&m_mutex);
            instance = m_instance;
            m_instance = nullptr;
        }
        if (!instance)
            return;
        // Through QObject: the bridges' own destructors are protected.
        if (now)
            delete static_cast<QObject*>(instance);
        else
            instance->deleteLater();
    }

    // From the destructor: an instance deleted by anybody is never handed out again.
    void forget(T* instance)
    {
        QMutexLocker lock(&m_mutex);
        if (m_instance == instance)
            m_instance = nullptr;
    }

private:
    QMutex m_mutex;
    T* m_instance = nullptr;
};

// Runs `work` on the bridge's thread from the event loop: a bridge never emits
// inside the call that asked for the data. Dropped if the bridge dies first.
template <typename Work>
void postToBridge(QObject* bridge, Work work)
{
    QMetaObject::invokeMethod(bridge, std::move(work), Qt::QueuedConnection);
}

inline void dropBackendLinks(QVector<QMetaObject::Connection>& links)
{
    for (QMetaObject::Connection const& link : qAsConst(links))
        QObject::disconnect(link);
    links.clear();
}
