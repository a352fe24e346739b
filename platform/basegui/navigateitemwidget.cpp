#include "navigateitemwidget.h"

NavigateItemWidget::NavigateItemWidget(QWidget* parent)
    : QWidget(parent)
{
}

NavigateItemWidget::~NavigateItemWidget() = default;

bool NavigateItemWidget::preShowEvent()
{
    return true;
}

void NavigateItemWidget::postShowEvent()
{
}

bool NavigateItemWidget::preHideEvent()
{
    return true;
}

void NavigateItemWidget::postHideEvent()
{
}

QString NavigateItemWidget::getBarName()
{
    return objectName();
}

QString NavigateItemWidget::getSelectedIcon()
{
    return QString();
}

QString NavigateItemWidget::getUnselectedIcon()
{
    return QString();
}

int NavigateItemWidget::getUIType()
{
    return 0;
}

QString NavigateItemWidget::getBarObject()
{
    return objectName();
}
