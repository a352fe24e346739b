// Cost of one BasePlugin::execCmd dispatch, in nanoseconds per call:
//   - an unknown command, which is compared against every name of the chain;
//   - "BASEPLUGIN_CMD_REGISTER_HOMEPAGE" at a key that is already taken (the
//     dispatch, the payload unpacking and the home page's map look-up);
//   - "BASEPLUGIN_CMD_REGISTER_HOMEPAGE" followed by its unregistration, each
//     relaying out the home page's column (what a real registration costs).
// Runs headless; prints one line per figure.
//
//   bench_base_execcmd [calls]      (default 1000000)

#include "basePlugin.h"
#include "benchEnvironment.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "spluginregisteritem.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QWidget>

#include <cstdio>
#include <functional>

namespace {

double nsPerCall(int calls, std::function<void()> const& call)
{
    for (int i = 0; i < calls / 100 + 1; ++i)
        call();   // warm caches and first-use paths
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < calls; ++i)
        call();
    return double(timer.nsecsElapsed()) / calls;
}

QVariant record(QObject* object, int index, QVariant const& extra)
{
    sPluginRegisterItem item;
    item.object = object;
    item.index = index;
    item.extra = extra;
    return QVariant::fromValue(item);
}

} // namespace

int main(int argc, char** argv)
{
    setBenchEnvironment();
    QApplication app(argc, argv);
    int const calls = argc > 1 ? qMax(1000, QByteArray(argv[1]).toInt()) : 1000000;

    CQMainWindow main;
    main.setBodyMountName(QStringLiteral("NavigateWidget_MainWindow"));
    CQPluginManager::singleInstance()->setHost(&main);
    auto* plugin = new BasePlugin();
    CQPluginManager::singleInstance()->addPlugin(plugin, QStringLiteral("EPLUGIN_ID_BASE"));

    QString const unknown = QStringLiteral("NO_SUCH_COMMAND_OF_ANY_PLUGIN");
    QString const registerHome = QStringLiteral("BASEPLUGIN_CMD_REGISTER_HOMEPAGE");
    QString const unregisterHome = QStringLiteral("BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE");
    QVariant const none;
    QWidget row;
    QVariant const taken = record(&row, 10, 0);   // the title row's key
    QVariant const fresh = record(&row, 25, 8);
    QVariant const freshKey(25);

    double const unknownNs = nsPerCall(calls, [&] { plugin->execCmd(unknown, none); });
    double const takenNs = nsPerCall(calls, [&] { plugin->execCmd(registerHome, taken); });
    int const relayoutCalls = qMax(1000, calls / 100);
    double const pairNs = nsPerCall(relayoutCalls, [&] {
        plugin->execCmd(registerHome, fresh);
        plugin->execCmd(unregisterHome, freshKey);
    });

    std::printf("execCmd unknown command                                 %9.1f ns/call (%d calls)\n", unknownNs, calls);
    std::printf("execCmd BASEPLUGIN_CMD_REGISTER_HOMEPAGE, key taken     %9.1f ns/call (%d calls)\n", takenNs, calls);
    std::printf("execCmd BASEPLUGIN_CMD_REGISTER_HOMEPAGE + UNREGISTER   %9.1f ns/pair (%d pairs)\n", pairNs,
                relayoutCalls);

    CQPluginManager::singleInstance()->unloadPlugin(QStringLiteral("EPLUGIN_ID_BASE"));
    CQPluginManager::singleInstance()->setHost(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
