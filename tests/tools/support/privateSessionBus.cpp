#include "privateSessionBus.h"

namespace {

int const kDaemonTimeoutMs = 10000;

} // namespace

QString PrivateSessionBus::deadAddress()
{
    return QStringLiteral("unix:path=/nonexistent/quorix-test/no-bus-here");
}

PrivateSessionBus::PrivateSessionBus()
{
    m_daemon.setProcessChannelMode(QProcess::SeparateChannels);
    m_daemon.setReadChannel(QProcess::StandardOutput);
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    if (!m_daemon.waitForStarted(kDaemonTimeoutMs))
        return;
    // The daemon prints its address once it listens.
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(kDaemonTimeoutMs)) {
    }
    m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
}

PrivateSessionBus::~PrivateSessionBus()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished(kDaemonTimeoutMs);
}

QString PrivateSessionBus::address() const
{
    return m_address;
}

bool PrivateSessionBus::isUp() const
{
    return !m_address.isEmpty() && m_daemon.state() == QProcess::Running;
}

QProcessEnvironment PrivateSessionBus::environment(QString const& address, QProcessEnvironment base)
{
    base.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    return base;
}
