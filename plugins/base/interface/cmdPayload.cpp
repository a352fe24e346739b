#include "cmdPayload.h"

#include <QApplication>

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

// QWidget's first base is QObject, so a QObject* and a void* of a widget have
// the same address as the widget itself.
QWidget* CmdPayload::findWidget(void const* address)
{
    if (!address || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return nullptr;
    for (QWidget* w : QApplication::allWidgets()) {
        if (static_cast<void const*>(w) == address)
            return w;
    }
    return nullptr;
}
