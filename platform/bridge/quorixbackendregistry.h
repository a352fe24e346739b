#pragma once

#include "bridge_global.h"

#include <QObject>

#include <memory>

class QuorixBackend;

// Which backend the bridges talk to. Without a call to setBackend the bridges
// get a SimulatedBackend, so the client runs on a machine with no daemon.
class BRIDGE_EXPORT QuorixBackendRegistry : public QObject
{
    Q_OBJECT
public:
    // Lives until the process ends.
    static QuorixBackendRegistry* singleInstance();

    // The current backend; never null. Thread-safe. Callers keep the returned
    // pointer for the duration of a call, so a backend replaced meanwhile stays
    // alive until they are done.
    static std::shared_ptr<QuorixBackend> backend();
    // Replaces the backend for every bridge, the existing ones included; null
    // goes back to a fresh simulated backend on next use.
    static void setBackend(std::shared_ptr<QuorixBackend> backend);

signals:
    void sig_backendChanged();

private:
    QuorixBackendRegistry() = default;
};
