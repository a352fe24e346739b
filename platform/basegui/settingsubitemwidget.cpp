#include "settingsubitemwidget.h"

SettingSubItemWidget::SettingSubItemWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
}

SettingSubItemWidget::~SettingSubItemWidget() = default;

// A row without a value of its own leaves the record as it is.
bool SettingSubItemWidget::slot_savePageInfo(QVariant& data)
{
    Q_UNUSED(data)
    return true;
}

void SettingSubItemWidget::slot_saveFinished(bool stored)
{
    Q_UNUSED(stored)
}

bool SettingSubItemWidget::slot_isSavedPageInfo()
{
    return true;
}

bool SettingSubItemWidget::slot_updatePageInfo()
{
    return true;
}

// A locked row still shows its value but takes no input.
void SettingSubItemWidget::updateLockStatus(bool locked)
{
    m_locked = locked;
    setEnabled(!locked);
}

bool SettingSubItemWidget::isLocked() const
{
    return m_locked;
}
