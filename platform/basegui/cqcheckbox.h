#pragma once

#include "basegui_global.h"

#include <QCheckBox>

// A check box with the kit's painted indicator (accent box with a white tick).
class BASEGUI_EXPORT CQCheckBox : public QCheckBox
{
    Q_OBJECT
public:
    explicit CQCheckBox(QWidget* parent = nullptr);
    explicit CQCheckBox(QString const& text, QWidget* parent = nullptr);
    ~CQCheckBox() override;

    // The indicator of a check box or radio button of the kit, in `rect`.
    static void paintIndicator(QPainter* painter, QRectF const& rect, bool radio, Qt::CheckState state,
                               bool enabled, bool hovered);
    // Font, text colours and hover tracking shared by the kit's check boxes
    // and radio buttons.
    static void setUpButton(QAbstractButton* button);
    // Paints `button` (a QCheckBox or QRadioButton): the style's label and focus,
    // the kit's indicator.
    static void paintButton(QAbstractButton* button, bool radio);

protected:
    void paintEvent(QPaintEvent* event) override;
};
