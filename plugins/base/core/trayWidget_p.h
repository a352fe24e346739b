#pragma once

#include "trayWidget.h"

#if __has_include("probe_sysinfo.h")
#include "probe_sysinfo.h"
#define UI_BASE_HAS_PROBE_SYSINFO 1
#else
// Without the probe the tray knows no distribution and takes the defaults.
struct probe_sysinfo_s
{
    std::string os_name;
    std::string os_version;
    std::string os_arch;
    int os_type = 1;
};
#endif

#include <QPoint>
#include <QSize>

class QThread;

class TrayWidgetPrivate
{
public:
    explicit TrayWidgetPrivate(TrayWidget* q);
    ~TrayWidgetPrivate();

    // Top-left corner of the tray menu for the menu's current size.
    void trayMenuPos(int& x, int& y);

    // The menu beside the pointer, kept on the screen: centred on the pointer
    // unless that runs off the left or right edge, above it unless that runs
    // off the top.
    static QPoint placeAtCursor(QPoint const& cursor, QSize const& menu, QSize const& screen);
    // The menu in the screen corner at the panel's far end. Sides: 0 left,
    // 1 top, 2 right, 3 bottom; `thickness` is the panel's.
    static QPoint placeByPanel(int side, int thickness, QSize const& menu, QSize const& screen);

    TrayWidget* q_ptr = nullptr;
    probe_sysinfo_s m_sysInfo;
    // Wayland pointer monitor; lives until the process ends once started.
    QThread* m_pMonitorThread = nullptr;
};
