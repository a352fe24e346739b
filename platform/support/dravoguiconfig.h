#pragma once

#include "support_global.h"

#include <QString>
#include <string>

// Branding of the GUI: theme, product name, logo icon and the home-page line.
//
// The values come from the [branding] section of a UTF-8 INI file:
//
//   [branding]
//   theme=default
//   productName=Quorix终端安全管理系统
//   logoIconPath=:/img/logo.ico
//   homePageContent=安全守护每一刻
//
// Which file: the one set with setConfigPath(), else the one named by the
// environment variable QUORIX_GUI_CONFIG, else <install root>/etc/branding.ini
// when the client ships one. With none of them the built-in defaults apply.
//
// Every getter returns 0 and fills `value` on success; a missing or blank key
// yields its default and 0. When the file that should be read cannot be used,
// every getter returns the same error code and leaves `value` untouched, so a
// caller that pre-filled its own default keeps it.
class SUPPORT_EXPORT DravoGuiConfig
{
public:
    enum Error {
        Success = 0,
        ErrUnreadable = -1,  // the named file is missing or cannot be opened
        ErrMalformed = -2,   // the file is larger than 1 MiB or not UTF-8 text
    };

    static int theme(QString& value);
    static int productName(QString& value);
    static int logoIconPath(QString& value);
    static int homePageContent(QString& value);

    // The same, for callers that keep UTF-8 std::string values.
    static int theme(std::string& value);
    static int productName(std::string& value);
    static int logoIconPath(std::string& value);
    static int homePageContent(std::string& value);

    // Reads from `path` from now on ("" returns to the environment and the
    // installed file). Takes effect at once.
    static void setConfigPath(QString const& path);
    // Forgets what was read; the next getter reads the file again.
    static void reload();
    // The file in use, "" when the built-in defaults apply.
    static QString configPath();
    // 0, or the error code every getter currently returns.
    static int status();

private:
    enum Key { KeyTheme, KeyProductName, KeyLogoIconPath, KeyHomePageContent };
    static int value(Key key, QString& out);
    static int value(Key key, std::string& out);
};
