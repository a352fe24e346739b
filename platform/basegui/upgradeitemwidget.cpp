#include "upgradeitemwidget.h"

UpgradeItemWidget::UpgradeItemWidget(QWidget* parent)
    : QWidget(parent)
{
}

UpgradeItemWidget::~UpgradeItemWidget() = default;

QString UpgradeItemWidget::name() const
{
    return objectName();
}

int UpgradeItemWidget::type() const
{
    return 0;
}
