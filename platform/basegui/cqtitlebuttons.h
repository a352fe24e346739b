#pragma once

#include "basegui_global.h"

#include <QPixmap>
#include <QPushButton>

// The title-bar buttons. Style value 1 is the small dark-on-light look used on
// the light title bars; 0 the light-on-accent look of prompt windows.
//
// The glyphs are drawn, not loaded, so they stay sharp at any size the caller
// gives the button (22 x 22 unless told otherwise). `iconBase` names the glyph
// ("dropdown", "min", "close") or an image file or resource to draw instead.
class BASEGUI_EXPORT CQTitleButton : public QPushButton
{
    Q_OBJECT
public:
    CQTitleButton(QString const& objectName, QString const& iconBase, int style, QWidget* parent);
    int style() const;
    QString iconBase() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum Glyph { GlyphNone, GlyphDropDown, GlyphMin, GlyphClose, GlyphImage };
    void InitUI(QString const& objectName);
    void paintGlyph(QPainter& painter, QRect const& box, QColor const& colour) const;
    QColor glyphColour() const;
    QColor backgroundColour() const;

    QString m_iconBase;
    int m_style = 1;
    Glyph m_glyph = GlyphNone;
    QPixmap m_image;
};

class BASEGUI_EXPORT CQDropDownBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQDropDownBtn(int style = 1, QWidget* parent = nullptr);
};

class BASEGUI_EXPORT CQMinBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQMinBtn(int style = 1, QWidget* parent = nullptr);
};

class BASEGUI_EXPORT CQCloseBtn : public CQTitleButton
{
    Q_OBJECT
public:
    explicit CQCloseBtn(int style = 1, QWidget* parent = nullptr);
};
