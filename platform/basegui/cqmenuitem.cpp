#include "cqmenuitem.h"

#include "clogdebug.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QWidgetAction>

namespace {

char const* const kModule = "platform/basegui/cqmenuitem";
int const kRowHeight = 36;
int const kIconSide = 16;
QColor const kHover(0xEB, 0xF3, 0xFF);

} // namespace

CQMenuItem::CQMenuItem(QString const& iconPath, QString const& text, QWidget* parent)
    : QWidget(parent)
{
    InitUI();
    setIcon(iconPath);
    setText(text);
}

CQMenuItem::~CQMenuItem() = default;

void CQMenuItem::InitUI()
{
    setObjectName(QStringLiteral("CQMenuItem"));
    setFixedHeight(kRowHeight);
    setMinimumWidth(136);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);

    m_pLabIcon = new QLabel(this);
    m_pLabIcon->setObjectName(QStringLiteral("m_pLabIcon"));
    m_pLabIcon->setFixedSize(kIconSide, kIconSide);
    m_pLabIcon->setAttribute(Qt::WA_TransparentForMouseEvents, true);

    m_pLabText = new QLabel(this);
    m_pLabText->setObjectName(QStringLiteral("m_pLabText"));
    m_pLabText->setTextFormat(Qt::PlainText);
    m_pLabText->setAttribute(Qt::WA_TransparentForMouseEvents, true);
    m_pLabText->setStyleSheet(QStringLiteral(
        "#m_pLabText{color:#333444;font-family:\"Noto Sans CJK SC\";font-size:14px;background:transparent;}"));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 24, 0);
    layout->setSpacing(8);
    layout->addWidget(m_pLabIcon, 0, Qt::AlignVCenter);
    layout->addWidget(m_pLabText, 1, Qt::AlignVCenter);
}

QString CQMenuItem::text() const
{
    return m_pLabText->text();
}

void CQMenuItem::setText(QString const& text)
{
    m_pLabText->setText(text);
}

void CQMenuItem::setIcon(QString const& iconPath)
{
    if (iconPath.isEmpty()) {
        m_pLabIcon->clear();
        m_pLabIcon->hide();
        return;
    }
    QPixmap pixmap(iconPath);
    if (pixmap.isNull())
        BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQMenuItem] icon not found, path is [%s]", qUtf8Printable(iconPath));
    else {
        int const side = qRound(kIconSide * devicePixelRatioF());
        pixmap = pixmap.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    // An icon that is missing still keeps its place, so the texts stay aligned.
    m_pLabIcon->setPixmap(pixmap);
    m_pLabIcon->show();
}

bool CQMenuItem::isHovered() const
{
    return m_hovered;
}

void CQMenuItem::setHovered(bool hovered)
{
    if (m_hovered == hovered)
        return;
    m_hovered = hovered;
    update();
}

void CQMenuItem::mousePressEvent(QMouseEvent* event)
{
    // Taken here, so that the surrounding menu does not treat it as its own.
    if (event->button() == Qt::LeftButton)
        event->accept();
    else
        QWidget::mousePressEvent(event);
}

void CQMenuItem::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    if (rect().contains(event->pos()))
        activate();
}

QWidgetAction* CQMenuItem::findOwnAction(QMenu* menu) const
{
    for (QAction* action : menu->actions()) {
        auto* widgetAction = qobject_cast<QWidgetAction*>(action);
        if (widgetAction && widgetAction->defaultWidget() == this)
            return widgetAction;
    }
    return nullptr;
}

void CQMenuItem::activate()
{
    // A receiver may delete this row, its action or the whole menu; every
    // step below checks that what it touches still exists.
    QPointer<CQMenuItem> self(this);
    QPointer<QWidgetAction> action;
    QList<QPointer<QMenu>> menus;
    for (QWidget* w = parentWidget(); w; w = w->parentWidget()) {
        if (auto* menu = qobject_cast<QMenu*>(w)) {
            menus.append(menu);
            if (!action)
                action = findOwnAction(menu);
        }
    }
    for (QPointer<QMenu> const& menu : menus) {
        if (menu)
            menu->hide();
    }
    emit sig_clicked();
    if (self && action && action->isEnabled())
        action->trigger();
}

void CQMenuItem::enterEvent(QEvent* event)
{
    setHovered(true);
    QWidget::enterEvent(event);
}

void CQMenuItem::leaveEvent(QEvent* event)
{
    setHovered(false);
    QWidget::leaveEvent(event);
}

void CQMenuItem::hideEvent(QHideEvent* event)
{
    // A menu closed under the pointer sends no leave event.
    setHovered(false);
    QWidget::hideEvent(event);
}

void CQMenuItem::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), m_hovered ? kHover : QColor(Qt::white));
}
