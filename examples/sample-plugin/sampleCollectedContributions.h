#pragma once

#include <QPointer>

class QWidget;
class QWidgetAction;
class SampleBus;
class SampleSettingPage;
class SettingSubItemWidget;

// What the frame collects on demand: just before the right-top menu pops up,
// the about window shows or the settings centre opens, it broadcasts a command
// to every plugin, and each plugin answers with its registrations. The frame
// keeps the first registration under a key, so answering every time is safe.
class SampleCollectedContributions
{
public:
    explicit SampleCollectedContributions(SampleBus& bus);
    ~SampleCollectedContributions();

    // "EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW" / "..._RIGHTTOP_POP_HIDE".
    void mountMenuItem();
    void unmountMenuItem();
    // "EPLUGIN_ID_BASE_CMD_ABOUTWIN_SHOW": a fresh about window is about to show.
    void mountAboutBadge();
    // "EPLUGIN_ID_SETTINGCENTER_CMD_OPEN": the settings centre has just opened.
    void mountSettings();

    void unmount();

private:
    SampleBus& m_bus;
    QPointer<QWidgetAction> m_pMenuAction;
    QPointer<QWidget> m_pAboutBadge;
    QPointer<SampleSettingPage> m_pSettingPage;
    QPointer<SettingSubItemWidget> m_pGeneralRow;
};
