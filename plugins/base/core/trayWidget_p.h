#pragma once

#include "trayWidget.h"
#include "trayDesktop.h"

#include <QPointer>

class MonitorButtonReleasePosThread;

class TrayWidgetPrivate
{
public:
    explicit TrayWidgetPrivate(TrayWidget* q);
    ~TrayWidgetPrivate();

    // Top-left corner of the tray menu for the menu's current size.
    void trayMenuPos(int& x, int& y);
    // The panel's side (TaskbarGeometry::eSide) and thickness as the desktop
    // reports them, or the defaults where it cannot be asked.
    int taskbarPos();
    int taskbarHeight();

    TrayWidget* q_ptr = nullptr;
    probe_sysinfo_s m_sysInfo;
    // Wayland pointer monitor; lives until the process ends once started, so
    // it is only watched here, never deleted.
    QPointer<MonitorButtonReleasePosThread> m_pMonitorThread;

private:
    QPoint waylandPointer();
};
