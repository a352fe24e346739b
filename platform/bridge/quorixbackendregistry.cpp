#include "quorixbackendregistry.h"

#include "simulatedbackend.h"

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QThread>

namespace {

QMutex g_mutex;
std::shared_ptr<QuorixBackend> g_backend;

// The last holder may be a pool thread; a QObject must die on its own thread.
void destroyBackend(QuorixBackend* backend)
{
    if (!backend)
        return;
    if (backend->thread() == QThread::currentThread() || !QCoreApplication::instance())
        delete backend;
    else
        backend->deleteLater();
}

std::shared_ptr<QuorixBackend> makeDefault()
{
    auto* backend = new SimulatedBackend;
    if (QCoreApplication* app = QCoreApplication::instance(); app && backend->thread() != app->thread())
        backend->moveToThread(app->thread());
    return std::shared_ptr<QuorixBackend>(backend, destroyBackend);
}

} // namespace

QuorixBackendRegistry* QuorixBackendRegistry::singleInstance()
{
    // Deliberately leaked: bridges may still look it up from static teardown.
    static QuorixBackendRegistry* registry = [] {
        auto* created = new QuorixBackendRegistry;
        if (QCoreApplication* app = QCoreApplication::instance(); app && created->thread() != app->thread())
            created->moveToThread(app->thread());
        return created;
    }();
    return registry;
}

std::shared_ptr<QuorixBackend> QuorixBackendRegistry::backend()
{
    QMutexLocker lock(&g_mutex);
    if (!g_backend)
        g_backend = makeDefault();
    return g_backend;
}

void QuorixBackendRegistry::setBackend(std::shared_ptr<QuorixBackend> backend)
{
    std::shared_ptr<QuorixBackend> previous;
    {
        QMutexLocker lock(&g_mutex);
        previous = std::move(g_backend);
        g_backend = std::move(backend);
    }
    emit singleInstance()->sig_backendChanged();
    // `previous` is released here, outside the lock: its destructor may run code.
}
