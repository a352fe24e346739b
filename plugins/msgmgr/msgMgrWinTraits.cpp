#include "msgMgrWinTraits.h"

#include "basegui_common.h"
#include "clogdebug.h"

#include <QApplication>
#include <QWindow>
#include <QtPlatformHeaders/QXcbWindowFunctions>

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrWinTraits";

Qt::WindowFlags const kNotificationFlags =
    Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;
} // namespace

MsgMgrWinInterface* MsgMgrWinTraits::liveWindow(MsgMgrWinInterface const* candidate)
{
    // QWidget is the first base of MsgMgrWinInterface, so a live window is
    // listed at the very address the sender gave.
    QWidget* const widget = basegui::Common::liveWidgetAt(candidate);
    if (!widget)
        return nullptr;
    auto* window = qobject_cast<MsgMgrWinInterface*>(widget);
    if (!window)
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrWinTraits] widget [%s] is not a MsgMgrWinInterface", widget->metaObject()->className());
    return window && window->isWindow() ? window : nullptr;
}

void MsgMgrWinTraits::prepareAsNotification(MsgMgrWinInterface* window)
{
    if ((window->windowFlags() & kNotificationFlags) != kNotificationFlags) {
        bool const wasVisible = window->isVisible();
        window->setWindowFlags(window->windowFlags() | kNotificationFlags);
        BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrWinTraits] window [%s] made a notification%s", qUtf8Printable(window->id()),
                    wasVisible ? ", hidden until placed" : "");
    }
    setX11NotificationType(window);
}

QSize MsgMgrWinTraits::sizeInLook(MsgMgrWinInterface* window, MsgMgrWinInterface::eUIType look)
{
    int const result = window->changUIType(look);
    if (result != 0)
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrWinTraits] window [%s] refused look %d (%d)", qUtf8Printable(window->id()), int(look),
                    result);
    return currentSize(window);
}

QSize MsgMgrWinTraits::currentSize(MsgMgrWinInterface* window)
{
    if (!window->testAttribute(Qt::WA_Resized))
        window->adjustSize();
    return window->size();
}

// On X11 the window type is what makes the window manager treat the pop-up as
// a notification: no taskbar entry, no focus on map, kept above. Elsewhere the
// call finds no platform function and does nothing.
void MsgMgrWinTraits::setX11NotificationType(MsgMgrWinInterface* window)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    window->winId();
    if (QWindow* handle = window->windowHandle())
        QXcbWindowFunctions::setWmWindowType(handle, QXcbWindowFunctions::Notification);
}
