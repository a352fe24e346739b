#pragma once

#include "cqbaseplugin.h"

// "EPLUGIN_ID_BRIDGE_BASE": brings the backend bridge singletons up when it is
// loaded and releases them when it goes. Its arrival is what tells the base
// plugin that the backend can be reached (PLUGINMANAGE_CMDTYPE_INSTALL).
class BridgePlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.BridgePlugin/1.0" FILE "bridgePlugin.json")
public:
    explicit BridgePlugin(QObject* parent = nullptr);
    ~BridgePlugin() override;

    int init(QVariant const& host) override;
    int unInit(QVariant const& para) override;
    QVariant execCmd(QString cmd, QVariant const& para) override;

    bool bridgesUp() const;

private:
    void InitBridges();
    void unInitBridges();

    bool m_bridgesUp = false;
};
