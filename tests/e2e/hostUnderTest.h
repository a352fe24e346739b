#pragma once

#include "childProcess.h"

#include <QProcessEnvironment>
#include <QTemporaryDir>

// bin/quorix-gui as a process of the test's own, with a log of its own at
// level 1. Killed on destruction together with the helpers it started (the
// pointer monitor's busctl outlives the client by design).
class HostUnderTest
{
public:
    static QString buildRoot();

    HostUnderTest();
    ~HostUnderTest();

    // The environment a client starts with: this process's, minus any
    // desktop session of its own, on the X display `display` and the bus
    // `busAddress`.
    static QProcessEnvironment environment(QString const& display, QString const& busAddress);
    // Starts the client in the tray (--silent) with `env` and a log and
    // configuration folder of its own; true once every plugin is in.
    bool start(QProcessEnvironment env);

    QString log() const;
    int logCount(QString const& text) const;
    QProcess& process();
    // Pids of the client's children running `program`.
    QList<qint64> children(QString const& program) const;
    // Ends the client and its children at once.
    void kill();

private:
    QTemporaryDir m_dir;
    ChildProcess m_process;
};
