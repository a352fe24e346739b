#pragma once

#include <QObject>
#include <QString>

// What the Deepin desktop offers the tray on the session bus, served by the
// test: the dock's Position and WindowSizeEfficient properties under
// "com.deepin.dde.daemon.Dock", and the Wayland daemon
// "com.deepin.daemon.KWayland" with its ButtonPress signal. dbus-send and
// busctl reach it as they would reach the real desktop.
class DeepinDesktopService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.deepin.dde.daemon.Dock")
    Q_PROPERTY(int Position READ position)
    Q_PROPERTY(uint WindowSizeEfficient READ windowSizeEfficient)

public:
    // Connects to the bus at `address` under a connection of its own.
    explicit DeepinDesktopService(QString const& address);
    ~DeepinDesktopService() override;

    // Takes both names and exports the dock; false if the bus refuses.
    bool serve();

    // Dock values: Position 0 top, 1 right, 2 bottom, 3 left.
    void setDock(int position, uint thickness);
    int position() const;
    uint windowSizeEfficient() const;

    // The daemon's signal for a mouse button pressed at (x, y).
    bool emitButtonPress(uint button, uint x, uint y);

private:
    QString m_connectionName;
    int m_position = 2;
    uint m_thickness = 40;
};
