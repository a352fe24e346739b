#pragma once

#include "framelinkproxyinterface.h"

#include <QMutex>
#include <QObject>
#include <QPointer>

class SettingCentreWidget;
class SettingItemWidget;

// The only way into the settings centre: owns the window (created on the first
// open, gone when its last page leaves) and takes the pages plugins register.
// Mounted on the frame link proxy as "SettingCentreWidget", so
// FrameLinkProxy::gotoPageByObjName("SettingCentreWidget") opens it.
class CSettingCenterWidgetMgr : public QObject, public FrameLinkProxyInterface
{
    Q_OBJECT
public:
    static CSettingCenterWidgetMgr* singleInstance();
    static void UninitInstance(bool now);

    void InitUIMainWin();
    void unInitUIMainWin();
    void hideUIMainWin();

    // Opens (creating if needed) and raises the window, then asks every plugin
    // for its pages with sig_registerItem. Always true.
    bool gotoChildObject(QString const& name) override;

    // Without a window these do nothing: pages come again on the next open.
    void registerItem(SettingItemWidget* page);
    void unRegisterItem(SettingItemWidget* page);

    SettingCentreWidget* window() const;

signals:
    void sig_registerItem();

private:
    CSettingCenterWidgetMgr();
    ~CSettingCenterWidgetMgr() override;

    QPointer<SettingCentreWidget> m_pSettingCentreWidget;
    mutable QMutex m_mutex;
};
