#pragma once

#include "childProcess.h"

#include <QString>

// A session bus of the test's own: a dbus-daemon that dies with the test,
// and with it every client the test's client left connected (busctl among
// them), even when the test never reaches its clean-up.
class SessionBus
{
public:
    // An address no daemon listens on: a client that looks there has no bus.
    static QString deadAddress();

    SessionBus();
    ~SessionBus();

    // Empty when dbus-daemon could not be started.
    QString address() const;

private:
    ChildProcess m_daemon;
    QString m_address;
};
