#include "cmdPayload.h"

#include "basegui_common.h"

sPluginRegisterItem CmdPayload::record(QVariant const& payload)
{
    if (payload.userType() != qMetaTypeId<sPluginRegisterItem>())
        return sPluginRegisterItem();
    return payload.value<sPluginRegisterItem>();
}

QWidget* CmdPayload::liveWidget(QObject const* object)
{
    return object ? findWidget(object) : nullptr;
}

void* CmdPayload::rawPointer(QVariant const& payload)
{
    if (payload.userType() != QMetaType::VoidStar)
        return nullptr;
    return payload.value<void*>();
}

QWidget* CmdPayload::findWidget(void const* address)
{
    return basegui::Common::liveWidgetAt(address);
}
