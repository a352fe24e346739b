#include "settingpluginmodeldatainterface.h"

#include "bridgeinstance_p.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

namespace {

char const* const kModule = "platform/bridge/settingpluginmodeldatainterface";

BridgeInstance<SettingPluginModelDataInterface> g_instance;

} // namespace

SettingPluginModelDataInterface* SettingPluginModelDataInterface::singleInstance()
{
    return g_instance.get([] { return new SettingPluginModelDataInterface; });
}

void SettingPluginModelDataInterface::UninitInstance(bool now)
{
    g_instance.release(now);
}

SettingPluginModelDataInterface::SettingPluginModelDataInterface(QObject* parent)
    : QObject(parent)
{
    BridgeMetaTypes::registerAll();
    connect(QuorixBackendRegistry::singleInstance(), &QuorixBackendRegistry::sig_backendChanged, this,
            &SettingPluginModelDataInterface::bindBackend);
    bindBackend();
}

SettingPluginModelDataInterface::~SettingPluginModelDataInterface()
{
    g_instance.forget(this);
    BFLOG(BFLOG_DEBUG, kModule, "[SettingPluginModelDataInterface] delete SettingPluginModelDataInterface obj");
}

void SettingPluginModelDataInterface::bindBackend()
{
    dropBackendLinks(m_backendLinks);
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    // Queued: the store usually runs on a pool thread, the listeners are widgets.
    m_backendLinks = {
        connect(backend.get(), &QuorixBackend::sig_settingsChanged, this,
                &SettingPluginModelDataInterface::sig_updateData, Qt::QueuedConnection),
    };
}

__sSettingData SettingPluginModelDataInterface::getSettingData(QString typeName)
{
    return QuorixBackendRegistry::backend()->readSetting(typeName);
}

bool SettingPluginModelDataInterface::setSettingData(QVariant data)
{
    return QuorixBackendRegistry::backend()->writeSetting(data);
}
