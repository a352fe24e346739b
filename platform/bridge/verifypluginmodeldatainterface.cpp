#include "verifypluginmodeldatainterface.h"

#include "bridgeinstance_p.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

namespace {

char const* const kModule = "platform/bridge/verifypluginmodeldatainterface";

BridgeInstance<VerifyPluginModelDataInterface> g_instance;

} // namespace

VerifyPluginModelDataInterface* VerifyPluginModelDataInterface::singleInstance()
{
    return g_instance.get([] { return new VerifyPluginModelDataInterface; });
}

void VerifyPluginModelDataInterface::UninitInstance(bool now)
{
    g_instance.release(now);
}

VerifyPluginModelDataInterface::VerifyPluginModelDataInterface(QObject* parent)
    : QObject(parent)
{
    BridgeMetaTypes::registerAll();
}

VerifyPluginModelDataInterface::~VerifyPluginModelDataInterface()
{
    g_instance.forget(this);
    BFLOG(BFLOG_DEBUG, kModule, "[VerifyPluginModelDataInterface] delete VerifyPluginModelDataInterface obj");
}

int VerifyPluginModelDataInterface::getVerifyPolicy(int kind)
{
    return QuorixBackendRegistry::backend()->verifyPolicy(kind);
}

int VerifyPluginModelDataInterface::verifyPassword(int kind, QString password)
{
    return QuorixBackendRegistry::backend()->verifyPassword(kind, password);
}
