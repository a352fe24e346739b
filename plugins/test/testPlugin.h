#pragma once

#include "cqbaseplugin.h"

#include <QPointer>

class QAction;

#define EPLUGIN_ID_TEST "EPLUGIN_ID_TEST"
#define EPLUGIN_ID_BASE "EPLUGIN_ID_BASE"
#define TESTPLUGIN_CMDTYPE_ADDITEM "TESTPLUGIN_CMDTYPE_ADDITEM"
#define BASEPLUGIN_CMD_REGISTER_MENUITEM "BASEPLUGIN_CMD_REGISTER_MENUITEM"
#define BASEPLUGIN_CMD_UNREGISTER_MENUITEM "BASEPLUGIN_CMD_UNREGISTER_MENUITEM"
#define EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW "EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW"
#define EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE "EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE"

// "EPLUGIN_ID_TEST", the developer test plugin. The base plugin offers its
// developer test entry ("基础测试") only while this plugin is loaded, and hands
// the entry over with "TESTPLUGIN_CMDTYPE_ADDITEM" (an sPluginRegisterItem
// holding the entry's QAction). The plugin mounts it in the base plugin's
// right-top menu, after the about entry, and keeps it there the way the about
// entry is kept: mounted again whenever the menu opens, taken out when the menu
// is reported hidden. Unloading takes the entry out; the action itself stays
// the base plugin's.
class TestPlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.TestPlugin/1.0" FILE "testPlugin.json")
public:
    // The key of the entry in the right-top menu: after "关于我们" (40).
    static constexpr int kMenuIndex = 60;

    explicit TestPlugin(QObject* parent = nullptr);
    ~TestPlugin() override;

    int unInit(QVariant const& para) override;
    // Always an invalid QVariant; a refused payload is logged.
    QVariant execCmd(QString cmd, QVariant const& para) override;

private:
    void addItem(QVariant const& para);
    // The action of a well-formed payload, else null (the reason logged).
    QAction* actionOf(QVariant const& para) const;
    void mountEntry();
    void unMountEntry();
    void sendToBase(char const* cmd);

    // The base plugin's entry; it owns and deletes it.
    QPointer<QAction> m_pAction;
};
