#pragma once

// Helpers shared by the probe tests: system trees built in temporary folders,
// the real release-file trees of the test data, and the cache files.

#include "probe_sysinfo.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QMetaType>

#include <unistd.h>

// Relative path ("etc/os-release") -> content.
using ProbeTree = QMap<QString, QByteArray>;
Q_DECLARE_METATYPE(ProbeTree)

namespace probetest {

inline QString etc(char const* name)
{
    return QStringLiteral("etc/") + QLatin1String(name);
}

inline bool writeFile(QString const& path, QByteArray const& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
}

inline QByteArray readFile(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The folder of real release-file trees, one distribution per sub-folder.
inline QString releaseFilesDir()
{
    return qEnvironmentVariable("QUORIX_TESTDATA") + QStringLiteral("/release-files");
}

// The real tree `name` copied to `to`, with or without its os-release.
inline bool copyRealTree(QString const& name, QString const& to, bool withOsRelease = true)
{
    QString const from = releaseFilesDir() + QLatin1Char('/') + name;
    QDirIterator it(from, QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QString const relative = QDir(from).relativeFilePath(it.next());
        bool const wanted = withOsRelease || relative != etc("os-release");
        if (wanted && !writeFile(to + QLatin1Char('/') + relative, readFile(it.filePath())))
            return false;
    }
    return QFileInfo(from).isDir();
}

// `line` with "ARCH" replaced by this machine's architecture.
inline QByteArray withArch(QByteArray line)
{
    return line.replace("ARCH", QByteArray::fromStdString(CProbeSysInfo::getArch()));
}

inline QByteArray lineOf(int result, probe_sysinfo_s const& info)
{
    return QByteArray::fromStdString(
        CProbeSysInfo::cacheLine(result, info.os_name, info.os_version, info.os_arch, info.os_type));
}

inline QByteArray probeLine(QString const& root)
{
    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, root.toUtf8().constData());
    return lineOf(result, info);
}

// True when the cache file at `path` is ours to check (absent, or written by us).
inline bool cacheFileIsOurs(QString const& path)
{
    QFileInfo const info(path);
    return !info.exists() || info.ownerId() == ::getuid();
}

// Puts an `rpm` first on PATH that answers the VERSION|RELEASE queries with
// $FAKE_RPM_KYLINSEC_RELEASE / $FAKE_RPM_KYLIN_RELEASE (nothing when unset) and
// appends "LC_ALL arguments" of each call to $FAKE_RPM_LOG, so KylinSec probes
// behave the same whether or not the machine has rpm.
inline bool installFakeRpm(QString const& dir)
{
    QString const script = dir + QStringLiteral("/rpm");
    if (!writeFile(script, "#!/bin/sh\n"
                           "[ -n \"$FAKE_RPM_LOG\" ] && printf '%s %s\\n' \"$LC_ALL\" \"$*\" >> \"$FAKE_RPM_LOG\"\n"
                           "for last; do :; done\n"
                           "case \"$last\" in\n"
                           "  kylinsec-release) printf '%s' \"$FAKE_RPM_KYLINSEC_RELEASE\" ;;\n"
                           "  kylin-release) printf '%s' \"$FAKE_RPM_KYLIN_RELEASE\" ;;\n"
                           "esac\n"))
        return false;
    QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("PATH", (dir + QLatin1Char(':')).toLocal8Bit() + qgetenv("PATH"));
    return true;
}

} // namespace probetest
