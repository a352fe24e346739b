#include "cqtitlebuttons.h"

#include "clogdebug.h"

#include <QFile>
#include <QPainter>

namespace {

char const* const kModule = "platform/basegui/cqtitlebuttons";
int const kDefaultSide = 22;

QColor const kGlyphDark(0x51, 0x52, 0x60);
QColor const kAccent(0x35, 0x6D, 0xEE);
QColor const kAccentPressed(0x2A, 0x58, 0xC7);
QColor const kCloseHover(0xF0, 0x4B, 0x4B);
QColor const kClosePressed(0xD9, 0x3A, 0x3A);

} // namespace

CQTitleButton::CQTitleButton(QString const& objectName, QString const& iconBase, int style, QWidget* parent)
    : QPushButton(parent)
    , m_iconBase(iconBase)
    , m_style(style == 0 ? 0 : 1)
{
    if (style != 0 && style != 1)
        BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQTitleButton] unknown style [%d], style 1 used", style);
    if (iconBase == QLatin1String("dropdown"))
        m_glyph = GlyphDropDown;
    else if (iconBase == QLatin1String("min"))
        m_glyph = GlyphMin;
    else if (iconBase == QLatin1String("close"))
        m_glyph = GlyphClose;
    else if (QFile::exists(iconBase) && m_image.load(iconBase))
        m_glyph = GlyphImage;
    else
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQTitleButton] no glyph or image [%s]", qUtf8Printable(iconBase));
    InitUI(objectName);
}

void CQTitleButton::InitUI(QString const& objectName)
{
    setObjectName(objectName);
    setFlat(true);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover, true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(kDefaultSide, kDefaultSide);
}

int CQTitleButton::style() const
{
    return m_style;
}

QString CQTitleButton::iconBase() const
{
    return m_iconBase;
}

QSize CQTitleButton::sizeHint() const
{
    return QSize(kDefaultSide, kDefaultSide);
}

QColor CQTitleButton::backgroundColour() const
{
    bool const pressed = isDown();
    bool const hovered = underMouse() && isEnabled();
    if (!pressed && !hovered)
        return Qt::transparent;
    if (m_glyph == GlyphClose)
        return pressed ? kClosePressed : kCloseHover;
    if (m_style == 0)
        return QColor(255, 255, 255, pressed ? 82 : 51);
    QColor tint = kAccent;
    tint.setAlpha(pressed ? 46 : 26);
    return tint;
}

QColor CQTitleButton::glyphColour() const
{
    QColor colour;
    if (!isEnabled())
        colour = m_style == 0 ? QColor(255, 255, 255, 102) : QColor(0x51, 0x52, 0x60, 102);
    else if (m_glyph == GlyphClose && (isDown() || underMouse()))
        colour = Qt::white;
    else if (m_style == 0)
        colour = Qt::white;
    else if (isDown())
        colour = kAccentPressed;
    else if (underMouse())
        colour = kAccent;
    else
        colour = kGlyphDark;
    return colour;
}

void CQTitleButton::paintGlyph(QPainter& painter, QRect const& box, QColor const& colour) const
{
    // Horizontal strokes are filled on whole pixels so they stay crisp; only
    // the cross needs anti-aliasing.
    int const side = box.width();
    int const stroke = qMax(1, qRound(side / 11.0));
    int const left = box.left();
    int const mid = box.top() + (side - stroke) / 2;
    switch (m_glyph) {
    case GlyphDropDown: {
        int const step = qMax(stroke + 2, side * 4 / 10);
        for (int row = -1; row <= 1; ++row)
            painter.fillRect(QRect(left, mid + row * step, side, stroke), colour);
        break;
    }
    case GlyphMin:
        painter.fillRect(QRect(left, mid, side, stroke), colour);
        break;
    case GlyphClose: {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(colour, stroke * 1.1, Qt::SolidLine, Qt::RoundCap));
        QRectF const r = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawLine(r.topLeft(), r.bottomRight());
        painter.drawLine(r.topRight(), r.bottomLeft());
        break;
    }
    case GlyphImage:
        painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter.drawPixmap(box, m_image);
        break;
    case GlyphNone:
        break;
    }
}

void CQTitleButton::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    QColor const background = backgroundColour();
    if (background.alpha() > 0) {
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(background);
        qreal const radius = qMin(width(), height()) / 5.0;
        painter.drawRoundedRect(QRectF(rect()), radius, radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
    }
    // Glyph a little under half the button, centred; images get more room.
    int const shortest = qMin(width(), height());
    int side = m_glyph == GlyphImage ? shortest * 3 / 4 : qMax(6, shortest * 5 / 11);
    side = qMin(side, shortest);
    QRect const box((width() - side) / 2, (height() - side) / 2, side, side);
    paintGlyph(painter, box, glyphColour());
}

CQDropDownBtn::CQDropDownBtn(int style, QWidget* parent)
    : CQTitleButton(QStringLiteral("m_pBtnDropDown"), QStringLiteral("dropdown"), style, parent)
{
    setToolTip(QString::fromUtf8("菜单"));
}

CQMinBtn::CQMinBtn(int style, QWidget* parent)
    : CQTitleButton(QStringLiteral("m_pBtnMin"), QStringLiteral("min"), style, parent)
{
    setToolTip(QString::fromUtf8("最小化"));
}

CQCloseBtn::CQCloseBtn(int style, QWidget* parent)
    : CQTitleButton(QStringLiteral("m_pBtnClose"), QStringLiteral("close"), style, parent)
{
    setToolTip(QString::fromUtf8("关闭"));
}
