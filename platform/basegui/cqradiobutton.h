#pragma once

#include "basegui_global.h"

#include <QRadioButton>

// A radio button with the kit's painted indicator (accent ring and dot).
class BASEGUI_EXPORT CQRadioButton : public QRadioButton
{
    Q_OBJECT
public:
    explicit CQRadioButton(QWidget* parent = nullptr);
    explicit CQRadioButton(QString const& text, QWidget* parent = nullptr);
    ~CQRadioButton() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
