#pragma once

#include "support_global.h"

#include <QString>

// Fixed facts about the installed client: where it lives, what its folders are
// called and what it is named when nothing else says so. Paths are absolute and
// carry no trailing slash.
class SUPPORT_EXPORT ConstConfig
{
public:
    // QUORIX_ROOT when set; else the folder above the running program's bin/;
    // else the program's own folder.
    static QString installRoot();
    // Plugin folder relative to the install root: "lib/plugins-gui".
    static QString pluginSubDir();
    static QString pluginDir();
    static QString etcDir();
    // The branding file shipped with the client: <root>/etc/branding.ini.
    static QString brandingFile();

    // Name of the GUI program ("quorix-gui"), used for per-user folders too.
    static QString clientName();
    static QString defaultProductName();
    static QString defaultTheme();
    static QString defaultLogoIconPath();
    static QString defaultHomePageContent();

    // Per-user folders: $XDG_CONFIG_HOME/quorix and $XDG_DATA_HOME/quorix, with
    // the usual fall-backs below $HOME.
    static QString userConfigDir();
    static QString userDataDir();

private:
    static QString executableDir();
    static QString xdgDir(char const* variable, QString const& homeRelative);
};
