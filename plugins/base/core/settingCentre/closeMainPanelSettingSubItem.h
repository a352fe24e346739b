#pragma once

#include "bridgerecords.h"
#include "settingsubitemwidget.h"

class CloseMainPanelSettingSubItemPrivate;

// Row of the general settings page: what the main panel's close button does
// (0 quit, 1 minimise to tray, 2 ask every time).
class CloseMainPanelSettingSubItem : public SettingSubItemWidget
{
    Q_OBJECT
public:
    explicit CloseMainPanelSettingSubItem(QWidget* parent = nullptr);
    ~CloseMainPanelSettingSubItem() override;

    bool slot_savePageInfo(QVariant& data) override;
    void slot_saveFinished(bool stored) override;
    bool slot_isSavedPageInfo() override;
    bool slot_updatePageInfo() override;
    void updateLockStatus(bool locked) override;

    // The value of the checked button, -1 when none is checked.
    int checkedValue() const;
    int savedValue() const;

signals:
    void sig_updateInfo(__sSettingData data);

public slots:
    void slot_updateInfo(__sSettingData data);

private:
    CloseMainPanelSettingSubItemPrivate* d_ptr = nullptr;
};
