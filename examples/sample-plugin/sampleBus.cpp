#include "sampleBus.h"

#include "baseCmdDefine.h"
#include "clogdebug.h"
#include "cqbaseplugin.h"
#include "cqpluginmanager.h"
#include "spluginregisteritem.h"

namespace {
char const* const kModule = "examples/sample-plugin/sampleBus";
} // namespace

SampleBus::SampleBus(CQBasePlugin* plugin)
    : m_pPlugin(plugin)
{
}

void SampleBus::sendRecord(char const* cmd, QObject* object, int index, QVariant const& extra)
{
    sPluginRegisterItem item;
    item.object = object;
    item.index = index;
    item.extra = extra;
    send(cmd, QVariant::fromValue(item));
}

void SampleBus::sendPointer(char const* cmd, void* object)
{
    send(cmd, QVariant::fromValue(object));
}

void SampleBus::sendKey(char const* cmd, int index)
{
    send(cmd, QVariant(index));
}

// The frame answers nothing (every command returns an invalid QVariant), so
// the log line is the only trace of what was asked. Once the base plugin has
// been unloaded there is no frame left to take anything out of, and the
// manager would only drop the command with a warning.
void SampleBus::send(char const* cmd, QVariant const& payload)
{
    if (!m_pPlugin || !CQPluginManager::plugin(QStringLiteral(EPLUGIN_ID_BASE)))
        return;
    BFLOG(BFLOG_DEBUG, kModule, "[SampleBus] send [%s]", cmd);
    emit m_pPlugin->sig1(QStringLiteral(EPLUGIN_ID_BASE), QString::fromLatin1(cmd), payload);
}
