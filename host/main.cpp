#include "clientIdentity.h"
#include "clogdebug.h"
#include "hostCommandLine.h"
#include "quorixGuiHost.h"
#include "simulatedbackend.h"
#include "singleInstanceGuard.h"
#include "unixSignalWatcher.h"
#include "userRuntimeDir.h"

#include <QApplication>

#include <memory>

namespace {

QStringList rawArguments(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("quorix-gui"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORIX_VERSION));
    HostCommandLine commandLine;
    if (commandLine.parse(rawArguments(argc, argv)) != HostCommandLine::ACTION_RUN) {
        // The usage names the program through an application object; a
        // QCoreApplication needs no display.
        QCoreApplication core(argc, argv);
        return commandLine.report();
    }
    QuorixGuiHost::Options const options = commandLine.options();

    QApplication app(argc, argv);
    // The client lives on in the tray when its main window is hidden.
    QApplication::setQuitOnLastWindowClosed(false);
    ClientIdentity::apply();

    SingleInstanceGuard guard(UserRuntimeDir::path(), SingleInstanceGuard::keyFor(SimulatedBackend::defaultConfigDir()));
    switch (guard.claim(options.silent ? SingleInstanceGuard::REQUEST_SILENT : SingleInstanceGuard::REQUEST_SHOW)) {
    case SingleInstanceGuard::CLAIM_HANDED_OVER:
        return 0;
    case SingleInstanceGuard::CLAIM_FAILED:
        return 1;
    case SingleInstanceGuard::CLAIM_PRIMARY:
    case SingleInstanceGuard::CLAIM_UNGUARDED:
        break;
    }

    QuorixGuiHost host(options);
    QObject::connect(&host, &QuorixGuiHost::sig_quitRequested, &app, &QCoreApplication::quit);
    QObject::connect(&guard, &SingleInstanceGuard::sig_secondStart, &host, &QuorixGuiHost::slot_secondStart);
    QObject::connect(&host, &QuorixGuiHost::sig_clientUp, &guard, &SingleInstanceGuard::slot_listen);

    auto signalWatcher = std::make_unique<UnixSignalWatcher>();
    QObject::connect(signalWatcher.get(), &UnixSignalWatcher::sig_signalReceived, &app, &QCoreApplication::quit);

    host.start();
    int const rc = QApplication::exec();
    // Back to the default handlers: a second SIGTERM or Ctrl-C while the
    // plugins tear down ends the process instead of being queued for nobody.
    signalWatcher.reset();
    host.stop();
    // Only now: a start during the teardown waits for this client to be gone
    // instead of writing the settings beside it.
    guard.release();
    BFLOG(BFLOG_INFO, "host/main", "[QuorixGuiHost] exit code %d", rc);
    return rc;
}
