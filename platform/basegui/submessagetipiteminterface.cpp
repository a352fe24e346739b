#include "submessagetipiteminterface.h"

SubMessageTipItemInterface::SubMessageTipItemInterface(QWidget* parent)
    : QWidget(parent)
{
    // A panel fills the tip's stack; without a styled background a panel's
    // style sheet background would not be painted.
    setAttribute(Qt::WA_StyledBackground);
}

SubMessageTipItemInterface::~SubMessageTipItemInterface() = default;
