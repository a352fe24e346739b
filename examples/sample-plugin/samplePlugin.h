#pragma once

#include "cqbaseplugin.h"

#include <memory>

class SampleBus;
class SampleCollectedContributions;
class SampleHomePageContributions;
class SampleMainWindowContributions;
class SampleTrayContributions;

#define EPLUGIN_ID_SAMPLE "EPLUGIN_ID_SAMPLE"

// "EPLUGIN_ID_SAMPLE": a plugin that puts something into every place of the
// frame that other plugins can fill, through the base plugin's command bus
// only. It mounts when the base plugin is announced, answers the frame's
// collection broadcasts, and takes everything out again in unInit.
class SamplePlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.SamplePlugin/1.0" FILE "samplePlugin.json")
public:
    explicit SamplePlugin(QObject* parent = nullptr);
    ~SamplePlugin() override;

    int init(QVariant const& host) override;
    int unInit(QVariant const& para) override;
    // Always an invalid QVariant: the commands it takes are announcements.
    QVariant execCmd(QString cmd, QVariant const& para) override;

private:
    void onInstall(QString const& id);
    void onUninstall(QString const& id);
    void mountFrame();
    void unmountAll();

    std::unique_ptr<SampleBus> m_pBus;
    std::unique_ptr<SampleMainWindowContributions> m_pMainWindow;
    std::unique_ptr<SampleHomePageContributions> m_pHomePage;
    std::unique_ptr<SampleTrayContributions> m_pTray;
    std::unique_ptr<SampleCollectedContributions> m_pCollected;
};
