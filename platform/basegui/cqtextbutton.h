#pragma once

#include "basegui_global.h"

#include <QPushButton>

// A flat, link-like button: coloured text, underlined while hovered.
class BASEGUI_EXPORT CQTextButton : public QPushButton
{
    Q_OBJECT
public:
    enum eKind {
        KIND_LINK = 0,    // accent text
        KIND_PLAIN = 1    // dark text, accent when hovered
    };

    explicit CQTextButton(QWidget* parent = nullptr);
    CQTextButton(int kind, int fontSize, QWidget* parent = nullptr);
    CQTextButton(QString const& text, int kind, int fontSize, QWidget* parent = nullptr);
    ~CQTextButton() override;

    // An unknown kind falls back to KIND_LINK (logged).
    void setParas(int kind, int fontSize);
    int kind() const;
    int fontSize() const;

private:
    void applyStyle();

    int m_kind = KIND_LINK;
    int m_fontSize = 14;
};
