#pragma once

#include "controlrequestcheck.h"

// The session-bus interface through which quorix-ctl, tests and support staff
// raise backend events in a running client. The service lives in the bridge
// plugin; this header is what both ends agree on.
//
// The interface name carries its version: a change to any method's arguments
// goes into a Backend2 beside this one, so an older quorix-ctl keeps working
// against a newer client.
//
//   Notice(s id, x level, s heading, s title, i countdown, i button,
//          s body, s linkText, s target, i jumpKind)
//   DevicePopup(s winTitle, s title, s content, s buttonText, i time, s details)
//   PowerOrder(i method, i countdown)          method 0/1 shut down, 2 restart
//   Prompt(i type, s text1, s text2, s text3, s text4)
//   GuardDays(u days)
//   Show()  Hide()  Jump(s objectName)  Quit()
//
// Every method replies once the backend has emitted the event; a refused
// argument gets org.freedesktop.DBus.Error.InvalidArgs with the reason.

// moc reads Q_CLASSINFO before any C++ constant exists, hence a macro.
#define QUORIX_CONTROL_INTERFACE "org.quorix.Client.Backend1"

namespace QuorixControl {

inline constexpr char kServiceName[] = "org.quorix.Client";
inline constexpr char kObjectPath[] = "/org/quorix/Client";
inline constexpr char kInterface[] = QUORIX_CONTROL_INTERFACE;

inline constexpr char kMethodNotice[] = "Notice";
inline constexpr char kMethodDevicePopup[] = "DevicePopup";
inline constexpr char kMethodPowerOrder[] = "PowerOrder";
inline constexpr char kMethodPrompt[] = "Prompt";
inline constexpr char kMethodGuardDays[] = "GuardDays";
inline constexpr char kMethodShow[] = "Show";
inline constexpr char kMethodHide[] = "Hide";
inline constexpr char kMethodJump[] = "Jump";
inline constexpr char kMethodQuit[] = "Quit";

// Jump kinds of a notice's text button.
inline constexpr int kJumpNone = ControlRequestCheck::kJumpNone;
inline constexpr int kJumpUrl = ControlRequestCheck::kJumpUrl;
inline constexpr int kJumpPage = ControlRequestCheck::kJumpPage;

} // namespace QuorixControl
