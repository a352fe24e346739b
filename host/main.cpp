#include "clogdebug.h"
#include "quorixGuiHost.h"
#include "unixSignalWatcher.h"

#include <QApplication>

#include <memory>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quorix-gui"));
    // The client lives on in the tray when its main window is hidden.
    QApplication::setQuitOnLastWindowClosed(false);

    QuorixGuiHost host(QuorixGuiHost::parseArguments(QCoreApplication::arguments()));
    QObject::connect(&host, &QuorixGuiHost::sig_quitRequested, &app, &QCoreApplication::quit);

    auto signalWatcher = std::make_unique<UnixSignalWatcher>();
    QObject::connect(signalWatcher.get(), &UnixSignalWatcher::sig_signalReceived, &app, &QCoreApplication::quit);

    host.start();
    int const rc = QApplication::exec();
    // Back to the default handlers: a second SIGTERM or Ctrl-C while the
    // plugins tear down ends the process instead of being queued for nobody.
    signalWatcher.reset();
    host.stop();
    BFLOG(BFLOG_INFO, "host/main", "[QuorixGuiHost] exit code %d", rc);
    return rc;
}
