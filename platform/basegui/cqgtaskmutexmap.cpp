#include "cqgtaskmutexmap.h"

#include "clogdebug.h"

#include <QMutexLocker>
#include <atomic>

namespace {

char const* const kModule = "platform/basegui/cqgtaskmutexmap";

QMutex g_instanceMutex;
std::atomic<CQGTaskMutexMap*> g_instance{nullptr};

} // namespace

CQGTaskMutexMap* CQGTaskMutexMap::singleInstance()
{
    if (CQGTaskMutexMap* instance = g_instance.load(std::memory_order_acquire))
        return instance;
    QMutexLocker lock(&g_instanceMutex);
    if (!g_instance.load(std::memory_order_relaxed))
        g_instance.store(new CQGTaskMutexMap(), std::memory_order_release);
    return g_instance.load(std::memory_order_relaxed);
}

bool CQGTaskMutexMap::addTaskInfo(CQTaskInfo const& task)
{
    if (task.name.isEmpty()) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQGTaskMutexMap] task name is empty, not added");
        return false;
    }
    QMutexLocker lock(&m_mutex);
    m_tasks.insert(task.name, task);
    BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[CQGTaskMutexMap] task [%s] added, allow quit [%d]",
                qUtf8Printable(task.name), task.allowQuit ? 1 : 0);
    return true;
}

bool CQGTaskMutexMap::removeTaskInfo(QString const& name)
{
    QMutexLocker lock(&m_mutex);
    bool const removed = m_tasks.remove(name) > 0;
    if (removed)
        BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[CQGTaskMutexMap] task [%s] removed", qUtf8Printable(name));
    return removed;
}

bool CQGTaskMutexMap::isExistTaskInfo(QVector<CQTaskInfo>& tasks) const
{
    QMutexLocker lock(&m_mutex);
    tasks.reserve(tasks.size() + m_tasks.size());
    for (CQTaskInfo const& task : m_tasks)
        tasks.append(task);
    return !m_tasks.isEmpty();
}

bool CQGTaskMutexMap::contains(QString const& name) const
{
    QMutexLocker lock(&m_mutex);
    return m_tasks.contains(name);
}

int CQGTaskMutexMap::count() const
{
    QMutexLocker lock(&m_mutex);
    return m_tasks.size();
}

void CQGTaskMutexMap::clear()
{
    QMutexLocker lock(&m_mutex);
    m_tasks.clear();
}
