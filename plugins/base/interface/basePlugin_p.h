#pragma once

#include "basePlugin.h"

#include <QAtomicInt>
#include <QPointer>

class AuthMgr;
class BaseTestWin;
class BootWin;
class ClientUpgradeItemWin;
class CommonSetting;
class CloseMainPanelSettingSubItem;
class CQLabelMultiFontSize;
class MainExitInputPassword;
class MessageTip;
class PromotWin;
class VersionStatusCardWin;

// State and frame building of BasePlugin. Every widget is held through a
// QPointer: the host may destroy the main window (and with it the title bar
// and the navigation) before the plugin.
class BasePluginPrivate
{
    Q_DECLARE_PUBLIC(BasePlugin)

public:
    explicit BasePluginPrivate(BasePlugin* q);
    ~BasePluginPrivate();

    static void registerMetaType();

    void InitVars();
    void InitUINavigate();
    void InitUITray();
    void InitUITitle();
    void InitUIMenuBar();
    void InitUICenterArea();
    void InitUIBottomWin();
    void initAuthMgr();
    void InitControl();
    void registerTest();
    void registerUpgradeItemWin();
    void registerVersionCardWin();
    void startGlobalTimer();
    void stopGlobalTimer();
    void unInitTestActionEntry();
    void unInitUpgradeWin();
    // Starts the quit-mode read; the answer comes as sig_updateQuitMode.
    void getQuitMode();

    void recolourTitleBar(QString const& pageName);

    BasePlugin* q_ptr = nullptr;

    QPointer<NavigateWidget> m_pNavigateWidget;
    QPointer<MainWinTitleBar> m_pMainWinTitleBar;
    QPointer<HomePageWidget> m_pHomePageWidget;
    QPointer<QWidget> m_pMainWindow;
    QPointer<QWidget> m_pWidgetBottomBar;
    QPointer<CQLabel> m_pLabelVersion;
    QPointer<CommonSetting> m_pCommonSetting;
    QPointer<CloseMainPanelSettingSubItem> m_pCloseMainPanelItem;
    QPointer<MessageTip> m_pMessageTip;
    QPointer<QTimer> m_pGlobalTimer;
    QPointer<GoodsShelf> m_pGoodsShelf;
    QPointer<VersionStatusCardWin> m_pVersionStatusCardWin;
    int m_nSilentStart = 0;
    QAtomicInt m_needWeakPassdCheck;

    QPointer<QWidget> m_pNavigateBackWin;
    QPointer<AuthMgr> m_pAuthMgr;
    QPointer<ClientUpgradeItemWin> m_pClientUpgradeItemWin;
    QPointer<QWidgetAction> m_pActionTest;
    QPointer<CQLabelMultiFontSize> m_pGuardDaysLabel;
    // Windows of the quit flow and the backend's notice prompt.
    QPointer<MainExitAskWin> m_pAskWin;
    QPointer<MainExitInputPassword> m_pInputPassword;
    QPointer<PromotWin> m_pNoticeWin;
    // One shutdown/restart order at a time: a second order updates it.
    QPointer<BootWin> m_pBootWin;
    // The developer test window, opened from the test entry.
    QPointer<BaseTestWin> m_pTestWin;
    // Actions other plugins put into the right-top menu; an unregistration is
    // matched against these by address before anything is dereferenced.
    QList<QPointer<QAction>> m_menuActions;
};
