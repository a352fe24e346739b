#pragma once

#include "basegui_global.h"

#include <QWidget>

// The product logo: either the standard picture (uiName 0 = the product mark)
// or a small mark followed by a product name.
class BASEGUI_EXPORT CQLogoTitle : public QWidget
{
    Q_OBJECT
public:
    // Standard logo of `w` x `h`.
    CQLogoTitle(int w, int h, int uiType, int uiName, QWidget* parent = nullptr);
    // Text logo: a `w` x `h` mark and `text` in an area `textWidth` wide beside it.
    CQLogoTitle(int w, int h, int textWidth, int uiType, QString const& text, QWidget* parent = nullptr);
    ~CQLogoTitle() override;

    QString text() const;      // "" for the standard logo
    bool isTextLogo() const;
};
