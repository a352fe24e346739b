#pragma once

#include "cqbaseplugin.h"

#include <memory>

class BackendControlService;

// "EPLUGIN_ID_BRIDGE_BASE": brings the backend bridge singletons up when it is
// loaded and releases them when it goes. Its arrival is what tells the base
// plugin that the backend can be reached (PLUGINMANAGE_CMDTYPE_INSTALL).
// The control service on the session bus (quorix-ctl) comes and goes with
// the bridges.
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
    // False without a session bus or while another client holds the name.
    bool controlServiceUp() const;

private:
    void InitBridges();
    void unInitBridges();
    void InitControlService();
    void unInitControlService();

    bool m_bridgesUp = false;
    std::unique_ptr<BackendControlService> m_pControlService;
};
