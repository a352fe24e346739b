#pragma once

// Value records the backend bridges carry in their signals and operations.
// Field order is part of the contract with the backend; keep it.

#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <cstdint>

// A simple prompt requested by the backend.
struct _sNoticeWinInfo_
{
    int noticeType = 0;   // 0..4
    QString text1;        // title
    QString text2;
    QString text3;
    QString text4;
};
Q_DECLARE_METATYPE(_sNoticeWinInfo_)

// Result of an uninstall request; registered only, nothing in the GUI reads it.
struct UNINSTALL_RESULT
{
    int result = 0;
    QString message;
};
Q_DECLARE_METATYPE(UNINSTALL_RESULT)

// A unified notice.
struct __sUniNoticeMsgInfo
{
    QString id;
    int64_t value1 = 0;   // level; low 32 bits compared, 2 = urgent
    QString text1;
    QString text2;
    int number1 = 15;
    int number2 = 3;
    QString text3;
    int number3 = -1;
    QString text4;
    QString text5;
    int number4 = -1;
};
Q_DECLARE_METATYPE(__sUniNoticeMsgInfo)

// One setting value.
struct __sSettingData
{
    int key = 0;
    QString name;
    QVariant value;
};
Q_DECLARE_METATYPE(__sSettingData)

// Base information word: the low 32 bits are the cloud-brain day count.
struct __sBaseModuleBaseInfo
{
    uint64_t value = 0;
};
Q_DECLARE_METATYPE(__sBaseModuleBaseInfo)

// Power action carried by the shutdown/restart notice: 0 and 1 shut down, 2 restarts.
enum eDevMgr : int32_t { EDEVMGR_SHUTDOWN = 0, EDEVMGR_SHUTDOWN_FORCE = 1, EDEVMGR_REBOOT = 2 };
Q_DECLARE_METATYPE(eDevMgr)

// A device-manager pop-up request.
struct __sDeviceMgrPopup
{
    QString winTitle;
    QString title;
    QString content;
    QString btnText;
    int time = -1;
    QString text5;
};
Q_DECLARE_METATYPE(__sDeviceMgrPopup)

// The general settings record: what the main panel's close button does
// (0 quit, 1 minimise to tray, 2 ask).
struct _SETTING_COMMON_
{
    int closeAction = 0;
};
Q_DECLARE_METATYPE(_SETTING_COMMON_)

// One version entry of the upgrade bridge; kind 1 virus library, 4 vulnerability library.
struct _VERINFO_
{
    QString version;
    QString text2;
    uint8_t flag1 = 0;
    uint8_t flag2 = 0;
    QString text3;
    int number = 0;
    int kind = 0;
};
Q_DECLARE_METATYPE(_VERINFO_)
Q_DECLARE_METATYPE(QList<_VERINFO_>)
