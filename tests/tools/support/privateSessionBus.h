#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

// A session bus of the test's own: a dbus-daemon started on construction and
// killed on destruction, whatever happened in between, so no test ever
// reaches the desktop's bus or leaves a daemon behind.
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
    QProcess m_daemon;
    QString m_address;
};
