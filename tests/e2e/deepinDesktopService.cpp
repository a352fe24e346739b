#include "deepinDesktopService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QUuid>

namespace {
QString const kDockName = QStringLiteral("com.deepin.dde.daemon.Dock");
QString const kDockPath = QStringLiteral("/com/deepin/dde/daemon/Dock");
QString const kKWaylandName = QStringLiteral("com.deepin.daemon.KWayland");
QString const kOutputPath = QStringLiteral("/com/deepin/daemon/KWayland/Output");
QString const kOutputInterface = QStringLiteral("com.deepin.daemon.KWayland.Output");
} // namespace

DeepinDesktopService::DeepinDesktopService(QString const& address)
    : m_connectionName(QStringLiteral("deepin-desktop-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    QDBusConnection::connectToBus(address, m_connectionName);
}

DeepinDesktopService::~DeepinDesktopService()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool DeepinDesktopService::serve()
{
    QDBusConnection bus(m_connectionName);
    return bus.isConnected() && bus.registerService(kDockName) && bus.registerService(kKWaylandName) &&
           bus.registerObject(kDockPath, this, QDBusConnection::ExportAllProperties);
}

void DeepinDesktopService::setDock(int position, uint thickness)
{
    m_position = position;
    m_thickness = thickness;
}

int DeepinDesktopService::position() const
{
    return m_position;
}

uint DeepinDesktopService::windowSizeEfficient() const
{
    return m_thickness;
}

bool DeepinDesktopService::emitButtonPress(uint button, uint x, uint y)
{
    QDBusMessage signal = QDBusMessage::createSignal(kOutputPath, kOutputInterface, QStringLiteral("ButtonPress"));
    signal << button << x << y;
    return QDBusConnection(m_connectionName).send(signal);
}
