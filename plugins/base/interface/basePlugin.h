#pragma once

#include "bridgerecords.h"
#include "cqbaseplugin.h"
#include "mainExitAskWin.h"

#include <QPointer>

class AuthMgr;
class BasePluginPrivate;
class CommonSetting;
class MessageTip;
class MsgMgrWinInterface;
class VersionStatusCardWin;
class CQLabel;
class CQMenu;
class CQMenuItem;
class CWinAbout;
class GoodsShelf;
class HomePageWidget;
class MainWinTitleBar;
class NavigateWidget;
class QAction;
class QLabel;
class QTimer;
class QWidgetAction;

// The base GUI plugin: builds the main window's frame (navigation, title bar,
// home page, bottom bar, tray) and serves the other plugins through execCmd.
// It reaches the backend through the bridge singletons once the bridge plugin
// is installed.
// Exported so that the host and tools can see the class behind qt_plugin_instance.
class Q_DECL_EXPORT BasePlugin : public CQBasePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.quorix.dravoforlinux.BasePlugin/1.0" FILE "basePlugin.json")
    Q_DECLARE_PRIVATE(BasePlugin)

public:
    explicit BasePlugin(QObject* parent = nullptr);
    ~BasePlugin() override;

    // `host` holds the main window (QVariant::fromValue<QObject*>). Without a
    // usable one the frame is still built, only not placed. Always 0.
    int init(QVariant const& host) override;
    // The command bus. Always an invalid QVariant; nothing is logged.
    QVariant execCmd(QString cmd, QVariant const& para) override;

    // The frame's parts, for the host and for tests; null before init.
    QWidget* mainWindow() const;
    NavigateWidget* navigateWidget() const;
    MainWinTitleBar* titleBar() const;
    HomePageWidget* homePage() const;
    GoodsShelf* goodsShelf() const;
    CQMenu* rightTopMenu() const;
    CWinAbout* aboutWin() const;
    QWidget* bottomBar() const;
    QLabel* trayHintLabel() const;
    QTimer* dataTimer() const;
    CommonSetting* commonSetting() const;
    MessageTip* messageTip() const;
    AuthMgr* authMgr() const;
    VersionStatusCardWin* versionStatusCard() const;

signals:
    void sig_minimize();
    void sig_updateQuitMode(__sSettingData data);

public slots:
    void slot_setting();
    void slot_minimize();
    void slot_close();
    void slot_about();
    void slot_exit();
    void slot_exit_second_confirm();
    void slot_updateQuitMode(__sSettingData data);
    void slot_is_quit(MainExitAskWin::eSelectedItem item, bool remember);
    void slot_exit_input_password_result(bool ok);
    void slot_update_data();
    void slot_mainFrameAutoStart();
    void slot_showTestMainWin();

    // Bridge events.
    void slot_ClientVersion(QString version);
    void slot_Jump(QString objName);
    void slot_noticeWin(_sNoticeWinInfo_ info);
    void slot_UniNotifyMsg(__sUniNoticeMsgInfo info);
    void slot_base_info(__sBaseModuleBaseInfo info);
    void slot_updateProtectDays(unsigned int days);
    void slot_shutdown_reboot_notice(int method, int time);
    void slot_device_mgr_msg(__sDeviceMgrPopup info);
    // The user's answer to a shutdown or restart order, or its count-down.
    void slot_boot(eDevMgr method);

private:
    friend class BasePluginCmd;

    void InitControlInterface();
    void registerRightTopMenu();
    void unRegisterRightTopMenu();
    void registerMenuSetting();
    void unRegisterMenuSetting();
    void registerTray();
    void unRegisterTray();
    void createTrayRows();
    QWidget* createTrayTitleRow();
    void updateProtectDays(unsigned int days);
    void hideMainWindow();
    void showQuitAskWin();
    bool showQuitTaskMutexWin();
    void showQuitConfirmWin();
    void showInputQuitPasswordWin();
    void updateHomeFallback();
    void registerWithMsgMgr(MsgMgrWinInterface* window);
    void sendToSelf(char const* cmd, QObject* object, int index, QVariant const& extra = QVariant());

    BasePluginPrivate* d_ptr = nullptr;
    QPointer<CWinAbout> m_pWinAbout;
    QPointer<CQMenu> m_pMenu;
    // Entries of the right-top menu, created once and reused.
    QPointer<QWidgetAction> m_pActionSetting;
    QPointer<QWidgetAction> m_pActionAbout;
    // The tray menu rows this plugin registers (-400, -300, 20, 500).
    QPointer<QWidget> m_pTrayTitleRow;
    QPointer<QLabel> m_pLabelHint;
    QPointer<QWidget> m_pTraySettingRow;
    QPointer<QWidget> m_pTrayQuitRow;
};
