#pragma once

#include <QString>
#include <QVariant>

class BasePlugin;
class BasePluginPrivate;

// The dispatcher behind BasePlugin::execCmd: one pass over the command names
// in their fixed order, each group of names tested by one member. Payloads are
// unpacked through CmdPayload, so stale or mistyped ones end as no-ops.
class BasePluginCmd
{
public:
    explicit BasePluginCmd(BasePlugin& plugin);

    void exec(QString const& cmd, QVariant const& para);

private:
    using Group = bool (BasePluginCmd::*)(QString const&, QVariant const&);

    void navigateItem(QString const& cmd, QVariant const& para);
    bool navigateBottom(QString const& cmd, QVariant const& para);
    bool homePage(QString const& cmd, QVariant const& para);
    bool tray(QString const& cmd, QVariant const& para);
    bool menuItem(QString const& cmd, QVariant const& para);
    bool settingPage(QString const& cmd, QVariant const& para);
    bool dataArea(QString const& cmd, QVariant const& para);
    bool title(QString const& cmd, QVariant const& para);
    bool baseSettingPage(QString const& cmd, QVariant const& para);
    bool pluginManage(QString const& cmd, QVariant const& para);
    bool messageTip(QString const& cmd, QVariant const& para);
    bool mainWindow(QString const& cmd, QVariant const& para);
    bool aboutWin(QString const& cmd, QVariant const& para);
    bool rightTopMenu(QString const& cmd, QVariant const& para);
    bool realAuth(QString const& cmd, QVariant const& para);
    bool settingCenterOpen(QString const& cmd, QVariant const& para);

    void onInstall(QString const& id);
    void onBridgeInstalled();

    BasePlugin& q;
    BasePluginPrivate* d;
};
