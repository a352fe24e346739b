#include "trayDesktop.h"

#include "clogdebug.h"

#include <QByteArray>

#include <cstdio>
#include <cstring>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr int kReadBufferSize = 1024;

std::string popenRead(std::string const& command)
{
    std::string result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return result;
    char buffer[kReadBufferSize];
    std::memset(buffer, 0, sizeof(buffer));
    while (std::fgets(buffer, sizeof(buffer), pipe))
        result += buffer;
    ::pclose(pipe);
    return result;
}
} // namespace

char const TrayDesktop::kProbeRootVariable[] = "QUORIX_PROBE_ROOT";

void TrayDesktop::systemInfo(probe_sysinfo_s& info)
{
#ifdef UI_BASE_HAS_PROBE_SYSINFO
    QByteArray const root = qgetenv(kProbeRootVariable);
    if (root.isEmpty()) {
        CProbeSysInfo::getPlatformSystemInfo(info, nullptr);
        return;
    }
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[TrayDesktop] distribution probed under [%s]",
                root.constData());
    CProbeSysInfo::getPlatformSystemInfo(info, root.constData());
#else
    Q_UNUSED(info)
#endif
}

std::string TrayDesktop::deepinDockProperty(char const* property)
{
    std::string command = "dbus-send --dest=com.deepin.dde.daemon.Dock /com/deepin/dde/daemon/Dock --print-reply "
                          "org.freedesktop.DBus.Properties.Get string:\"com.deepin.dde.daemon.Dock\" string:\"";
    command += property;
    command += "\"";
    return popenRead(command);
}

std::string TrayDesktop::ukuiPanelSetting(char const* key)
{
    return popenRead(std::string("gsettings get org.ukui.panel.settings ") + key);
}

QString TrayDesktop::monitorProgram()
{
    return QStringLiteral("busctl");
}

QStringList TrayDesktop::monitorArguments()
{
    return {QStringLiteral("--user"), QStringLiteral("monitor"), QStringLiteral("com.deepin.daemon.KWayland")};
}
