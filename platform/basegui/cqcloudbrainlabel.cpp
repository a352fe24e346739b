#include "cqcloudbrainlabel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

namespace {

QColor const kAccent(0x35, 0x6D, 0xEE);
QColor const kText(0x51, 0x52, 0x60);
int const kHeight = 22;
int const kIcon = 16;
int const kPad = 4;

QString const& prefixText()
{
    static QString const text = QString::fromUtf8("云脑防护 ");
    return text;
}

QString const& suffixText()
{
    static QString const text = QString::fromUtf8(" 天");
    return text;
}

QFont labelFont()
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(12);
    return font;
}

QFont countFont()
{
    QFont font = labelFont();
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

CQCloudBrainLabel::CQCloudBrainLabel(int days, QWidget* parent)
    : QWidget(parent)
    , m_days(days < 0 ? -1 : days)
{
    setObjectName(QStringLiteral("CQCloudBrainLabel"));
    setAttribute(Qt::WA_TranslucentBackground, true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(displayText());
}

CQCloudBrainLabel::~CQCloudBrainLabel() = default;

int CQCloudBrainLabel::days() const
{
    return m_days;
}

QString CQCloudBrainLabel::countText() const
{
    return m_days < 0 ? QStringLiteral("--") : QString::number(m_days);
}

QString CQCloudBrainLabel::displayText() const
{
    return prefixText() + countText() + suffixText();
}

void CQCloudBrainLabel::slot_updateDays(int days)
{
    int const value = days < 0 ? -1 : days;
    if (value == m_days)
        return;
    m_days = value;
    setToolTip(displayText());
    // The number's width changes the label's; the title bar's layout must know.
    updateGeometry();
    adjustSize();
    update();
}

QSize CQCloudBrainLabel::sizeHint() const
{
    int const textWidth = QFontMetrics(labelFont()).horizontalAdvance(prefixText() + suffixText())
        + QFontMetrics(countFont()).horizontalAdvance(countText());
    return QSize(kPad + kIcon + kPad + textWidth + kPad, kHeight);
}

QSize CQCloudBrainLabel::minimumSizeHint() const
{
    return sizeHint();
}

void CQCloudBrainLabel::paintCloud(QPainter& painter, QRectF const& box)
{
    auto at = [&box](qreal x, qreal y) { return QPointF(box.left() + x * box.width(), box.top() + y * box.height()); };
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    cloud.addEllipse(QRectF(at(0.06, 0.42), QSizeF(box.width() * 0.36, box.height() * 0.36)));
    cloud.addEllipse(QRectF(at(0.24, 0.20), QSizeF(box.width() * 0.48, box.height() * 0.48)));
    cloud.addEllipse(QRectF(at(0.56, 0.38), QSizeF(box.width() * 0.38, box.height() * 0.38)));
    cloud.addRoundedRect(QRectF(at(0.20, 0.52), QSizeF(box.width() * 0.56, box.height() * 0.24)), 1.0, 1.0);
    painter.fillPath(cloud.simplified(), kAccent);

    // A small spark inside the cloud: the "brain".
    QPainterPath spark;
    spark.moveTo(at(0.52, 0.36));
    spark.lineTo(at(0.42, 0.56));
    spark.lineTo(at(0.54, 0.56));
    spark.lineTo(at(0.46, 0.74));
    painter.strokePath(spark, QPen(Qt::white, qMax<qreal>(1.0, box.width() * 0.08), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void CQCloudBrainLabel::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    paintCloud(painter, QRectF(kPad, (height() - kIcon) / 2.0, kIcon, kIcon));

    int x = kPad + kIcon + kPad;
    auto drawPiece = [&](QString const& piece, QFont const& font, QColor const& colour) {
        painter.setFont(font);
        painter.setPen(colour);
        int const w = QFontMetrics(font).horizontalAdvance(piece);
        painter.drawText(QRect(x, 0, w, height()), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, piece);
        x += w;
    };
    drawPiece(prefixText(), labelFont(), kText);
    drawPiece(countText(), countFont(), kAccent);
    drawPiece(suffixText(), labelFont(), kText);
}
