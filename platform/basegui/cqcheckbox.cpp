#include "cqcheckbox.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>
#include <QStyleOptionButton>

namespace {

QColor const kAccent(0x35, 0x6D, 0xEE);
QColor const kBorder(0xC4, 0xC6, 0xCF);
QColor const kDisabled(0xDF, 0xE1, 0xE6);

} // namespace

void CQCheckBox::setUpButton(QAbstractButton* button)
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(14);
    button->setFont(font);
    button->setCursor(Qt::PointingHandCursor);
    button->setAttribute(Qt::WA_Hover);
    QPalette palette = button->palette();
    palette.setColor(QPalette::WindowText, QColor(0x33, 0x34, 0x44));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0xB5, 0xB6, 0xBD));
    button->setPalette(palette);
}

CQCheckBox::CQCheckBox(QWidget* parent)
    : CQCheckBox(QString(), parent)
{
}

CQCheckBox::CQCheckBox(QString const& text, QWidget* parent)
    : QCheckBox(text, parent)
{
    setUpButton(this);
}

CQCheckBox::~CQCheckBox() = default;

void CQCheckBox::paintIndicator(QPainter* painter, QRectF const& rect, bool radio, Qt::CheckState state,
                                bool enabled, bool hovered)
{
    qreal const side = qMin<qreal>(14.0, qMin(rect.width(), rect.height()));
    QRectF const box(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    QColor const accent = enabled ? kAccent : kDisabled;
    bool const on = state != Qt::Unchecked;

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QRectF const inner = box.adjusted(0.5, 0.5, -0.5, -0.5);
    painter->setPen(QPen(on || hovered ? accent : kBorder, 1));
    painter->setBrush(radio || !on ? QBrush(Qt::white) : QBrush(accent));
    if (radio)
        painter->drawEllipse(inner);
    else
        painter->drawRoundedRect(inner, 2, 2);

    if (on && radio) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(accent);
        painter->drawEllipse(box.center(), side * 0.22, side * 0.22);
    } else if (state == Qt::PartiallyChecked) {
        painter->setPen(QPen(Qt::white, side / 7, Qt::SolidLine, Qt::RoundCap));
        painter->drawLine(QPointF(box.left() + side * 0.28, box.center().y()),
                          QPointF(box.right() - side * 0.28, box.center().y()));
    } else if (on) {
        painter->setPen(QPen(Qt::white, side / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        QPainterPath tick;
        tick.moveTo(box.left() + side * 0.24, box.top() + side * 0.52);
        tick.lineTo(box.left() + side * 0.43, box.top() + side * 0.70);
        tick.lineTo(box.left() + side * 0.77, box.top() + side * 0.32);
        painter->drawPath(tick);
    }
    painter->restore();
}

void CQCheckBox::paintButton(QAbstractButton* button, bool radio)
{
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    option.icon = button->icon();
    option.iconSize = button->iconSize();
    Qt::CheckState state = button->isChecked() ? Qt::Checked : Qt::Unchecked;
    if (auto* box = qobject_cast<QCheckBox*>(button))
        state = box->checkState();
    option.state |= state == Qt::Checked ? QStyle::State_On
                  : state == Qt::PartiallyChecked ? QStyle::State_NoChange : QStyle::State_Off;

    QStyle* style = button->style();
    QStyle::SubElement const indicatorElement = radio ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    QStyle::SubElement const contentsElement = radio ? QStyle::SE_RadioButtonContents : QStyle::SE_CheckBoxContents;
    QRect const indicator = style->subElementRect(indicatorElement, &option, button);

    QPainter painter(button);
    paintIndicator(&painter, indicator, radio, state, button->isEnabled(), button->underMouse());
    option.rect = style->subElementRect(contentsElement, &option, button);
    style->drawControl(radio ? QStyle::CE_RadioButtonLabel : QStyle::CE_CheckBoxLabel, &option, &painter, button);
}

void CQCheckBox::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    paintButton(this, false);
}
