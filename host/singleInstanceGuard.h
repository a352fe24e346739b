#pragma once

#include <QObject>
#include <QString>

#include <memory>

class InstanceLock;
class QLocalServer;
class QLocalSocket;

// One client per settings folder, which for a user who changes nothing means
// one per user: a second client would show a second tray icon and write the
// same settings file. The first start takes a lock file in the user's runtime
// folder and, once it is up, listens on a local socket beside it; a later
// start finds the lock taken, sends its request over the socket and exits (it
// keeps trying while the first one is still starting).
//
// A lock left by a killed client never blocks: the owner holds the lock file's
// flock for as long as it lives, and a lock file nobody holds is free whatever
// host name or pid it names (InstanceLock).
//
// The socket carries one line from the second start, "show" or "silent", and
// one line back, "ok". Nothing else is accepted.
class SingleInstanceGuard : public QObject
{
    Q_OBJECT
public:
    enum eClaim {
        CLAIM_PRIMARY = 0,     // this process is the client
        CLAIM_HANDED_OVER,     // a running client took the request; exit 0
        CLAIM_UNGUARDED,       // no private runtime folder: run, without the guard (logged)
        CLAIM_FAILED           // a live client holds the lock but does not answer; exit 1
    };
    enum eRequest { REQUEST_SHOW = 0, REQUEST_SILENT };

    // `directory` holds the lock and the socket ("" = no usable folder);
    // `key` names them.
    SingleInstanceGuard(QString const& directory, QString const& key, QObject* parent = nullptr);
    ~SingleInstanceGuard() override;

    // The key for a settings folder: clients that would share a settings file
    // share the key.
    static QString keyFor(QString const& settingsDir);

    // Takes the lock, or hands `request` over to the client that holds it.
    eClaim claim(eRequest request);
    // After CLAIM_PRIMARY: answers second starts from now on. Left until the
    // client is up, so that setting up the socket does not delay its window;
    // a second start keeps trying meanwhile.
    void slot_listen();
    // Closes the socket and drops the lock; the next start becomes the client.
    void release();

    QString lockFilePath() const;
    QString socketPath() const;

signals:
    // A second start handed its request over; `silent` asks for nothing to change.
    void sig_secondStart(bool silent);

private:
    bool handOver(eRequest request);
    void slot_newConnection();
    void readRequest(QLocalSocket* socket);

    QString m_directory;
    QString m_key;
    std::unique_ptr<InstanceLock> m_pLock;
    QLocalServer* m_pServer = nullptr;
};
