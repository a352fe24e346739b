#include "messagecenterpluginmodeldatainterface.h"

#include "bridgeinstance_p.h"
#include "bridgemetatypes.h"
#include "clogdebug.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

namespace {

char const* const kModule = "platform/bridge/messagecenterpluginmodeldatainterface";

BridgeInstance<MessageCenterPluginModelDataInterface> g_instance;

} // namespace

MessageCenterPluginModelDataInterface* MessageCenterPluginModelDataInterface::singleInstance()
{
    return g_instance.get([] { return new MessageCenterPluginModelDataInterface; });
}

void MessageCenterPluginModelDataInterface::UninitInstance(bool now)
{
    g_instance.release(now);
}

MessageCenterPluginModelDataInterface::MessageCenterPluginModelDataInterface(QObject* parent)
    : QObject(parent)
{
    BridgeMetaTypes::registerAll();
    connect(QuorixBackendRegistry::singleInstance(), &QuorixBackendRegistry::sig_backendChanged, this,
            &MessageCenterPluginModelDataInterface::bindBackend);
    bindBackend();
}

MessageCenterPluginModelDataInterface::~MessageCenterPluginModelDataInterface()
{
    g_instance.forget(this);
    BFLOG(BFLOG_DEBUG, kModule,
          "[MessageCenterPluginModelDataInterface] delete MessageCenterPluginModelDataInterface obj");
}

void MessageCenterPluginModelDataInterface::bindBackend()
{
    dropBackendLinks(m_backendLinks);
    std::shared_ptr<QuorixBackend> const backend = QuorixBackendRegistry::backend();
    m_backendLinks = {
        connect(backend.get(), &QuorixBackend::sig_unreadMsgCount, this,
                &MessageCenterPluginModelDataInterface::sig_unreadMsgCount, Qt::QueuedConnection),
    };
}

int MessageCenterPluginModelDataInterface::requestUnreadMsgCount()
{
    postToBridge(this, [this]() { emit sig_unreadMsgCount(QuorixBackendRegistry::backend()->unreadMessageCount()); });
    return 0;
}
