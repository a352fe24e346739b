#pragma once

#include "basegui_global.h"

#include <QWidget>

// The product logo: either the standard picture (uiName 0 = the product mark)
// or a small mark followed by a product name.
//
// uiType 0 is the colour mark for light backgrounds, 1 the white mark for the
// accent-coloured ones. The widget takes exactly the size it is built with:
// w x h for the standard logo, w + gap + textWidth by h for the text logo.
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
    int uiType() const;
    // The name as drawn (shrunk to at least 10 px, then elided) and its size.
    QString shownText() const;
    int textPixelSize() const;

    QSize sizeHint() const override;

    // The product mark alone, as a picture of `size` (for window icons and
    // places that want the mark without a widget).
    static QPixmap markPixmap(QSize const& size, int uiType = 0, qreal devicePixelRatio = 1.0);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void InitVars(int w, int h, int textWidth, int uiType);
    void InitUI();
    void fitText();
    static void paintMark(QPainter& painter, QRectF const& box, int uiType);
    QRect markRect() const;
    QRect textRect() const;

    QSize m_markSize;
    int m_textWidth = 0;
    int m_gap = 0;
    int m_uiType = 0;
    int m_uiName = 0;
    bool m_isText = false;
    QString m_text;
    QString m_shownText;
    int m_textPx = 0;
};
