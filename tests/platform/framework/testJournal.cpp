#include "testJournal.h"

#include <QMutex>
#include <QMutexLocker>

namespace {

QMutex g_mutex;
QStringList g_lines;

} // namespace

void TestJournal::append(QString const& line)
{
    QMutexLocker lock(&g_mutex);
    g_lines.append(line);
}

QStringList TestJournal::lines()
{
    QMutexLocker lock(&g_mutex);
    return g_lines;
}

int TestJournal::count(QString const& line)
{
    QMutexLocker lock(&g_mutex);
    return g_lines.count(line);
}

void TestJournal::clear()
{
    QMutexLocker lock(&g_mutex);
    g_lines.clear();
}
