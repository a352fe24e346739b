#include "msgMgrPlugin.h"

#include "clogdebug.h"
#include "msgMgrStack.h"
#include "msgmgrwininterface.h"

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrPlugin";
} // namespace

MsgMgrPlugin::MsgMgrPlugin(QObject* parent)
    : CQBasePlugin(parent)
{
}

MsgMgrPlugin::~MsgMgrPlugin()
{
    unInitStack();
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrPlugin] delete MsgMgrPlugin obj");
}

int MsgMgrPlugin::init(QVariant const& host)
{
    Q_UNUSED(host);
    MsgMgrWinInterface::registerMetaType();
    if (!m_pStack)
        m_pStack = new MsgMgrStack(this);
    m_pStack->start();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrPlugin] message manager ready");
    return 0;
}

int MsgMgrPlugin::unInit(QVariant const& para)
{
    Q_UNUSED(para);
    unInitStack();
    return 0;
}

QVariant MsgMgrPlugin::execCmd(QString cmd, QVariant const& para)
{
    if (cmd != QLatin1String(EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN))
        return QVariant();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrPlugin] receive register win cmd");
    return registerWin(para);
}

int MsgMgrPlugin::registerWin(QVariant const& para)
{
    if (para.userType() != qMetaTypeId<sMsgMgrWinInfo>()) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrPlugin] register win payload is [%s], not sMsgMgrWinInfo, ignored",
                    para.typeName() ? para.typeName() : "invalid");
        return -1;
    }
    if (!m_pStack) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrPlugin] register win before init, ignored");
        return -1;
    }
    return m_pStack->registerWindow(para.value<sMsgMgrWinInfo>());
}

// The stack closes what it still holds: registered pop-ups have no other
// owner, and a window left behind by an unloaded manager would never be
// placed or closed again.
void MsgMgrPlugin::unInitStack()
{
    if (!m_pStack)
        return;
    m_pStack->stop();
    delete m_pStack.data();
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrPlugin] message manager stopped");
}
