#include "cqlogotitle.h"

#include "clogdebug.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

char const* const kModule = "platform/basegui/cqlogotitle";
char const* const kFontFamily = "Noto Sans CJK SC";
QColor const kAccent(0x35, 0x6D, 0xEE);
QColor const kAccentLight(0x5B, 0x8C, 0xF5);
QColor const kTextDark(0x33, 0x34, 0x44);
int const kMinTextPx = 10;
int const kMaxSide = 4096;

int boundedSide(int value)
{
    return qBound(1, value, kMaxSide);
}

QFont logoFont(int pixelSize)
{
    QFont font(QString::fromLatin1(kFontFamily));
    font.setPixelSize(pixelSize);
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

CQLogoTitle::CQLogoTitle(int w, int h, int uiType, int uiName, QWidget* parent)
    : QWidget(parent)
{
    InitVars(w, h, 0, uiType);
    if (uiName != 0)
        BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQLogoTitle] unknown ui name [%d], product mark used", uiName);
    m_uiName = 0;
    InitUI();
}

CQLogoTitle::CQLogoTitle(int w, int h, int textWidth, int uiType, QString const& text, QWidget* parent)
    : QWidget(parent)
{
    InitVars(w, h, textWidth, uiType);
    m_isText = true;
    // A name is one line; line breaks from a configuration file would only
    // push half of it out of sight.
    m_text = text.simplified();
    fitText();
    InitUI();
}

CQLogoTitle::~CQLogoTitle() = default;

void CQLogoTitle::InitVars(int w, int h, int textWidth, int uiType)
{
    if (w <= 0 || h <= 0 || w > kMaxSide || h > kMaxSide || textWidth < 0 || textWidth > kMaxSide)
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQLogoTitle] bad size [%d x %d, %d], clamped", w, h, textWidth);
    m_markSize = QSize(boundedSide(w), boundedSide(h));
    m_textWidth = qBound(0, textWidth, kMaxSide);
    m_gap = textWidth > 0 ? qMax(4, qMin(m_markSize.width(), m_markSize.height()) / 4) : 0;
    m_uiType = uiType == 1 ? 1 : 0;
}

void CQLogoTitle::InitUI()
{
    setObjectName(QStringLiteral("CQLogoTitle"));
    setAttribute(Qt::WA_TranslucentBackground, true);
    setFixedSize(sizeHint());
    setToolTip(m_shownText != m_text ? m_text : QString());
}

void CQLogoTitle::fitText()
{
    int const height = m_markSize.height();
    // Cap height about half the mark, so the name reads as the mark's caption.
    int px = qMax(kMinTextPx, height * 11 / 20);
    for (; px > kMinTextPx; --px) {
        if (QFontMetrics(logoFont(px)).horizontalAdvance(m_text) <= m_textWidth)
            break;
    }
    m_textPx = px;
    m_shownText = QFontMetrics(logoFont(px)).elidedText(m_text, Qt::ElideRight, m_textWidth);
}

QString CQLogoTitle::text() const
{
    return m_isText ? m_text : QString();
}

bool CQLogoTitle::isTextLogo() const
{
    return m_isText;
}

int CQLogoTitle::uiType() const
{
    return m_uiType;
}

QString CQLogoTitle::shownText() const
{
    return m_shownText;
}

int CQLogoTitle::textPixelSize() const
{
    return m_textPx;
}

QSize CQLogoTitle::sizeHint() const
{
    if (!m_isText)
        return m_markSize;
    return QSize(m_markSize.width() + m_gap + m_textWidth, m_markSize.height());
}

QRect CQLogoTitle::markRect() const
{
    int const side = qMin(m_markSize.width(), m_markSize.height());
    return QRect((m_markSize.width() - side) / 2, (m_markSize.height() - side) / 2, side, side);
}

QRect CQLogoTitle::textRect() const
{
    return QRect(m_markSize.width() + m_gap, 0, m_textWidth, m_markSize.height());
}

void CQLogoTitle::paintMark(QPainter& painter, QRectF const& box, int uiType)
{
    // A shield with a check: drawn from a unit outline so that every size
    // stays sharp, from the 16-px tray entry to the 64-px about window.
    auto at = [&box](qreal x, qreal y) { return QPointF(box.left() + x * box.width(), box.top() + y * box.height()); };
    QPainterPath shield;
    shield.moveTo(at(0.50, 0.04));
    shield.lineTo(at(0.90, 0.17));
    shield.lineTo(at(0.90, 0.47));
    shield.cubicTo(at(0.90, 0.73), at(0.72, 0.89), at(0.50, 0.97));
    shield.cubicTo(at(0.28, 0.89), at(0.10, 0.73), at(0.10, 0.47));
    shield.lineTo(at(0.10, 0.17));
    shield.closeSubpath();

    QColor checkColor = Qt::white;
    if (uiType == 1) {
        painter.fillPath(shield, Qt::white);
        checkColor = kAccent;
    } else {
        QLinearGradient fill(at(0.5, 0.0), at(0.5, 1.0));
        fill.setColorAt(0.0, kAccentLight);
        fill.setColorAt(1.0, kAccent);
        painter.fillPath(shield, fill);
    }

    QPainterPath check;
    check.moveTo(at(0.31, 0.50));
    check.lineTo(at(0.45, 0.64));
    check.lineTo(at(0.70, 0.37));
    QPen pen(checkColor, qMax<qreal>(1.0, box.width() * 0.085), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.strokePath(check, pen);
}

QPixmap CQLogoTitle::markPixmap(QSize const& size, int uiType, qreal devicePixelRatio)
{
    QSize const bounded(boundedSide(size.width()), boundedSide(size.height()));
    qreal const dpr = qBound<qreal>(1.0, devicePixelRatio, 4.0);
    QPixmap pixmap(bounded * dpr);
    pixmap.setDevicePixelRatio(dpr);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing, true);
    int const side = qMin(bounded.width(), bounded.height());
    paintMark(painter, QRectF((bounded.width() - side) / 2.0, (bounded.height() - side) / 2.0, side, side), uiType == 1 ? 1 : 0);
    return pixmap;
}

void CQLogoTitle::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    paintMark(painter, markRect(), m_uiType);
    if (!m_isText || m_shownText.isEmpty())
        return;
    painter.setFont(logoFont(m_textPx));
    painter.setPen(m_uiType == 1 ? QColor(Qt::white) : kTextDark);
    painter.drawText(textRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, m_shownText);
}
