#pragma once

#include "basegui_global.h"

#include <QMap>
#include <QMutex>
#include <QString>
#include <QVector>
#include <functional>

// A running task that may forbid quitting the client.
struct CQTaskInfo
{
    QString name;
    QString title = QString::fromUtf8("退出提示");
    QString text;
    std::function<bool()> action;
    bool allowQuit = true;
};

// Process-wide registry of running tasks, keyed by name; thread-safe.
// Workers register while they run and remove themselves when done; the quit
// flow reads a snapshot, so no lock is held while a task's action runs.
class BASEGUI_EXPORT CQGTaskMutexMap
{
public:
    static CQGTaskMutexMap* singleInstance();

    // Adds or replaces the task under task.name; false for an empty name.
    bool addTaskInfo(CQTaskInfo const& task);
    bool removeTaskInfo(QString const& name);
    // Fills `tasks` (appended, in name order) and returns whether there is any.
    bool isExistTaskInfo(QVector<CQTaskInfo>& tasks) const;
    bool contains(QString const& name) const;
    int count() const;
    void clear();

private:
    CQGTaskMutexMap() = default;
    mutable QMutex m_mutex;
    QMap<QString, CQTaskInfo> m_tasks;
};
