#include "upgradepluginmodeldatainterface.h"

#include "bridgeinstance_p.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

namespace {

char const* const kModule = "platform/bridge/upgradepluginmodeldatainterface";

BridgeInstance<UpgradePluginModelDataInterface> g_instance;

} // namespace

UpgradePluginModelDataInterface* UpgradePluginModelDataInterface::singleInstance()
{
    return g_instance.get([] { return new UpgradePluginModelDataInterface; });
}

void UpgradePluginModelDataInterface::UninitInstance(bool now)
{
    g_instance.release(now);
}

UpgradePluginModelDataInterface::UpgradePluginModelDataInterface(QObject* parent)
    : QObject(parent)
{
    BridgeMetaTypes::registerAll();
}

UpgradePluginModelDataInterface::~UpgradePluginModelDataInterface()
{
    g_instance.forget(this);
    BFLOG(BFLOG_DEBUG, kModule, "[UpgradePluginModelDataInterface] delete UpgradePluginModelDataInterface obj");
}

QString UpgradePluginModelDataInterface::getUserID()
{
    return QuorixBackendRegistry::backend()->userId();
}

int UpgradePluginModelDataInterface::checkUpdate(QString userId, int kind)
{
    postToBridge(this, [this, userId, kind]() {
        emit sig_checkUpdateInfo(userId, QuorixBackendRegistry::backend()->libraryVersions(kind));
    });
    return 0;
}
