#include "cqtoastwidget.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqnoticeicon.h"

#include <QFontMetrics>
#include <QGraphicsOpacityEffect>
#include <QPainter>
#include <QPauseAnimation>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>

namespace {

char const* const kModule = "platform/basegui/cqtoastwidget";
constexpr int kFadeInMs = 150;
constexpr int kFadeOutMs = 300;
constexpr int kDefaultMs = 2000;
constexpr int kHeight = 44;
constexpr int kPadding = 16;
constexpr int kIconSide = 20;
constexpr int kIconGap = 8;
constexpr int kMaxTextWidth = 480;

QFont toastFont()
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(14);
    return font;
}

} // namespace

CQToastWidget* CQToastWidget::showToast(QWidget* parent, QString const& text, int iconType, int msecs)
{
    BFLogPrintX(2, kModule, __FUNCTION__, __LINE__, "[CQToastWidget] %s", qUtf8Printable(text));
    QWidget* host = parent ? parent->window() : nullptr;
    if (host) {
        for (CQToastWidget* old : host->findChildren<CQToastWidget*>(QString(), Qt::FindDirectChildrenOnly))
            old->deleteLater();
    }
    auto* toast = new CQToastWidget(host, text, iconType);
    toast->place();
    toast->show();
    toast->raise();
    toast->start(msecs <= 0 ? kDefaultMs : msecs);
    return toast;
}

CQToastWidget::CQToastWidget(QWidget* parent, QString const& text, int iconType)
    : QWidget(parent)
    , m_text(text)
    , m_iconType(iconType)
{
    setObjectName("CQToastWidget");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    if (!parent)
        setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setFont(toastFont());

    QString const shown = fontMetrics().elidedText(m_text, Qt::ElideRight, kMaxTextWidth);
    int width = 2 * kPadding + fontMetrics().horizontalAdvance(shown);
    if (noticeIconType(iconType) != CQNoticeIcon::ICON_NONE)
        width += kIconSide + kIconGap;
    setFixedSize(width, kHeight);
}

CQToastWidget::~CQToastWidget() = default;

QString CQToastWidget::text() const
{
    return m_text;
}

int CQToastWidget::iconType() const
{
    return m_iconType;
}

int CQToastWidget::noticeIconType(int toastIconType)
{
    switch (toastIconType) {
    case ICON_INFO: return CQNoticeIcon::ICON_INFO;
    case ICON_WARNING: return CQNoticeIcon::ICON_WARNING;
    case ICON_SUCCESS: return CQNoticeIcon::ICON_SUCCESS;
    case ICON_QUESTION: return CQNoticeIcon::ICON_QUESTION;
    case ICON_FAILURE: return CQNoticeIcon::ICON_ERROR;
    case ICON_ERROR: return CQNoticeIcon::ICON_URGENT;
    default: return CQNoticeIcon::ICON_NONE;
    }
}

void CQToastWidget::place()
{
    basegui::Common::setWidgetMidPos(this, parentWidget(), QPoint(0, 0));
}

// A child fades through an opacity effect; a top-level toast (no parent) has
// no parent to composite it into, so it fades its window opacity instead.
void CQToastWidget::start(int msecs)
{
    QObject* target = this;
    QByteArray property = "windowOpacity";
    if (parentWidget()) {
        auto* effect = new QGraphicsOpacityEffect(this);
        effect->setOpacity(0.0);
        setGraphicsEffect(effect);
        target = effect;
        property = "opacity";
    } else {
        setWindowOpacity(0.0);
    }
    auto* group = new QSequentialAnimationGroup(this);
    auto* fadeIn = new QPropertyAnimation(target, property, group);
    fadeIn->setDuration(kFadeInMs);
    fadeIn->setStartValue(0.0);
    fadeIn->setEndValue(1.0);
    group->addAnimation(fadeIn);
    group->addPause(msecs);
    auto* fadeOut = new QPropertyAnimation(target, property, group);
    fadeOut->setDuration(kFadeOutMs);
    fadeOut->setStartValue(1.0);
    fadeOut->setEndValue(0.0);
    group->addAnimation(fadeOut);
    connect(group, &QAbstractAnimation::finished, this, &QObject::deleteLater);
    group->start();
}

void CQToastWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xDF, 0xE1, 0xE6), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);

    int x = kPadding;
    int const icon = noticeIconType(m_iconType);
    if (icon != CQNoticeIcon::ICON_NONE) {
        CQNoticeIcon::paintIcon(&painter, QRectF(x, (height() - kIconSide) / 2.0, kIconSide, kIconSide), icon);
        x += kIconSide + kIconGap;
    }
    painter.setPen(QColor(0x33, 0x34, 0x44));
    QRect const textRect(x, 0, width() - x - kPadding, height());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, textRect.width()));
}
