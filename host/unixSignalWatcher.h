#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGTERM and SIGINT into a Qt signal on the GUI thread (the self-pipe
// trick): the handler only writes the signal number into a socket pair, and a
// QSocketNotifier reads it from the event loop, where quitting is safe.
// One watcher per process.
class UnixSignalWatcher : public QObject
{
    Q_OBJECT
public:
    explicit UnixSignalWatcher(QObject* parent = nullptr);
    ~UnixSignalWatcher() override;

    // False if the pipe or a handler could not be installed (logged).
    bool isActive() const;

signals:
    void sig_signalReceived(int signalNumber);

private:
    void InitVars();
    bool InstallHandlers();
    void slot_readSignal();

    QSocketNotifier* m_pNotifier = nullptr;
    bool m_active = false;
};
