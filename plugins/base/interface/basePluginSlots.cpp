// BasePlugin: the fan-out of backend events and the periodic data refresh.

#include "basePlugin.h"
#include "basePlugin_p.h"

#include "asyncInvoker.h"
#include "baseCmdDefine.h"
#include "baseTestWin.h"
#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"
#include "cqlabel.h"
#include "cqlabelmultifontsize.h"
#include "cqpluginmanager.h"
#include "framelinkproxy.h"
#include "homePageWidget.h"
#include "mainWinTitleBar.h"
#include "trayWidget.h"

#include <QLabel>
#include <QtConcurrent>

namespace {

char const* const kModule = "plugins/base/interface/basePlugin";
char const* const kDefaultProductName = "Quorix终端安全管理系统";
char const* const kHomeTitleWithAv = "安全守护每一刻";
char const* const kDaysTextStyle = "font-family:\"Noto Sans CJK SC\";font-size:14px;color:#515260;";
char const* const kDaysNumberStyle = "font-family:\"Noto Sans CJK SC\";font-size:18px;color:#333444;font-weight:500;";

} // namespace

void BasePlugin::InitControlInterface()
{
    Q_D(BasePlugin);
    qRegisterMetaType<_sNoticeWinInfo_>("sNoticeWinInfo");
    qRegisterMetaType<__sBaseModuleBaseInfo>("sBaseModuleBaseInfo");
    using Bridge = BasePluginModelDataInterface;
    Bridge* bridge = Bridge::singleInstance();
    if (!bridge) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BasePlugin] base bridge is null, not connected");
        return;
    }
    auto const queued = Qt::QueuedConnection;
    auto const broadcast = [this](char const* cmd) {
        return [this, cmd]() { emit sig1(QStringLiteral(EPLUGIN_ID_ALL_PLUGIN), QString::fromLatin1(cmd), QVariant()); };
    };

    connect(bridge, &Bridge::sig_appQuit, this, &BasePlugin::slot_exit, queued);
    connect(bridge, &Bridge::sig_setClientVersionInfo, this, &BasePlugin::slot_ClientVersion, queued);
    connect(bridge, &Bridge::sig_Jump, this, &BasePlugin::slot_Jump, queued);
    connect(bridge, &Bridge::sig_hide, this, [this]() { hideMainWindow(); }, queued);
    connect(bridge, &Bridge::sig_noticeWin, this, &BasePlugin::slot_noticeWin, queued);
    connect(bridge, &Bridge::sig_UniNotifyMsg, this, &BasePlugin::slot_UniNotifyMsg, queued);
    connect(bridge, &Bridge::sig_centerShow, this, broadcast(EPLUGIN_ID_BASE_CMD_MAINWINDOW_SHOW), queued);
    if (d->m_pMainWinTitleBar)
        connect(bridge, &Bridge::sig_base_info, d->m_pMainWinTitleBar, &MainWinTitleBar::slot_base_info, queued);
    connect(bridge, &Bridge::sig_base_info, this, &BasePlugin::slot_base_info, queued);
    connect(bridge, &Bridge::sig_CumulativeGuardDays, this, &BasePlugin::slot_updateProtectDays, queued);
    connect(bridge, &Bridge::sig_weakPasswdCheckRecieved, this, [this]() {
        if (!d_ptr)
            return;
        d_ptr->m_needWeakPassdCheck.storeRelaxed(0);
        BFLogPrintX(2, kModule, "slot_weakPasswdCheckRecieved", __LINE__,
                    "[BasePlugin] =========== backend receive weak passwd check, d->m_needWeakPassdCheck.store(0);");
    }, queued);
    connect(bridge, &Bridge::sig_shutdown_reboot_notice, this, &BasePlugin::slot_shutdown_reboot_notice, queued);
    connect(bridge, &Bridge::sig_trayPopShow, this, broadcast(EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_SHOW), queued);
    connect(bridge, &Bridge::sig_trayPopHide, this, broadcast(EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_CLOSE), queued);
    connect(bridge, &Bridge::sig_device_mgr_msg, this, &BasePlugin::slot_device_mgr_msg, queued);
}

void BasePlugin::hideMainWindow()
{
    if (d_ptr && d_ptr->m_pMainWindow)
        d_ptr->m_pMainWindow->hide();
}

void BasePlugin::slot_minimize()
{
    if (d_ptr && d_ptr->m_pMainWindow)
        d_ptr->m_pMainWindow->showMinimized();
}

void BasePlugin::slot_mainFrameAutoStart()
{
    if (!d_ptr)
        return;
    d_ptr->m_nSilentStart = 1;
    hideMainWindow();
}

void BasePlugin::slot_exit()
{
    emit sig(QStringLiteral(EPLUGIN_ID_BASE_CMD_MAINEXIT), QVariant());
}

void BasePlugin::slot_ClientVersion(QString version)
{
    if (!d_ptr || !d_ptr->m_pLabelVersion)
        return;
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    if (!bridge)
        return;
    QString first;
    QString second;
    QString third;
    bridge->myVersion2QuorixVersion(version, first, second, third);
    CQLabel::LabelWidthAdjustText(d_ptr->m_pLabelVersion, bridge->quorixVersionDisplayText(first, second, third));
}

void BasePlugin::slot_Jump(QString objName)
{
    FrameLinkProxy::singleInstance()->gotoPageByObjName(objName);
}

void BasePlugin::slot_base_info(__sBaseModuleBaseInfo info)
{
    if (!d_ptr || !d_ptr->m_pGuardDaysLabel)
        return;
    CQLabelMultiFontSize* label = d_ptr->m_pGuardDaysLabel;
    label->updateContent(0, QString::fromUtf8("已累计陪伴"), QString::fromLatin1(kDaysTextStyle));
    label->updateContent(1, QStringLiteral("%1").arg(static_cast<qulonglong>(info.value)), QString::fromLatin1(kDaysNumberStyle));
    label->updateContent(2, QString::fromUtf8("天"), QString::fromLatin1(kDaysTextStyle));
    label->adjustSize();
}

void BasePlugin::slot_updateProtectDays(unsigned int days)
{
    updateProtectDays(days);
}

// "%2" is the placeholder on purpose: arg() fills the lowest one present.
void BasePlugin::updateProtectDays(unsigned int days)
{
    if (!m_pLabelHint)
        return;
    m_pLabelHint->setText(tr("已保护您的电脑 <font color=#356DEE>%2 </font> 天").arg(days, 0, 10, QLatin1Char(' ')));
}

// Without a parent: the window stays up while the main window is hidden,
// which is one of the events a tester raises from it.
void BasePlugin::slot_showTestMainWin()
{
    if (!d_ptr)
        return;
    if (!d_ptr->m_pTestWin) {
        d_ptr->m_pTestWin = new BaseTestWin(nullptr);
        BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] developer test window opened");
    }
    BaseTestWin* window = d_ptr->m_pTestWin;
    window->show();
    window->raise();
    window->activateWindow();
}

void BasePlugin::slot_update_data()
{
    if (!d_ptr)
        return;
    BasePluginPrivate* const d = d_ptr;
    BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
    if (bridge) {
        bridge->requestUpdateData();
        // Only moved off the GUI thread: the answer itself is not needed.
        QFuture<bool> ready = QtConcurrent::run(bridge, &BasePluginModelDataInterface::isBackendReady);
        AsyncInvoker::await(ready, nullptr, nullptr);
    }
    if (d->m_needWeakPassdCheck.loadRelaxed() != 0) {
        BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[BasePlugin] =========== notify check Weak passwd to backend");
        if (bridge)
            bridge->requestWeakPasswdCheck();
    }
    TrayWidget::singleInstance()->showTrayIcon();
    if (d->m_nSilentStart != 0) {
        d->m_needWeakPassdCheck.storeRelaxed(1);
        d->m_nSilentStart = 0;
    }
    updateHomeFallback();
}

// Without the antivirus plugin the home page shows the guard-day counter in
// its data area and the product name as title; with it, its engine status
// widget and the antivirus title take over.
void BasePlugin::updateHomeFallback()
{
    BasePluginPrivate* const d = d_ptr;
    HomePageWidget* home = d->m_pHomePageWidget;
    if (CQPluginManager::plugin(QStringLiteral(EPLUGIN_ID_STANDARDAV))) {
        if (d->m_pGuardDaysLabel) {
            d->m_pGuardDaysLabel->setParent(nullptr);
            d->m_pGuardDaysLabel->deleteLater();
            d->m_pGuardDaysLabel = nullptr;
        }
        if (home)
            home->updateTitle(QString::fromUtf8(kHomeTitleWithAv));
        return;
    }
    if (!d->m_pGuardDaysLabel) {
        auto* label = new CQLabelMultiFontSize(3);
        label->setObjectName(QStringLiteral("CumulativeGuardDays"));
        d->m_pGuardDaysLabel = label;
    }
    sendToSelf(BASEPLUGIN_CMD_REGISTER_HOMEWIN_DATA_AREA, d->m_pGuardDaysLabel, 0, QPoint(0, 14));
    if (home)
        home->updateTitle(QString::fromUtf8(kDefaultProductName));
}
