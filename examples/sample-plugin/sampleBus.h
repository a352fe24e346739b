#pragma once

#include <QPointer>
#include <QString>
#include <QVariant>

class CQBasePlugin;
class QObject;

// The one way this plugin talks to the frame: commands addressed to the base
// plugin, sent through the plugin manager with CQBasePlugin::sig1. Nothing
// here touches a widget of the frame, and nothing here needs the base plugin's
// classes, only its command names and the three payload shapes it reads.
class SampleBus
{
public:
    explicit SampleBus(CQBasePlugin* plugin);

    // Payload: an sPluginRegisterItem (object, key, command-specific extra).
    void sendRecord(char const* cmd, QObject* object, int index, QVariant const& extra = QVariant());
    // Payload: the object's address as void*. `object` must already be a
    // pointer to the class the command documents (SettingItemWidget*,
    // NavigateItemWidget*, ...): the frame casts the raw address back to it.
    void sendPointer(char const* cmd, void* object);
    // Payload: the key an item was registered under.
    void sendKey(char const* cmd, int index);

private:
    void send(char const* cmd, QVariant const& payload);

    QPointer<CQBasePlugin> m_pPlugin;
};
