#include "bridgePlugin.h"

#include "backendControlService.h"
#include "basepluginmodeldatainterface.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "messagecenterpluginmodeldatainterface.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"
#include "settingpluginmodeldatainterface.h"
#include "upgradepluginmodeldatainterface.h"
#include "verifypluginmodeldatainterface.h"

#include <QDBusConnection>
#include <QThreadPool>

namespace {

char const* const kModule = "plugins/bridge/bridgePlugin";

// Bridge calls the GUI moved to the thread pool must be finished before the
// bridges go; a stuck backend call must not hang the exit for ever.
int const kPoolDrainMs = 3000;

} // namespace

BridgePlugin::BridgePlugin(QObject* parent)
    : CQBasePlugin(parent)
{
}

BridgePlugin::~BridgePlugin()
{
    unInitBridges();
    BFLOG(BFLOG_DEBUG, kModule, "[BridgePlugin] delete BridgePlugin obj");
}

int BridgePlugin::init(QVariant const& host)
{
    Q_UNUSED(host);
    InitBridges();
    return 0;
}

int BridgePlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    unInitBridges();
    return 0;
}

QVariant BridgePlugin::execCmd(QString cmd, QVariant const& para)
{
    Q_UNUSED(para);
    if (cmd == QLatin1String("EPLUGIN_ID_BASE_CMD_INIT_CONNECT"))
        BFLOG(BFLOG_INFO, kModule, "[BridgePlugin] base plugin connected to the bridges");
    return QVariant();
}

bool BridgePlugin::bridgesUp() const
{
    return m_bridgesUp;
}

bool BridgePlugin::controlServiceUp() const
{
    return m_pControlService && m_pControlService->isRunning();
}

void BridgePlugin::InitBridges()
{
    if (m_bridgesUp)
        return;
    BridgeMetaTypes::registerAll();
    bool const ready = QuorixBackendRegistry::backend()->isReady();
    BasePluginModelDataInterface::singleInstance();
    SettingPluginModelDataInterface::singleInstance();
    UpgradePluginModelDataInterface::singleInstance();
    MessageCenterPluginModelDataInterface::singleInstance();
    VerifyPluginModelDataInterface::singleInstance();
    m_bridgesUp = true;
    BFLOG(BFLOG_INFO, kModule, "[BridgePlugin] bridges up, backend %s", ready ? "ready" : "not ready");
    InitControlService();
}

// Only once the bridges exist: an event raised through the service must find
// them to reach the GUI.
void BridgePlugin::InitControlService()
{
    auto service = std::make_unique<BackendControlService>(QDBusConnection::sessionBus());
    if (service->start())
        m_pControlService = std::move(service);
}

// The service gives its name back as it goes.
void BridgePlugin::unInitControlService()
{
    m_pControlService.reset();
}

void BridgePlugin::unInitBridges()
{
    if (!m_bridgesUp)
        return;
    m_bridgesUp = false;
    // No new events while the bridges go.
    unInitControlService();
    if (!QThreadPool::globalInstance()->waitForDone(kPoolDrainMs))
        BFLOG(BFLOG_WARN, kModule, "[BridgePlugin] bridge calls still running after %d ms", kPoolDrainMs);
    BasePluginModelDataInterface::UninitInstance(false);
    SettingPluginModelDataInterface::UninitInstance(false);
    UpgradePluginModelDataInterface::UninitInstance(false);
    MessageCenterPluginModelDataInterface::UninitInstance(false);
    VerifyPluginModelDataInterface::UninitInstance(false);
    BFLOG(BFLOG_INFO, kModule, "[BridgePlugin] bridges released");
}
