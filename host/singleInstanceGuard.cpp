#include "singleInstanceGuard.h"

#include "clogdebug.h"
#include "instanceLock.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

namespace {

char const* const kModule = "host/singleInstanceGuard";

QByteArray const kRequestShow = QByteArrayLiteral("show");
QByteArray const kRequestSilent = QByteArrayLiteral("silent");
QByteArray const kAnswerOk = QByteArrayLiteral("ok");
int const kMaxLine = 64;

int const kLockRetryMs = 100;
int const kConnectMs = 1000;
int const kAnswerMs = 3000;
// How long a second start keeps trying while the first one is still coming up
// or going down; after that it gives up rather than start a second client.
int const kClaimMs = 10000;

char const* requestName(SingleInstanceGuard::eRequest request)
{
    return request == SingleInstanceGuard::REQUEST_SILENT ? "silent" : "show";
}

} // namespace

SingleInstanceGuard::SingleInstanceGuard(QString const& directory, QString const& key, QObject* parent)
    : QObject(parent)
    , m_directory(directory)
    , m_key(key)
{
}

SingleInstanceGuard::~SingleInstanceGuard()
{
    release();
}

QString SingleInstanceGuard::keyFor(QString const& settingsDir)
{
    QFileInfo const info(settingsDir);
    QString path = info.canonicalFilePath();
    if (path.isEmpty())
        path = QDir::cleanPath(info.absoluteFilePath());
    QByteArray const hash = QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha1).toHex();
    return QStringLiteral("quorix-gui-") + QString::fromLatin1(hash.left(16));
}

QString SingleInstanceGuard::lockFilePath() const
{
    return m_directory + QLatin1Char('/') + m_key + QStringLiteral(".lock");
}

QString SingleInstanceGuard::socketPath() const
{
    return m_directory + QLatin1Char('/') + m_key + QStringLiteral(".sock");
}

SingleInstanceGuard::eClaim SingleInstanceGuard::claim(eRequest request)
{
    if (m_directory.isEmpty()) {
        BFLOG(BFLOG_WARN, kModule, "[SingleInstanceGuard] no private runtime folder, starting without the instance lock");
        return CLAIM_UNGUARDED;
    }
    QDeadlineTimer const deadline(kClaimMs);
    m_pLock.reset(new InstanceLock(lockFilePath()));
    for (bool first = true; first || !deadline.hasExpired(); first = false) {
        InstanceLock::eResult const result = m_pLock->tryLock(kLockRetryMs);
        if (result == InstanceLock::LOCK_TAKEN) {
            BFLOG(BFLOG_INFO, kModule, "[SingleInstanceGuard] instance lock taken [%s]", qUtf8Printable(lockFilePath()));
            return CLAIM_PRIMARY;
        }
        if (result == InstanceLock::LOCK_ERROR) {
            BFLOG(BFLOG_ERROR, kModule, "[SingleInstanceGuard] cannot create [%s] (%s), starting without the instance lock",
                  qUtf8Printable(lockFilePath()), qUtf8Printable(m_pLock->errorString()));
            m_pLock.reset();
            return CLAIM_UNGUARDED;
        }
        if (handOver(request))
            return CLAIM_HANDED_OVER;
    }
    m_pLock.reset();
    BFLOG(BFLOG_ERROR, kModule, "[SingleInstanceGuard] a running client holds [%s] but does not answer, not starting a second one",
          qUtf8Printable(lockFilePath()));
    return CLAIM_FAILED;
}

void SingleInstanceGuard::slot_listen()
{
    if (m_pServer || !m_pLock || !m_pLock->isLocked())
        return;
    m_pServer = new QLocalServer(this);
    m_pServer->setSocketOptions(QLocalServer::UserAccessOption);
    // We hold the lock, so a socket file there is a killed client's.
    QLocalServer::removeServer(socketPath());
    connect(m_pServer, &QLocalServer::newConnection, this, &SingleInstanceGuard::slot_newConnection);
    if (!m_pServer->listen(socketPath()))
        BFLOG(BFLOG_ERROR, kModule, "[SingleInstanceGuard] cannot listen on [%s]: %s; a second start will not reach this client",
              qUtf8Printable(socketPath()), qUtf8Printable(m_pServer->errorString()));
}

bool SingleInstanceGuard::handOver(eRequest request)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    if (!socket.waitForConnected(kConnectMs))
        return false;
    socket.write((request == REQUEST_SILENT ? kRequestSilent : kRequestShow) + '\n');
    bool const answered = socket.waitForBytesWritten(kAnswerMs) && (socket.canReadLine() || socket.waitForReadyRead(kAnswerMs));
    QByteArray const answer = answered ? socket.readLine(kMaxLine).trimmed() : QByteArray();
    if (answer != kAnswerOk) {
        BFLOG(BFLOG_WARN, kModule, "[SingleInstanceGuard] the running client did not take the request");
        return false;
    }
    BFLOG(BFLOG_INFO, kModule, "[SingleInstanceGuard] another client is running, start handed over (%s)", requestName(request));
    return true;
}

void SingleInstanceGuard::slot_newConnection()
{
    while (QLocalSocket* socket = m_pServer->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket]() { readRequest(socket); });
        // A peer that connects and says nothing is not kept.
        QTimer::singleShot(kAnswerMs, socket, &QLocalSocket::abort);
        readRequest(socket);
    }
}

void SingleInstanceGuard::readRequest(QLocalSocket* socket)
{
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kMaxLine) {
            BFLOG(BFLOG_ERROR, kModule, "[SingleInstanceGuard] over-long hand-over request dropped");
            socket->abort();
        }
        return;
    }
    QByteArray const line = socket->readLine(kMaxLine + 1).trimmed();
    if (line != kRequestShow && line != kRequestSilent) {
        BFLOG(BFLOG_ERROR, kModule, "[SingleInstanceGuard] unknown hand-over request of %d bytes ignored", line.size());
        socket->abort();
        return;
    }
    // One request per connection: whatever follows it is not read.
    socket->disconnect(this);
    bool const silent = line == kRequestSilent;
    BFLOG(BFLOG_INFO, kModule, "[SingleInstanceGuard] hand-over from a second start (%s)", silent ? "silent" : "show");
    emit sig_secondStart(silent);
    socket->write(kAnswerOk + '\n');
    socket->disconnectFromServer();
}

void SingleInstanceGuard::release()
{
    if (m_pServer) {
        m_pServer->close();
        delete m_pServer;
        m_pServer = nullptr;
    }
    if (m_pLock && m_pLock->isLocked()) {
        m_pLock->unlock();
        BFLOG(BFLOG_INFO, kModule, "[SingleInstanceGuard] instance lock released");
    }
    m_pLock.reset();
}
