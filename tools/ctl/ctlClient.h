#pragma once

#include "ctlCommandLine.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

// Sends one request to the running client's control service and waits for
// its answer. The client replies once the backend has emitted the event.
class CtlClient
{
public:
    // Long enough for a client busy starting up; a hung one is not waited for.
    static constexpr int kReplyTimeoutMs = 15000;

    explicit CtlClient(QDBusConnection connection = QDBusConnection::sessionBus());

    // True when the client accepted the event; otherwise errorText() says why
    // in one line.
    bool send(CtlCommandLine::Request const& request);
    QString errorText() const;

    // The method call for `request`: the service's arguments in its order.
    static QDBusMessage callFor(CtlCommandLine::Request const& request);

private:
    QDBusConnection m_connection;
    QString m_errorText;
};
