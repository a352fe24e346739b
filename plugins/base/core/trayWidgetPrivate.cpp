// TrayWidgetPrivate: where the tray menu opens, and what the desktop's panel
// says about its own side and thickness.

#include "trayWidget_p.h"

#include "clogdebug.h"
#include "menuWidget.h"
#include "monitorButtonReleasePosThread.h"
#include "taskbarGeometry.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
} // namespace

TrayWidgetPrivate::TrayWidgetPrivate(TrayWidget* q)
    : q_ptr(q)
{
}

TrayWidgetPrivate::~TrayWidgetPrivate()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[TrayWidgetPrivate] delete TrayWidgetPrivate obj");
}

int TrayWidgetPrivate::taskbarPos()
{
    TaskbarGeometry::eSource const source = TaskbarGeometry::sourceFor(m_sysInfo.os_name);
    if (source == TaskbarGeometry::ESOURCE_NONE) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "不支持本系统查找状态栏位置，使用默认值 %d",
                    TaskbarGeometry::kDefaultSide);
        return TaskbarGeometry::kDefaultSide;
    }
    bool const dock = source == TaskbarGeometry::ESOURCE_DEEPIN_DOCK;
    std::string const output =
        dock ? TrayDesktop::deepinDockProperty("Position") : TrayDesktop::ukuiPanelSetting("panelposition");
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "taskbarPos cmd result = %s", output.c_str());
    return dock ? TaskbarGeometry::dockSide(output) : TaskbarGeometry::ukuiSide(output);
}

int TrayWidgetPrivate::taskbarHeight()
{
    TaskbarGeometry::eSource const source = TaskbarGeometry::sourceFor(m_sysInfo.os_name);
    if (source == TaskbarGeometry::ESOURCE_NONE) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__, "不支持本系统查找状态栏高度，使用默认值 %d",
                    TaskbarGeometry::kDefaultThickness);
        return TaskbarGeometry::kDefaultThickness;
    }
    std::string const output = source == TaskbarGeometry::ESOURCE_DEEPIN_DOCK
                                   ? TrayDesktop::deepinDockProperty("WindowSizeEfficient")
                                   : TrayDesktop::ukuiPanelSetting("panelsize");
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "TaskBarHeight result = %s", output.c_str());
    return TaskbarGeometry::thickness(output);
}

QPoint TrayWidgetPrivate::waylandPointer()
{
    QPoint pos(0, 0);
    if (m_pMonitorThread)
        pos = m_pMonitorThread->getLastButtonReleasePos();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] first pt = %d, %d", pos.x(), pos.y());
    // Wayland compositors hand a client no global pointer; where the cursor
    // does read, it is still better than the panel's corner.
    if (pos.x() == 0 || pos.y() == 0) {
        pos = QCursor::pos();
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayWidget] second QCursor::pos = %d, %d",
                    pos.x(), pos.y());
    }
    return pos;
}

void TrayWidgetPrivate::trayMenuPos(int& x, int& y)
{
    QScreen const* primary = QGuiApplication::primaryScreen();
    QSize const screen = primary ? primary->geometry().size() : QSize();
    QSize const menu = q_ptr->m_pMenu ? q_ptr->m_pMenu->size() : QSize();
    QPoint pos;
    if (q_ptr->m_nDisplayProtocol != TrayWidget::EDISPLAY_WAYLAND) {
        pos = TaskbarGeometry::placeAtCursor(QCursor::pos(), menu, screen);
    } else {
        QPoint const pointer = waylandPointer();
        // A coordinate of exactly 0 is what "no position" looks like here, so
        // a click on the screen's very edge also ends up at the panel.
        if (pointer.x() != 0 && pointer.y() != 0) {
            pos = TaskbarGeometry::placeAtCursor(pointer, menu, screen);
        } else {
            int const side = taskbarPos();
            BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "TaskBarPos result = %d", side);
            int const thickness = taskbarHeight();
            BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "TaskBarHeight height = %d", thickness);
            pos = TaskbarGeometry::placeByPanel(side, thickness, menu, screen);
        }
    }
    x = pos.x();
    y = pos.y();
}
