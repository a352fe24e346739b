#include "basePluginCmd.h"

#include "authMgr.h"
#include "authmgritem.h"
#include "baseCmdDefine.h"
#include "basePlugin.h"
#include "basePlugin_p.h"
#include "basegui_common.h"
#include "basepluginmodeldatainterface.h"
#include "cmdPayload.h"
#include "cWinAbout.h"
#include "commonSetting.h"
#include "cqmenu.h"
#include "goodsShelf.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "messageTip.h"
#include "navigateitemwidget.h"
#include "navigatewidget.h"
#include "settingCentreWidgetMgr.h"
#include "settingitemwidget.h"
#include "settingsubitemwidget.h"
#include "submessagetipiteminterface.h"
#include "trayWidget.h"
#include "versionStatusCardWin.h"

#include <QAction>
#include <QTimer>

namespace {

int const kDataTimerMs = 10000;

bool is(QString const& cmd, char const* name)
{
    return cmd == QLatin1String(name);
}

// The record with its object kept only if it is a live widget: for commands
// whose target takes widgets, anything else (a stale pointer included) is null.
sPluginRegisterItem widgetRecord(QVariant const& para)
{
    sPluginRegisterItem item = CmdPayload::record(para);
    item.object = CmdPayload::liveWidget(item.object);
    return item;
}

QString pluginId(QVariant const& para)
{
    return para.userType() == QMetaType::QString ? para.toString() : QString();
}

} // namespace

BasePluginCmd::BasePluginCmd(BasePlugin& plugin)
    : q(plugin)
    , d(plugin.d_ptr)
{
}

void BasePluginCmd::exec(QString const& cmd, QVariant const& para)
{
    if (!d)
        return;   // torn down: the frame is gone
    // The navigation pair is tested on its own and does not end the chain.
    navigateItem(cmd, para);
    static Group const chain[] = {
        &BasePluginCmd::navigateBottom, &BasePluginCmd::homePage,        &BasePluginCmd::tray,
        &BasePluginCmd::menuItem,       &BasePluginCmd::settingPage,     &BasePluginCmd::dataArea,
        &BasePluginCmd::title,          &BasePluginCmd::baseSettingPage, &BasePluginCmd::pluginManage,
        &BasePluginCmd::messageTip,     &BasePluginCmd::mainWindow,      &BasePluginCmd::aboutWin,
        &BasePluginCmd::rightTopMenu,   &BasePluginCmd::realAuth,        &BasePluginCmd::settingCenterOpen,
    };
    for (Group group : chain) {
        if ((this->*group)(cmd, para))
            return;
    }
}

void BasePluginCmd::navigateItem(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_NAVIGATE_ITEM)) {
        if (d->m_pNavigateWidget)
            d->m_pNavigateWidget->addItem(CmdPayload::liveWidget<NavigateItemWidget>(para));
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_ITEM)) {
        if (d->m_pNavigateWidget)
            d->m_pNavigateWidget->removeItem(CmdPayload::liveWidget<NavigateItemWidget>(para));
    }
}

bool BasePluginCmd::navigateBottom(QString const& cmd, QVariant const& para)
{
    bool const add = is(cmd, BASEPLUGIN_CMD_REGISTER_NAVIGATE_BOOTOM_WIN);
    if (!add && !is(cmd, BASEPLUGIN_CMD_UNREGISTER_NAVIGATE_BOOTOM_WIN))
        return false;
    sPluginRegisterItem const item = widgetRecord(para);
    auto* w = static_cast<QWidget*>(item.object);
    if (!w)
        return true;
    if (add) {
        if (!d->m_pWidgetBottomBar
            || basegui::Common::refusesOwnAncestor(d->m_pWidgetBottomBar, w, "BasePlugin"))
            return true;
        w->setParent(d->m_pWidgetBottomBar);
        w->move(item.extra.toPoint());
        w->show();
    } else {
        // Ownership goes back to the caller.
        w->setParent(nullptr);
        w->hide();
    }
    return true;
}

bool BasePluginCmd::homePage(QString const& cmd, QVariant const& para)
{
    HomePageWidget* home = d->m_pHomePageWidget;
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_HOMEPAGE)) {
        // A row may be any object (the page logs the ones that are not widgets).
        if (home)
            home->registerItem(CmdPayload::record(para));
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_HOMEPAGE)) {
        if (home)
            home->unRegisterItem(para.toInt());
    } else if (is(cmd, BASEPLUGIN_CMD_REGISTER_CARDAREA)) {
        if (home)
            home->registerItem2CardArea(widgetRecord(para));
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_CARDAREA)) {
        if (home)
            home->unRegisterItem2CardArea(para.toInt());
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::tray(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_TRAY)) {
        sPluginRegisterItem const item = widgetRecord(para);
        TrayWidget::singleInstance()->registMenu(static_cast<QWidget*>(item.object), item.index);
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_TRAY)) {
        // A null widget frees nothing: the menu would free the index whoever holds it.
        sPluginRegisterItem const item = widgetRecord(para);
        if (item.object)
            TrayWidget::singleInstance()->unRegistMenu(static_cast<QWidget*>(item.object), item.index);
    } else if (is(cmd, BASEPLUGIN_CMD_REGISTER_TRAY_GOODS)) {
        sPluginRegisterItem const item = widgetRecord(para);
        if (d->m_pGoodsShelf)
            d->m_pGoodsShelf->registerItem(static_cast<QWidget*>(item.object), item.index);
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_TRAY_GOODS)) {
        if (d->m_pGoodsShelf)
            d->m_pGoodsShelf->unRegisterItem(para.toInt());
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::menuItem(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_MENUITEM)) {
        sPluginRegisterItem const item = CmdPayload::record(para);
        // A widget is never an action; anything else is the sender's action,
        // which it keeps alive until it unregisters it.
        QAction* action = CmdPayload::liveWidget(item.object) ? nullptr : qobject_cast<QAction*>(item.object);
        if (q.m_pMenu && q.m_pMenu->myAddAction(action, item.index) == 0 && !d->m_menuActions.contains(action))
            d->m_menuActions.append(QPointer<QAction>(action));
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_MENUITEM)) {
        sPluginRegisterItem const item = CmdPayload::record(para);
        QAction* action = nullptr;
        for (auto it = d->m_menuActions.begin(); it != d->m_menuActions.end();) {
            if (it->isNull()) {
                it = d->m_menuActions.erase(it);
                continue;
            }
            if (static_cast<QObject*>(it->data()) == item.object)
                action = it->data();
            ++it;
        }
        // Only an action this menu got through the bus; the menu itself would
        // free the index for any (even a null) action.
        if (q.m_pMenu && action)
            q.m_pMenu->myRemoveAction(action, item.index);
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::settingPage(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_SETTING))
        CSettingCenterWidgetMgr::singleInstance()->registerItem(CmdPayload::liveWidget<SettingItemWidget>(para));
    else if (is(cmd, BASEPLUGIN_CMDTYPE_UNREGISTER_SETTING))
        CSettingCenterWidgetMgr::singleInstance()->unRegisterItem(CmdPayload::liveWidget<SettingItemWidget>(para));
    else
        return false;
    return true;
}

bool BasePluginCmd::dataArea(QString const& cmd, QVariant const& para)
{
    if (!is(cmd, BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA))
        return false;
    if (d->m_pHomePageWidget)
        d->m_pHomePageWidget->registerItem2DataArea(widgetRecord(para));
    return true;
}

bool BasePluginCmd::title(QString const& cmd, QVariant const& para)
{
    bool const add = is(cmd, BASEPLUGIN_CMD_REGISTERWIN2TITLE);
    if (!add && !is(cmd, BASEPLUGIN_CMD_UNREGISTER2TITLE))
        return false;
    sPluginRegisterItem const item = widgetRecord(para);
    auto* w = static_cast<QWidget*>(item.object);
    if (!w || !d->m_pMainWinTitleBar)
        return true;
    auto const dir = static_cast<eBaseTitleBarDir>(item.extra.toInt());
    auto const pos = static_cast<eBaseTitleBarObjPosID>(item.index);
    if (add)
        d->m_pMainWinTitleBar->registerWin(w, dir, pos);
    else
        d->m_pMainWinTitleBar->unRegisterWin(w, dir, pos);
    return true;
}

bool BasePluginCmd::baseSettingPage(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMDTYPE_REGISTER_BASESETTINGPAGE)) {
        if (d->m_pCommonSetting)
            d->m_pCommonSetting->registerItem(CmdPayload::liveWidget<SettingSubItemWidget>(para));
    } else if (is(cmd, BASEPLUGIN_CMDTYPE_UNREGISTER_BASESETTINGPAGE)) {
        if (d->m_pCommonSetting)
            d->m_pCommonSetting->unRegisterItem(CmdPayload::liveWidget<SettingSubItemWidget>(para));
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::pluginManage(QString const& cmd, QVariant const& para)
{
    if (is(cmd, PLUGINMANAGE_CMDTYPE_INSTALL)) {
        onInstall(pluginId(para));
    } else if (is(cmd, PLUGINMANAGE_CMDTYPE_UNSTALL)) {
        if (pluginId(para) == QLatin1String(EPLUGIN_ID_UPGRADE))
            d->unInitUpgradeWin();
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::messageTip(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMDTYPE_ADDITEM2MESSAGETIP)) {
        if (d->m_pMessageTip)
            d->m_pMessageTip->registerItem(CmdPayload::liveWidget<SubMessageTipItemInterface>(para));
    } else if (is(cmd, BASEPLUGIN_CMDTYPE_DELITEM2MESSAGETIP)) {
        if (d->m_pMessageTip)
            d->m_pMessageTip->unRegisterItem(CmdPayload::liveWidget<SubMessageTipItemInterface>(para));
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::mainWindow(QString const& cmd, QVariant const&)
{
    if (is(cmd, BASEPLUGIN_CMD_MINIMIZE_WIN_2_TRAY))
        q.hideMainWindow();
    else if (is(cmd, EPLUGIN_ID_BASE_CMD_TMP_QUIT))
        q.slot_close();
    else if (is(cmd, EPLUGIN_ID_BASE_CMD_SILENT_STARTUP))
        q.slot_mainFrameAutoStart();
    else
        return false;
    return true;
}

bool BasePluginCmd::aboutWin(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMDTYPE_REGISTER_ABOUTWIN)) {
        if (q.m_pWinAbout) {
            sPluginRegisterItem const item = widgetRecord(para);
            q.m_pWinAbout->registerItem(static_cast<QWidget*>(item.object), item.index);
        }
    } else if (is(cmd, BASEPLUGIN_CMDTYPE_UNREGISTER_ABOUTWIN)) {
        if (q.m_pWinAbout)
            q.m_pWinAbout->unRegisterItem(para.toInt());
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::rightTopMenu(QString const& cmd, QVariant const&)
{
    if (is(cmd, EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_SHOW))
        q.registerRightTopMenu();
    else if (is(cmd, EPLUGIN_ID_ALL_PLUGIN_CMD_RIGHTTOP_POP_HIDE))
        q.unRegisterRightTopMenu();
    else
        return false;
    return true;
}

bool BasePluginCmd::realAuth(QString const& cmd, QVariant const& para)
{
    if (is(cmd, BASEPLUGIN_CMD_REGISTER_REALAUTH_TEM)) {
        if (d->m_pAuthMgr)
            d->m_pAuthMgr->registerItem(CmdPayload::liveWidget<AuthMgritem>(para));
    } else if (is(cmd, BASEPLUGIN_CMD_UNREGISTER_REALAUTH_TEM)) {
        if (d->m_pAuthMgr)
            d->m_pAuthMgr->unRegisterItem(para.toInt());
    } else {
        return false;
    }
    return true;
}

bool BasePluginCmd::settingCenterOpen(QString const& cmd, QVariant const&)
{
    if (!is(cmd, EPLUGIN_ID_SETTINGCENTER_CMD_OPEN))
        return false;
    if (d->m_pCommonSetting)
        CSettingCenterWidgetMgr::singleInstance()->registerItem(d->m_pCommonSetting);
    return true;
}

void BasePluginCmd::onInstall(QString const& id)
{
    if (id == QLatin1String(EPLUGIN_ID_ACTIVEDEFENSE)) {
        if (d->m_pCommonSetting)
            d->m_pCommonSetting->slot_updatePageInfo();
    } else if (id == QLatin1String(EPLUGIN_ID_TEST)) {
        d->registerTest();
    } else if (id == QLatin1String(EPLUGIN_ID_UPGRADE)) {
        d->registerUpgradeItemWin();
        d->registerVersionCardWin();
    } else if (id == QLatin1String(EPLUGIN_ID_BRIDGE_BASE)) {
        onBridgeInstalled();
    } else if (id == QLatin1String(EPLUGIN_ID_STANDARDAV) || id == QLatin1String(EPLUGIN_ID_VULSCAN)) {
        if (d->m_pVersionStatusCardWin)
            d->m_pVersionStatusCardWin->updateVersion();
    }
}

// No guard against a second install: the bridge signals are then connected
// twice and the data timer restarts.
void BasePluginCmd::onBridgeInstalled()
{
    q.InitControlInterface();
    if (BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance())
        bridge->requestUpdateData();
    emit q.sig(QStringLiteral(EPLUGIN_ID_BASE_CMD_INIT_CONNECT), QVariant());
    if (d->m_pGlobalTimer)
        d->m_pGlobalTimer->start(kDataTimerMs);
    q.slot_update_data();
}
