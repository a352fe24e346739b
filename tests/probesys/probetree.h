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
#include <QString>

#include <unistd.h>

// Relative path ("etc/os-release") -> content.
using ProbeTree = QMap<QString, QByteArray>;
Q_DECLARE_METATYPE(ProbeTree)

namespace probetest {

inline bool writeFile(QString const& path, QByteArray const& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
}

inline bool writeTree(QString const& root, ProbeTree const& tree)
{
    for (auto it = tree.cbegin(); it != tree.cend(); ++it) {
        if (!writeFile(root + QLatin1Char('/') + it.key(), it.value()))
            return false;
    }
    return true;
}

// Copies every file of `from` to `to`, leaving out the relative paths in `skip`.
inline bool copyTree(QString const& from, QString const& to, QStringList const& skip = {})
{
    QDir const source(from);
    QDirIterator it(from, QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QString const path = it.next();
        QString const relative = source.relativeFilePath(path);
        if (skip.contains(relative))
            continue;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) || !writeFile(to + QLatin1Char('/') + relative, file.readAll()))
            return false;
    }
    return true;
}

// The folder of real release-file trees, one distribution per sub-folder.
inline QString releaseFilesDir()
{
    return qEnvironmentVariable("QUORIX_TESTDATA") + QStringLiteral("/release-files");
}

// `line` with "ARCH" replaced by this machine's architecture.
inline QByteArray withArch(QByteArray line)
{
    return line.replace("ARCH", QByteArray::fromStdString(CProbeSysInfo::getArch()));
}

inline QByteArray readFile(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QByteArray lineOf(int result, probe_sysinfo_s const& info)
{
    return QByteArray::fromStdString(
        CProbeSysInfo::cacheLine(result, info.os_name, info.os_version, info.os_arch, info.os_type));
}

// True when the cache file at `path` is ours to check (absent, or written by us).
inline bool cacheFileIsOurs(char const* path)
{
    QFileInfo const info(QString::fromLatin1(path));
    return !info.exists() || info.ownerId() == ::getuid();
}

// Puts an `rpm` first on PATH that answers the VERSION|RELEASE queries with
// $FAKE_RPM_KYLINSEC_RELEASE / $FAKE_RPM_KYLIN_RELEASE (nothing when unset) and
// appends "LC_ALL arguments" of each call to $FAKE_RPM_LOG, so KylinSec probes
// behave the same whether or not the machine has rpm.
inline bool installFakeRpm(QString const& dir)
{
    QString const script = dir + QStringLiteral("/rpm");
    QByteArray const body = "#!/bin/sh\n"
                            "[ -n \"$FAKE_RPM_LOG\" ] && printf '%s %s\\n' \"$LC_ALL\" \"$*\" >> \"$FAKE_RPM_LOG\"\n"
                            "for last; do :; done\n"
                            "case \"$last\" in\n"
                            "  kylinsec-release) printf '%s' \"$FAKE_RPM_KYLINSEC_RELEASE\" ;;\n"
                            "  kylin-release) printf '%s' \"$FAKE_RPM_KYLIN_RELEASE\" ;;\n"
                            "esac\n";
    if (!writeFile(script, body))
        return false;
    QFile::setPermissions(script, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("PATH", (dir + QLatin1Char(':')).toLocal8Bit() + qgetenv("PATH"));
    return true;
}

} // namespace probetest
