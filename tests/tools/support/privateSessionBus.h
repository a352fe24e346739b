#pragma once

#include "childProcess.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

// A session bus of the test's own: a dbus-daemon started on construction and
// killed on destruction, or with the test process if a time-out or a crash
// ends it first, so no test ever reaches the desktop's bus or leaves a daemon
// (and the clients it keeps alive, busctl among them) behind.
class PrivateSessionBus
{
public:
    // An address no daemon listens on: a client that looks there has no bus.
    static QString deadAddress();

    PrivateSessionBus();
    ~PrivateSessionBus();

    // Empty when dbus-daemon could not be started.
    QString address() const;
    bool isUp() const;
    // `base` with DBUS_SESSION_BUS_ADDRESS pointing at `address`.
    static QProcessEnvironment environment(QString const& address,
                                           QProcessEnvironment base = QProcessEnvironment::systemEnvironment());

private:
    ChildProcess m_daemon;
    QString m_address;
};
