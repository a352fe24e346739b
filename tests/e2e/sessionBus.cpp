#include "sessionBus.h"

namespace {
int const kDaemonTimeoutMs = 10000;
} // namespace

QString SessionBus::deadAddress()
{
    return QStringLiteral("unix:path=/nonexistent/quorix-e2e/no-bus-here");
}

SessionBus::SessionBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    if (!m_daemon.waitForStarted(kDaemonTimeoutMs))
        return;
    // The daemon prints its address once it listens.
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(kDaemonTimeoutMs)) {
    }
    m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
}

SessionBus::~SessionBus()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished(kDaemonTimeoutMs);
}

QString SessionBus::address() const
{
    return m_daemon.state() == QProcess::Running ? m_address : QString();
}
