#include "hostUnderTest.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace {

int const kStartTimeoutMs = 30000;
int const kExitTimeoutMs = 10000;

QByteArray readProc(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The parent pid in /proc/<pid>/stat: the fourth field, after the command
// name in parentheses (which may itself hold blanks).
qint64 parentOf(QString const& pid)
{
    QByteArray const stat = readProc(QStringLiteral("/proc/%1/stat").arg(pid));
    int const close = stat.lastIndexOf(')');
    QList<QByteArray> const fields = stat.mid(close + 2).split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() : -1;
}

} // namespace

QString HostUnderTest::buildRoot()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT));
}

HostUnderTest::HostUnderTest()
{
    // The client's own children fall to the test when the client dies, so
    // that they are reaped here instead of lingering as zombies.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

HostUnderTest::~HostUnderTest()
{
    kill();
}

QProcessEnvironment HostUnderTest::environment(QString const& display, QString const& busAddress)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (char const* name : {"WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "QUORIX_EXIT_PASSWORD", "QUORIX_PROBE_ROOT",
                             "QUORIX_GUI_CONFIG", "GSETTINGS_BACKEND", "GSETTINGS_SCHEMA_DIR"})
        env.remove(QLatin1String(name));
    env.insert(QStringLiteral("DISPLAY"), display);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
    env.insert(QStringLiteral("QUORIX_LOG_STDERR"), QStringLiteral("0"));
    env.insert(QStringLiteral("QUORIX_ROOT"), buildRoot());
    return env;
}

bool HostUnderTest::start(QProcessEnvironment env)
{
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_dir.filePath(QStringLiteral("quorix-gui.log")));
    env.insert(QStringLiteral("QUORIX_CONFIG_DIR"), m_dir.filePath(QStringLiteral("config")));
    // The client's lock and hand-over socket live there: a folder of its own
    // keeps it clear of any other client of this user.
    QString const runtime = m_dir.filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    m_process.setProcessEnvironment(env);
    m_process.start(buildRoot() + QStringLiteral("/bin/quorix-gui"), {QStringLiteral("--silent")});
    if (!m_process.waitForStarted(kExitTimeoutMs))
        return false;
    return QTest::qWaitFor([this]() { return log().contains(QStringLiteral("plugins loaded from")); },
                           kStartTimeoutMs);
}

QString HostUnderTest::log() const
{
    return QString::fromUtf8(readProc(m_dir.filePath(QStringLiteral("quorix-gui.log"))));
}

int HostUnderTest::logCount(QString const& text) const
{
    return log().count(text);
}

QProcess& HostUnderTest::process()
{
    return m_process;
}

QList<qint64> HostUnderTest::children(QString const& program) const
{
    QList<qint64> pids;
    qint64 const host = m_process.processId();
    if (host <= 0)
        return pids;
    QStringList const entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (QString const& entry : entries) {
        bool isPid = false;
        qint64 const pid = entry.toLongLong(&isPid);
        if (!isPid || parentOf(entry) != host)
            continue;
        if (readProc(QStringLiteral("/proc/%1/comm").arg(entry)).trimmed() == program.toLocal8Bit())
            pids << pid;
    }
    return pids;
}

void HostUnderTest::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    // Once the client is gone its children belong to init and can no longer
    // be told apart: collect them first.
    QList<qint64> const helpers = children(QStringLiteral("busctl"));
    m_process.kill();
    m_process.waitForFinished(kExitTimeoutMs);
    for (qint64 pid : helpers) {
        ::kill(pid_t(pid), SIGKILL);
        ::waitpid(pid_t(pid), nullptr, 0);
    }
}
