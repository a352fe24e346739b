// BasePlugin: the pop-ups the backend asks for (unified notices, device
// pop-ups, shutdown and restart orders, the backend's notice prompt) and their
// hand-over to the message manager.

#include "basePlugin.h"
#include "basePlugin_p.h"

#include "baseCmdDefine.h"
#include "basepluginmodeldatainterface.h"
#include "bootWin.h"
#include "clogdebug.h"
#include "devicePopWin.h"
#include "msgmgrwininterface.h"
#include "promotwin.h"
#include "uniNoticeMsg.h"

#include <QMap>
#include <QMutex>
#include <QMutexLocker>
#include <QUuid>

namespace {

char const* const kModule = "plugins/base/interface/basePlugin";

// Open unified notices by id, for the whole process: a notice that arrives
// again with a known id updates its window instead of opening another.
struct NoticeMap
{
    QMutex mutex;
    QMap<QString, QPointer<UniNoticeMsg>> windows;
};

NoticeMap& noticeMap()
{
    static NoticeMap map;
    return map;
}

void forgetNotice(QString const& id)
{
    NoticeMap& map = noticeMap();
    QMutexLocker lock(&map.mutex);
    map.windows.remove(id);
}

} // namespace

void BasePlugin::registerWithMsgMgr(MsgMgrWinInterface* window)
{
    MsgMgrWinInterface::registerMetaType();
    sMsgMgrWinInfo info;
    info.window = window;
    info.winId = window->id();
    info.ownerPluginId = QStringLiteral(EPLUGIN_ID_BASE);
    info.flag = 0;
    emit sig1(QStringLiteral(EPLUGIN_ID_MSGMGR), QStringLiteral(EPLUGIN_ID_MSGMGR_CMD_REGISTER_WIN), QVariant::fromValue(info));
}

void BasePlugin::slot_device_mgr_msg(__sDeviceMgrPopup info)
{
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] receive devicesmgr gui popup msg");
    if (info.winTitle.isEmpty()) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] winTitle is empty, not popup");
        return;
    }
    if (info.title.isEmpty() && info.content.isEmpty()) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] title and content are empty, not popup");
        return;
    }
    if (info.btnText.isEmpty()) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] btnText is empty, use default text");
        info.btnText = QString::fromUtf8("知道了");
    }
    if (info.time == 0) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] time is 0, use default time");
        info.time = -1;
    }
    auto* window = new DevicePopWin(info, nullptr);
    window->show();
    registerWithMsgMgr(window);
}

void BasePlugin::slot_UniNotifyMsg(__sUniNoticeMsgInfo info)
{
    if (info.id.isEmpty())
        info.id = QUuid::createUuid().toString();
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] receive uni notify msg, id [%s]", qUtf8Printable(info.id.left(128)));
    UniNoticeMsg* window = nullptr;
    {
        NoticeMap& map = noticeMap();
        QMutexLocker lock(&map.mutex);
        auto const found = map.windows.constFind(info.id);
        if (found != map.windows.constEnd()) {
            window = found->data();
            if (!window)
                return;
            window->updateInfo(info);
        } else {
            window = new UniNoticeMsg(info, nullptr);
            map.windows.insert(info.id, window);
            connect(window, &MsgMgrWinInterface::sig_preClose, window, [](QString id) { forgetNotice(id); });
        }
    }
    // Outside the lock: the message manager may close another notice, whose
    // pre-close handler takes the lock again.
    registerWithMsgMgr(window);
}

void BasePlugin::slot_shutdown_reboot_notice(int method, int time)
{
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] receive shutdown reboot notice, method [%d] time [%d]", method, time);
    if (!d_ptr)
        return;
    if (!d_ptr->m_pBootWin) {
        d_ptr->m_pBootWin = new BootWin(nullptr);
        connect(d_ptr->m_pBootWin, &BootWin::sig_boot, this, &BasePlugin::slot_boot);
    }
    BootWin* window = d_ptr->m_pBootWin;
    window->setMethod(static_cast<eDevMgr>(method));
    window->setTime(time);
    registerWithMsgMgr(window);
}

void BasePlugin::slot_boot(eDevMgr method)
{
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    switch (method) {
    case EDEVMGR_SHUTDOWN:
    case EDEVMGR_SHUTDOWN_FORCE:
        if (bridge)
            bridge->requestShutdown(method);
        break;
    case EDEVMGR_REBOOT:
        if (bridge)
            bridge->requestReboot();
        break;
    default:
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[BasePlugin] method [%d] not support.", int(method));
        break;
    }
}

// One prompt for all backend notices, reused while it is open. Unlike the
// other pop-ups it is not handed to the message manager.
void BasePlugin::slot_noticeWin(_sNoticeWinInfo_ info)
{
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] receive backend notice, type [%d]", info.noticeType);
    if (!d_ptr)
        return;
    if (!d_ptr->m_pNoticeWin)
        d_ptr->m_pNoticeWin = new PromotWin(d_ptr->m_pMainWindow);
    // Notice types 1 and 2 swap their prompt kinds on purpose.
    static int const kKinds[] = {PromotWin::KIND_INFO, PromotWin::KIND_WARNING, PromotWin::KIND_SUCCESS,
                                 PromotWin::KIND_ERROR, PromotWin::KIND_URGENT};
    bool const known = info.noticeType >= 0 && info.noticeType < int(sizeof(kKinds) / sizeof(kKinds[0]));
    PromotWin::sInfo paras;
    paras.modal = 0;
    paras.kind = known ? kKinds[info.noticeType] : PromotWin::KIND_INFO;
    paras.title = info.text1;
    paras.text = info.text2;
    paras.subText = info.text3;
    paras.detail = info.text4;
    paras.rightBtnText = QString::fromUtf8("知道了");
    paras.rightBtnKind = 0;
    d_ptr->m_pNoticeWin->setParas(paras);
    d_ptr->m_pNoticeWin->show();
}
