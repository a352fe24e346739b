#pragma once

#include "bridge_global.h"
#include "bridgerecords.h"

#include <QObject>
#include <QString>
#include <QVector>

// The backend's base data and events for the GUI. Signals are emitted on the
// bridge's thread and reach the GUI queued.
class BRIDGE_EXPORT BasePluginModelDataInterface : public QObject
{
    Q_OBJECT
public:
    static BasePluginModelDataInterface* singleInstance();
    static void UninitInstance(bool now);

    // Tells the backend the GUI is up and asks it to (re)send its data: client
    // version, base info, protection days. Also the 10-second refresh request.
    virtual int requestUpdateData();
    // Cheap liveness query of the backend; may block, so callers run it off the GUI thread.
    virtual bool isBackendReady();
    // Asks the backend to check for weak passwords; it acknowledges with sig_weakPasswdCheckRecieved.
    virtual int requestWeakPasswdCheck();
    // Power orders confirmed by the user: 0 or 1 shut down, restart is separate.
    virtual int requestShutdown(int method);
    virtual int requestReboot();
    // Asks for the versions shown by the about window (answers: sig_setClientVersionInfo,
    // sig_setVirusDataVersionInfo).
    virtual int requestVersionInfo();
    // The tray menu is about to be shown.
    virtual int notifyTrayMenuShow();

    // "10.0.2.7550" -> first "10.0" (major.minor), second "2", third "7550"
    // (build); shorter versions leave the missing parts empty, junk (anything
    // but up to four dot-separated numbers, an optional leading "V") gives three
    // empty parts.
    virtual void myVersion2QuorixVersion(QString const& version, QString& first, QString& second, QString& third);
    // Display text of a split version, e.g. "V10.0.2.7550"; "" without a first part.
    virtual QString quorixVersionDisplayText(QString const& first, QString const& second, QString const& third);

signals:
    void sig_appQuit();
    void sig_setClientVersionInfo(QString version);
    void sig_setVirusDataVersionInfo(QString version);
    void sig_Jump(QString objName);
    void sig_hide();
    void sig_noticeWin(_sNoticeWinInfo_ info);
    void sig_UniNotifyMsg(__sUniNoticeMsgInfo info);
    void sig_centerShow();
    void sig_base_info(__sBaseModuleBaseInfo info);
    void sig_CumulativeGuardDays(unsigned int days);
    void sig_weakPasswdCheckRecieved();
    void sig_shutdown_reboot_notice(int method, int time);
    void sig_trayPopShow();
    void sig_trayPopHide();
    void sig_device_mgr_msg(__sDeviceMgrPopup info);

protected:
    explicit BasePluginModelDataInterface(QObject* parent = nullptr);
    ~BasePluginModelDataInterface() override;

private:
    // Forwards the backend's own events (notices, pop-ups, quit...) queued.
    void bindBackend();
    void emitBaseData(bool withDays);

    QVector<QMetaObject::Connection> m_backendLinks;
};
