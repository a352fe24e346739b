#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

// bin/quorix-gui as a real process, headless, in a folder of its own: its log,
// settings and runtime folder (lock and hand-over socket) live under `dir`, so
// hosts started on the same folder meet each other and nobody else.
class HostProcess
{
public:
    static int const kStartTimeoutMs = 30000;
    static int const kExitTimeoutMs = 10000;

    explicit HostProcess(QString const& dir);
    ~HostProcess();

    static QString buildRoot();   // the build tree, or $QUORIX_ROOT

    // What start() passes; a test may change it first. `root` "" = the build tree.
    QProcessEnvironment env;
    bool start(QStringList const& arguments, QString const& root = QString());
    // The exit code of a normal exit, -1 otherwise.
    int waitForExit();

    QProcess process;
    QString const runtimeDir;
    QString log() const;
    int logCount(QString const& text) const { return log().count(text); }

private:
    QString m_dir;
};
