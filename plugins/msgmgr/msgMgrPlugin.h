#pragma once

#include "cqbaseplugin.h"

#include <QPointer>

class MsgMgrStack;

#define EPLUGIN_ID_MSGMGR "EPLUGIN_ID_MSGMGR"
#define EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN "EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN"

// "EPLUGIN_ID_MSGMGR": takes the pop-up windows other plugins register with
// "EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN" (payload sMsgMgrWinInfo) and hands them
// to the notification stack, which shows, places and queues them. Every other
// command is none of its business.
class MsgMgrPlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.MsgMgrPlugin/1.0" FILE "msgMgrPlugin.json")
public:
    explicit MsgMgrPlugin(QObject* parent = nullptr);
    ~MsgMgrPlugin() override;

    int init(QVariant const& host) override;
    int unInit(QVariant const& para) override;
    // For the register command: 0 when the window is shown or queued, -1 when
    // the payload is refused. A null QVariant for every other command.
    QVariant execCmd(QString cmd, QVariant const& para) override;

private:
    int registerWin(QVariant const& para);
    void unInitStack();

    QPointer<MsgMgrStack> m_pStack;
};
