#include "unixSignalWatcher.h"

#include "clogdebug.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

char const* const kModule = "host/unixSignalWatcher";

// [0] is written by the handler, [1] read by the notifier.
int g_pipe[2] = {-1, -1};

int const kWatched[] = {SIGTERM, SIGINT};

void onSignal(int signalNumber)
{
    int const savedErrno = errno;
    unsigned char const byte = static_cast<unsigned char>(signalNumber);
    // Non-blocking: if the pipe is full a quit is already on its way.
    ssize_t const written = ::write(g_pipe[0], &byte, 1);
    (void)written;
    errno = savedErrno;
}

} // namespace

UnixSignalWatcher::UnixSignalWatcher(QObject* parent)
    : QObject(parent)
{
    InitVars();
}

UnixSignalWatcher::~UnixSignalWatcher()
{
    if (!m_active)
        return;
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    for (int const signalNumber : kWatched)
        ::sigaction(signalNumber, &action, nullptr);
    delete m_pNotifier;
    ::close(g_pipe[0]);
    ::close(g_pipe[1]);
    g_pipe[0] = g_pipe[1] = -1;
}

bool UnixSignalWatcher::isActive() const
{
    return m_active;
}

void UnixSignalWatcher::InitVars()
{
    if (g_pipe[0] >= 0) {
        BFLOG(BFLOG_ERROR, kModule, "[UnixSignalWatcher] a signal watcher already exists");
        return;
    }
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, g_pipe) != 0) {
        BFLOG(BFLOG_ERROR, kModule, "[UnixSignalWatcher] socketpair failed, errno %d", errno);
        return;
    }
    m_pNotifier = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this, &UnixSignalWatcher::slot_readSignal);
    m_active = InstallHandlers();
}

bool UnixSignalWatcher::InstallHandlers()
{
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int const signalNumber : kWatched) {
        if (::sigaction(signalNumber, &action, nullptr) != 0) {
            BFLOG(BFLOG_ERROR, kModule, "[UnixSignalWatcher] cannot handle signal %d, errno %d", signalNumber, errno);
            return false;
        }
    }
    return true;
}

void UnixSignalWatcher::slot_readSignal()
{
    unsigned char byte = 0;
    while (::read(g_pipe[1], &byte, 1) == 1) {
        BFLOG(BFLOG_INFO, kModule, "[UnixSignalWatcher] signal %d received", static_cast<int>(byte));
        emit sig_signalReceived(static_cast<int>(byte));
    }
}
