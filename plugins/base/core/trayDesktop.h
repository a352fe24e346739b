#pragma once

#include <QString>
#include <QStringList>

#include <string>

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

// The tray's only way out to the system around it: which distribution runs,
// what the desktop's command-line tools print, and which program watches the
// Wayland pointer. The tray asks here and parses the answers itself.
//
// The desktop's services are reached through the real tools alone, so they
// follow the tools' own environment (the session bus address, the settings
// schema folder and backend). QUORIX_PROBE_ROOT, when set, names a system tree
// whose release files identify the distribution instead of the running
// system's; unset, the running system is probed.
class TrayDesktop
{
public:
    static char const kProbeRootVariable[];

    // The probe's result for the running system, or for the tree under
    // QUORIX_PROBE_ROOT. The probe's own result value carries no information
    // the tray uses: a failed probe leaves the fields empty.
    static void systemInfo(probe_sysinfo_s& info);

    // What the tools print, raw: a property of the Deepin dock through
    // dbus-send, a key of the UKUI panel's settings through gsettings. ""
    // when the tool cannot be started; the exit status is not looked at, as a
    // tool that fails prints nothing the parsers accept.
    static std::string deepinDockProperty(char const* property);
    static std::string ukuiPanelSetting(char const* key);

    // The long-running watcher of the Deepin Wayland daemon's bus traffic.
    static QString monitorProgram();
    static QStringList monitorArguments();

private:
    TrayDesktop() = delete;
};
