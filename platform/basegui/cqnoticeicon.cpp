#include "cqnoticeicon.h"

#include "clogdebug.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

char const* const kModule = "platform/basegui/cqnoticeicon";

QColor const kBlue(0x35, 0x6D, 0xEE);
QColor const kGreen(0x1B, 0xA8, 0x5B);
QColor const kOrange(0xFF, 0x9A, 0x2E);
QColor const kRed(0xF5, 0x45, 0x5C);
QColor const kUrgentFrom(0xF3, 0x73, 0x44);
QColor const kUrgentTo(0xFC, 0x2F, 0x3D);

// Glyphs are drawn in a 24-unit box and scaled to the icon's rectangle.
constexpr qreal kUnit = 24.0;

QPen glyphPen(qreal width = 2.2)
{
    return QPen(Qt::white, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void disc(QPainter* p, QColor const& color)
{
    p->setPen(Qt::NoPen);
    p->setBrush(color);
    p->drawEllipse(QRectF(0, 0, kUnit, kUnit));
}

void exclamation(QPainter* p, qreal top, qreal bottom)
{
    p->setPen(glyphPen());
    p->drawLine(QPointF(12, top), QPointF(12, bottom));
    p->setPen(Qt::NoPen);
    p->setBrush(Qt::white);
    p->drawEllipse(QPointF(12, bottom + 3.6), 1.4, 1.4);
}

void cross(QPainter* p, qreal inset)
{
    p->setPen(glyphPen());
    p->drawLine(QPointF(inset, inset), QPointF(kUnit - inset, kUnit - inset));
    p->drawLine(QPointF(kUnit - inset, inset), QPointF(inset, kUnit - inset));
}

void tick(QPainter* p)
{
    p->setPen(glyphPen());
    QPainterPath path;
    path.moveTo(6.8, 12.4);
    path.lineTo(10.4, 16.0);
    path.lineTo(17.2, 8.6);
    p->setBrush(Qt::NoBrush);
    p->drawPath(path);
}

void info(QPainter* p)
{
    disc(p, kBlue);
    p->setBrush(Qt::white);
    p->drawEllipse(QPointF(12, 7.2), 1.4, 1.4);
    p->setPen(glyphPen());
    p->drawLine(QPointF(12, 11), QPointF(12, 17.5));
}

void question(QPainter* p)
{
    disc(p, kBlue);
    p->setPen(glyphPen(2.0));
    p->setBrush(Qt::NoBrush);
    QPainterPath path;
    path.moveTo(8.8, 9.4);
    path.cubicTo(8.8, 5.6, 15.4, 5.4, 15.4, 9.4);
    path.cubicTo(15.4, 11.8, 12, 12, 12, 14.6);
    p->drawPath(path);
    p->setPen(Qt::NoPen);
    p->setBrush(Qt::white);
    p->drawEllipse(QPointF(12, 18), 1.3, 1.3);
}

void urgent(QPainter* p)
{
    QLinearGradient gradient(0, 0, kUnit, 0);
    gradient.setColorAt(0, kUrgentFrom);
    gradient.setColorAt(1, kUrgentTo);
    QPainterPath triangle;
    triangle.moveTo(12, 1.5);
    triangle.lineTo(23, 21.5);
    triangle.lineTo(1, 21.5);
    triangle.closeSubpath();
    p->setPen(QPen(QBrush(gradient), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p->setBrush(gradient);
    p->drawPath(triangle);
    exclamation(p, 8.5, 14);
}

void shield(QPainter* p)
{
    QPainterPath path;
    path.moveTo(12, 1);
    path.lineTo(21.5, 4.5);
    path.cubicTo(21.5, 14, 18, 19.5, 12, 23);
    path.cubicTo(6, 19.5, 2.5, 14, 2.5, 4.5);
    path.closeSubpath();
    p->setPen(Qt::NoPen);
    p->setBrush(kBlue);
    p->drawPath(path);
    tick(p);
}

void badge(QPainter* p, QColor const& color, bool withCross)
{
    p->setPen(QPen(Qt::white, 2));
    p->setBrush(color);
    p->drawEllipse(QRectF(1, 1, kUnit - 2, kUnit - 2));
    if (withCross)
        cross(p, 8);
    else
        exclamation(p, 6.5, 13);
}

void computer(QPainter* p)
{
    p->setPen(QPen(kBlue, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p->setBrush(QColor(0xEB, 0xF3, 0xFF));
    p->drawRoundedRect(QRectF(2, 3.5, 20, 13.5), 1.6, 1.6);
    p->drawLine(QPointF(12, 17), QPointF(12, 20.5));
    p->drawLine(QPointF(7.5, 20.8), QPointF(16.5, 20.8));
    p->setPen(Qt::NoPen);
    p->setBrush(kBlue);
    p->drawRect(QRectF(4.5, 6, 15, 8.5));
}

} // namespace

CQNoticeIcon::CQNoticeIcon(int type, QWidget* parent)
    : QWidget(parent)
{
    setObjectName("CQNoticeIcon");
    setAttribute(Qt::WA_TranslucentBackground);
    setIconType(type);
}

CQNoticeIcon::~CQNoticeIcon() = default;

void CQNoticeIcon::setIconType(int type)
{
    if (!isKnownType(type))
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[CQNoticeIcon] icon type [%d] not support", type);
    m_type = type;
    update();
}

int CQNoticeIcon::iconType() const
{
    return m_type;
}

bool CQNoticeIcon::isKnownType(int type)
{
    return (type >= ICON_NONE && type <= ICON_SHIELD) || (type >= ICON_BADGE_RISK && type <= ICON_COMPUTER);
}

void CQNoticeIcon::paintIcon(QPainter* painter, QRectF const& rect, int type)
{
    if (!painter || rect.isEmpty() || !isKnownType(type) || type == ICON_NONE)
        return;
    qreal const side = qMin(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.center().x() - side / 2, rect.center().y() - side / 2);
    painter->scale(side / kUnit, side / kUnit);
    switch (type) {
    case ICON_INFO: info(painter); break;
    case ICON_SUCCESS: disc(painter, kGreen); tick(painter); break;
    case ICON_WARNING: disc(painter, kOrange); exclamation(painter, 6, 13.5); break;
    case ICON_ERROR: disc(painter, kRed); cross(painter, 8); break;
    case ICON_URGENT: urgent(painter); break;
    case ICON_QUESTION: question(painter); break;
    case ICON_SHIELD: shield(painter); break;
    case ICON_BADGE_RISK: badge(painter, kOrange, false); break;
    case ICON_BADGE_DANGER: badge(painter, kRed, true); break;
    case ICON_COMPUTER: computer(painter); break;
    default: break;
    }
    painter->restore();
}

QPixmap CQNoticeIcon::pixmap(int type, int size, qreal devicePixelRatio)
{
    size = qBound(1, size, 512);
    QPixmap pm(QSize(size, size) * devicePixelRatio);
    pm.setDevicePixelRatio(devicePixelRatio);
    pm.fill(Qt::transparent);
    QPainter painter(&pm);
    paintIcon(&painter, QRectF(0, 0, size, size), type);
    return pm;
}

QSize CQNoticeIcon::sizeHint() const
{
    return QSize(24, 24);
}

void CQNoticeIcon::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    paintIcon(&painter, QRectF(rect()), m_type);
}
