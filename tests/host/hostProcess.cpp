#include "hostProcess.h"

#include <QDir>
#include <QFile>

HostProcess::HostProcess(QString const& dir)
    : env(QProcessEnvironment::systemEnvironment())
    , runtimeDir(dir + QStringLiteral("/runtime"))
    , m_dir(dir)
{
    QDir().mkpath(runtimeDir);
    QFile::setPermissions(runtimeDir, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDir);
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_dir + QStringLiteral("/quorix-gui.log"));
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
    env.insert(QStringLiteral("QUORIX_LOG_STDERR"), QStringLiteral("0"));
    env.insert(QStringLiteral("QUORIX_CONFIG_DIR"), m_dir + QStringLiteral("/config"));
    env.remove(QStringLiteral("QUORIX_EXIT_PASSWORD"));
}

HostProcess::~HostProcess()
{
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(kExitTimeoutMs);
    }
}

QString HostProcess::buildRoot()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT));
}

bool HostProcess::start(QStringList const& arguments, QString const& root)
{
    QProcessEnvironment withRoot = env;
    withRoot.insert(QStringLiteral("QUORIX_ROOT"), root.isEmpty() ? buildRoot() : root);
    process.setProcessEnvironment(withRoot);
    process.start(buildRoot() + QStringLiteral("/bin/quorix-gui"), arguments);
    return process.waitForStarted(kExitTimeoutMs);
}

int HostProcess::waitForExit()
{
    bool const exited = process.waitForFinished(kExitTimeoutMs) && process.exitStatus() == QProcess::NormalExit;
    return exited ? process.exitCode() : -1;
}

QString HostProcess::log() const
{
    QFile file(m_dir + QStringLiteral("/quorix-gui.log"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
