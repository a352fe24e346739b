#include "cqradiobutton.h"

#include "cqcheckbox.h"

CQRadioButton::CQRadioButton(QWidget* parent)
    : CQRadioButton(QString(), parent)
{
}

CQRadioButton::CQRadioButton(QString const& text, QWidget* parent)
    : QRadioButton(text, parent)
{
    CQCheckBox::setUpButton(this);
}

CQRadioButton::~CQRadioButton() = default;

void CQRadioButton::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    CQCheckBox::paintButton(this, true);
}
