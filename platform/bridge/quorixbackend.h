#pragma once

#include "bridge_global.h"
#include "bridgerecords.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

// What the bridges need of the security backend. The bridges turn these calls
// into their own operations and signals; a backend never talks to the GUI.
//
// Every operation may be called from any thread (the GUI moves the slow ones to
// the global thread pool), so implementations must be thread-safe. Events the
// backend raises on its own are its signals; the bridges forward them queued to
// the GUI thread, so a backend may emit them from any thread.
class BRIDGE_EXPORT QuorixBackend : public QObject
{
    Q_OBJECT
public:
    explicit QuorixBackend(QObject* parent = nullptr);
    ~QuorixBackend() override;

    // Base data.
    virtual bool isReady() = 0;
    virtual QString clientVersion() = 0;
    virtual QString virusDataVersion() = 0;
    virtual unsigned int guardDays() = 0;
    virtual quint64 baseInfo() = 0;
    // 0 when the backend accepted the request.
    virtual int requestWeakPasswdCheck() = 0;
    virtual int shutdown(int method) = 0;
    virtual int reboot() = 0;
    virtual void trayMenuShown() = 0;

    // Settings: records stored under their meta-type names.
    virtual __sSettingData readSetting(QString const& typeName) = 0;
    virtual bool writeSetting(QVariant const& data) = 0;

    // Verification; kind 1 is "exit".
    virtual int verifyPolicy(int kind) = 0;
    virtual int verifyPassword(int kind, QString const& password) = 0;

    // Upgrade service.
    virtual QString userId() = 0;
    virtual QList<_VERINFO_> libraryVersions(int kind) = 0;

    // Message centre.
    virtual int unreadMessageCount() = 0;

signals:
    void sig_appQuit();
    void sig_Jump(QString objName);
    void sig_hide();
    void sig_centerShow();
    void sig_noticeWin(_sNoticeWinInfo_ info);
    void sig_UniNotifyMsg(__sUniNoticeMsgInfo info);
    void sig_shutdown_reboot_notice(int method, int time);
    void sig_device_mgr_msg(__sDeviceMgrPopup info);
    // A new protection-day count, pushed without waiting for the next refresh.
    void sig_guardDays(unsigned int days);
    void sig_settingsChanged();
    void sig_unreadMsgCount(int count);
};
