#pragma once

#include "quorixGuiHost.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// quorix-gui's command line. It is read before the application object exists,
// so that --help, --version and a wrong option answer on a machine without a
// display; only printing the usage needs a QCoreApplication (the parser takes
// the program name from it).
//
// Exit codes follow the usual rule: 0 after --help or --version, 2 for a wrong
// command line (an unknown option, a missing or empty value, a stray argument).
class HostCommandLine
{
public:
    enum eAction { ACTION_RUN = 0, ACTION_HELP, ACTION_VERSION, ACTION_ERROR };

    static constexpr int kExitUsage = 2;

    HostCommandLine();

    // `arguments` as main() received them, the program name first.
    eAction parse(QStringList const& arguments);
    eAction action() const;
    QuorixGuiHost::Options options() const;

    // The text for ACTION_HELP, ACTION_VERSION and ACTION_ERROR (the error
    // followed by the usage), and where it goes: standard output for the first
    // two, standard error for an error.
    QString message() const;
    bool messageIsError() const;
    int exitCode() const;

    // Prints message() and returns exitCode(). Needs a QCoreApplication.
    int report() const;

private:
    void InitOptions();
    void addQtOptions();
    eAction check();

    QCommandLineParser m_parser;
    QCommandLineOption m_silent;
    QCommandLineOption m_root;
    QCommandLineOption m_pluginDir;
    QCommandLineOption m_screenshot;
    QCommandLineOption m_quitAfterShow;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    eAction m_action = ACTION_RUN;
    QString m_error;
};
