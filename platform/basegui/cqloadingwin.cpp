#include "cqloadingwin.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kFrameMs = 40;
constexpr int kDegreesPerFrame = 12;
QColor const kAccent(0x35, 0x6D, 0xEE);
QColor const kText(0x51, 0x52, 0x60);

QFont textFont()
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(14);
    return font;
}

} // namespace

CQLoadingWin::CQLoadingWin(QWidget* parent)
    : QWidget(parent)
{
    InitVars();
}

CQLoadingWin::~CQLoadingWin() = default;

void CQLoadingWin::InitVars()
{
    setObjectName("CQLoadingWin");
    setFont(textFont());
    m_timer = new QTimer(this);
    m_timer->setInterval(kFrameMs);
    connect(m_timer, &QTimer::timeout, this, &CQLoadingWin::slot_tick);
}

void CQLoadingWin::setLoadingIconSize(int size)
{
    m_iconSize = qBound(8, size, 256);
    updateGeometry();
    update();
}

int CQLoadingWin::loadingIconSize() const
{
    return m_iconSize;
}

void CQLoadingWin::setText(QString const& text, int spacing)
{
    m_text = text;
    m_spacing = qMax(0, spacing);
    updateGeometry();
    update();
}

QString CQLoadingWin::text() const
{
    return m_text;
}

void CQLoadingWin::startLoading()
{
    if (!m_timer->isActive())
        m_timer->start();
}

void CQLoadingWin::stopLoading()
{
    m_timer->stop();
}

bool CQLoadingWin::isLoading() const
{
    return m_timer->isActive();
}

void CQLoadingWin::paintSpinner(QPainter* painter, QRectF const& rect, int angle, QColor const& color)
{
    if (!painter || rect.isEmpty())
        return;
    qreal const side = qMin(rect.width(), rect.height());
    qreal const pen = qMax<qreal>(1.5, side / 8.0);
    QRectF const ring(rect.center().x() - side / 2 + pen / 2, rect.center().y() - side / 2 + pen / 2,
                      side - pen, side - pen);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QColor track = color;
    track.setAlphaF(0.2);
    painter->setPen(QPen(track, pen));
    painter->drawEllipse(ring);
    painter->setPen(QPen(color, pen, Qt::SolidLine, Qt::RoundCap));
    // Qt angles are counter-clockwise in 1/16 degree; the spinner turns clockwise.
    painter->drawArc(ring, -angle * 16, 100 * 16);
    painter->restore();
}

QPixmap CQLoadingWin::spinnerPixmap(int size, int angle, QColor const& color, qreal devicePixelRatio)
{
    size = qBound(4, size, 256);
    QPixmap pixmap(QSize(size, size) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintSpinner(&painter, QRectF(0, 0, size, size), angle, color);
    return pixmap;
}

QSize CQLoadingWin::sizeHint() const
{
    int const textWidth = m_text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(m_text) + m_spacing;
    return QSize(m_iconSize + textWidth, qMax(m_iconSize, fontMetrics().height()));
}

void CQLoadingWin::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    int const textWidth = m_text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(m_text);
    int const total = m_iconSize + (m_text.isEmpty() ? 0 : m_spacing + textWidth);
    int const x = qMax(0, (width() - total) / 2);
    QRectF const icon(x, (height() - m_iconSize) / 2.0, m_iconSize, m_iconSize);
    paintSpinner(&painter, icon, m_angle, kAccent);
    if (m_text.isEmpty())
        return;
    painter.setPen(kText);
    QRect const textRect(x + m_iconSize + m_spacing, 0, width() - x - m_iconSize - m_spacing, height());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, textRect.width()));
}

void CQLoadingWin::slot_tick()
{
    m_angle = (m_angle + kDegreesPerFrame) % 360;
    update();
}
