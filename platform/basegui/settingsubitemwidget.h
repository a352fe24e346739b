#pragma once

#include "basegui_global.h"

#include <QVariant>
#include <QWidget>

// One row of a settings page. The page passes its record through every row on
// save and asks each row whether what it shows is stored.
class BASEGUI_EXPORT SettingSubItemWidget : public QWidget
{
    Q_OBJECT
public:
    explicit SettingSubItemWidget(QWidget* parent = nullptr);
    ~SettingSubItemWidget() override;

    // Writes the row's value into `data`; false if it cannot.
    virtual bool slot_savePageInfo(QVariant& data);
    // Told after the page's store ran: a row that took its value as saved in
    // slot_savePageInfo takes it back when the store failed, so the edit on
    // screen still counts as unsaved.
    virtual void slot_saveFinished(bool stored);
    // True when the row shows the stored value.
    virtual bool slot_isSavedPageInfo();
    // Reloads the row from the backend.
    virtual bool slot_updatePageInfo();
    // Locks the row against edits (e.g. a policy from the management console).
    virtual void updateLockStatus(bool locked);
    bool isLocked() const;

private:
    bool m_locked = false;
};
