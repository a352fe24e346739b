// Asks the host to quit, the way the base plugin's quit flow ends, once the
// event loop runs.
#include "cqbaseplugin.h"

#include <QTimer>

class HostExitPlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.TestPlugin/1.0" FILE "hostExitPlugin.json")
public:
    int init(QVariant const& host) override
    {
        Q_UNUSED(host);
        QTimer::singleShot(0, this, [this]() { emit sig(QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINEXIT"), QVariant()); });
        return 0;
    }
};

#include "hostExitPlugin.moc"
