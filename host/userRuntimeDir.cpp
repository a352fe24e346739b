#include "userRuntimeDir.h"

#include "clogdebug.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char const* const kModule = "host/userRuntimeDir";

} // namespace

QString UserRuntimeDir::path(QString const& fallbackParent)
{
    QString const xdg = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (isPrivate(xdg))
        return xdg;
    if (!xdg.isEmpty())
        BFLOG(BFLOG_WARN, kModule, "[UserRuntimeDir] XDG_RUNTIME_DIR [%s] is not a private folder of this user, not used",
              qUtf8Printable(xdg));
    QString const fallback = QStringLiteral("%1/quorix-%2").arg(fallbackParent).arg(::geteuid());
    return makePrivate(fallback) ? fallback : QString();
}

bool UserRuntimeDir::isPrivate(QString const& dir)
{
    if (!dir.startsWith(QLatin1Char('/')))
        return false;
    struct stat info {};
    if (::stat(QFile::encodeName(dir).constData(), &info) != 0)
        return false;
    return S_ISDIR(info.st_mode) && info.st_uid == ::geteuid() && (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

bool UserRuntimeDir::makePrivate(QString const& dir)
{
    QByteArray const native = QFile::encodeName(dir);
    if (::mkdir(native.constData(), S_IRWXU) != 0 && errno != EEXIST) {
        BFLOG(BFLOG_ERROR, kModule, "[UserRuntimeDir] cannot create [%s]: %s", native.constData(), std::strerror(errno));
        return false;
    }
    // lstat: a link planted under the shared /tmp must not lead us elsewhere.
    struct stat info {};
    if (::lstat(native.constData(), &info) != 0 || !S_ISDIR(info.st_mode) || info.st_uid != ::geteuid()) {
        BFLOG(BFLOG_ERROR, kModule, "[UserRuntimeDir] [%s] is not a folder of this user, refused", native.constData());
        return false;
    }
    if ((info.st_mode & (S_IRWXG | S_IRWXO)) != 0 && ::chmod(native.constData(), S_IRWXU) != 0) {
        BFLOG(BFLOG_ERROR, kModule, "[UserRuntimeDir] cannot make [%s] private: %s", native.constData(), std::strerror(errno));
        return false;
    }
    return true;
}
