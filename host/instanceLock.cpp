#include "instanceLock.h"

#include "clogdebug.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QSysInfo>
#include <QThread>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char const* const kModule = "host/instanceLock";
int const kPollMs = 10;

} // namespace

InstanceLock::InstanceLock(QString path)
    : m_path(std::move(path))
{
}

InstanceLock::~InstanceLock()
{
    unlock();
}

QString InstanceLock::path() const
{
    return m_path;
}

QString InstanceLock::errorString() const
{
    return m_error;
}

bool InstanceLock::isLocked() const
{
    return m_fd >= 0;
}

InstanceLock::eResult InstanceLock::tryLock(int timeoutMs)
{
    if (isLocked())
        return LOCK_TAKEN;
    QDeadlineTimer const deadline(timeoutMs);
    for (;;) {
        eResult const result = attempt();
        if (result != LOCK_BUSY || deadline.hasExpired())
            return result;
        QThread::msleep(static_cast<unsigned long>(qBound<qint64>(1, deadline.remainingTime(), kPollMs)));
    }
}

InstanceLock::eResult InstanceLock::attempt()
{
    QByteArray const native = QFile::encodeName(m_path);
    // A link in the runtime folder must not lead the lock elsewhere.
    int const fd = ::open(native.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        return LOCK_ERROR;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        bool const busy = errno == EWOULDBLOCK;
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        ::close(fd);
        return busy ? LOCK_BUSY : LOCK_ERROR;
    }
    if (!stillNamed(fd)) {
        // Its owner unlocked and removed it between our open and our lock.
        ::close(fd);
        return LOCK_BUSY;
    }
    struct stat info {};
    if (::fstat(fd, &info) == 0 && info.st_size > 0)
        BFLOG(BFLOG_WARN, kModule, "[InstanceLock] stale instance lock taken over [%s]", native.constData());
    m_fd = fd;
    writeOwner();
    return LOCK_TAKEN;
}

bool InstanceLock::stillNamed(int fd) const
{
    struct stat opened {};
    struct stat named {};
    return ::fstat(fd, &opened) == 0 && ::lstat(QFile::encodeName(m_path).constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

void InstanceLock::writeOwner()
{
    QByteArray const owner = QByteArray::number(static_cast<qint64>(::getpid())) + '\n'
        + QCoreApplication::applicationName().toUtf8() + '\n' + QSysInfo::machineHostName().toUtf8() + '\n';
    bool const written = ::ftruncate(m_fd, 0) == 0
        && ::pwrite(m_fd, owner.constData(), static_cast<size_t>(owner.size()), 0) == owner.size();
    if (!written)
        BFLOG(BFLOG_DEBUG, kModule, "[InstanceLock] owner not written to [%s]", qUtf8Printable(m_path));
}

void InstanceLock::unlock()
{
    if (m_fd < 0)
        return;
    // Still holding the lock: nobody can take the file over while it goes.
    ::unlink(QFile::encodeName(m_path).constData());
    ::close(m_fd);
    m_fd = -1;
}
