#pragma once

#include "quorixControlProtocol.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QString>

// The simulated backend's control service on the user's session bus
// (QuorixControl::kServiceName at kObjectPath, interface
// QUORIX_CONTROL_INTERFACE). Each method checks its arguments, then has the
// current backend emit the event, so it takes the same road to the GUI as an
// event of the real daemon: QuorixBackend's signal, forwarded queued by the
// bridges. The reply leaves once the backend has emitted; that is "accepted".
//
// The exported slots are the D-Bus method names, hence their spelling.
class BackendControlService : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", QUORIX_CONTROL_INTERFACE)
public:
    explicit BackendControlService(QDBusConnection connection, QObject* parent = nullptr);
    ~BackendControlService() override;

    // Exports the object and claims the name. Without a bus, or with the name
    // owned by another client, logs why at level 3 and returns false; the
    // client runs on without the service.
    bool start();
    // Gives the name and the object back; harmless when not started.
    void stop();
    bool isRunning() const;

public slots:
    Q_SCRIPTABLE void Notice(QString const& id, qlonglong level, QString const& heading, QString const& title,
                             int countdown, int button, QString const& body, QString const& linkText,
                             QString const& target, int jumpKind);
    Q_SCRIPTABLE void DevicePopup(QString const& winTitle, QString const& title, QString const& content,
                                  QString const& buttonText, int time, QString const& details);
    Q_SCRIPTABLE void PowerOrder(int method, int countdown);
    Q_SCRIPTABLE void Prompt(int type, QString const& text1, QString const& text2, QString const& text3,
                             QString const& text4);
    Q_SCRIPTABLE void GuardDays(uint days);
    Q_SCRIPTABLE void Show();
    Q_SCRIPTABLE void Hide();
    Q_SCRIPTABLE void Jump(QString const& objectName);
    Q_SCRIPTABLE void Quit();

private:
    // True when `reason` is empty; otherwise logs the refusal and answers the
    // caller with InvalidArgs.
    bool accept(char const* method, QString const& reason);
    void logAccepted(char const* method);
    void logUnavailable(QString const& reason);

    QDBusConnection m_connection;
    bool m_running = false;
};
