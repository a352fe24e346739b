#pragma once

#include "settingitemwidget.h"

class CommonSettingPrivate;
class SettingSubItemWidget;

// The base plugin's page of the settings centre, "常规设置"; other plugins may
// add rows to it.
class CommonSetting : public SettingItemWidget
{
    Q_OBJECT
public:
    explicit CommonSetting(QWidget* parent = nullptr);
    ~CommonSetting() override;

    QString getBarObject() override;
    QString getBarName() override;
    QString getSelectedIcon() override;
    QString getUnselectedIcon() override;
    int getUIType() override;
    bool isInheritedControls() override;

    int registerItem(SettingSubItemWidget* item) override;
    int unRegisterItem(SettingSubItemWidget* item) override;

public slots:
    bool slot_updatePageInfo() override;

private:
    CommonSettingPrivate* d_ptr = nullptr;
};
