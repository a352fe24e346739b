#include "menuWidget.h"

#include "basegui_common.h"
#include "cqpopupshape.h"
#include "clogdebug.h"

#include <QEvent>
#include <QMutexLocker>
#include <QStringList>
#include <QVBoxLayout>

namespace {
constexpr char kLogModule[] = "plugins/base/core/trayWidget";
constexpr int kMenuWidth = 270;
constexpr int kCornerRadius = 4;
constexpr int kItemWidth = 268;
} // namespace

MenuWidget::MenuWidget(QWidget* parent)
    : CQFrame(parent)
{
    InitVars();
    InitUI();
}

MenuWidget::~MenuWidget()
{
    // The entries belong to the plugins that registered them: hand them back
    // alive instead of letting the widget tree delete them with the menu.
    QList<QWidget*> const entries = items();
    for (QWidget* w : entries) {
        disconnect(w, nullptr, this, nullptr);
        w->removeEventFilter(this);
        w->hide();
        w->setParent(nullptr);
    }
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MenuWidget] delete MenuWidget obj");
}

void MenuWidget::InitVars()
{
    int const cmp = versionCompare(QString::fromLatin1(qVersion()), QStringLiteral("5.6.1"));
    m_bOldQt = (cmp == -1 || cmp == 0);
}

void MenuWidget::InitUI()
{
    setWindowFlags(Qt::Tool | Qt::WindowStaysOnTopHint);
    setWindowFlags(windowFlags() | Qt::Popup);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setObjectName(QStringLiteral("MenuWidget"));
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/MenuWidget.qss")));
    setFixedWidth(kMenuWidth);
    // Its rounded corners: see-through where the desktop composites, cut out
    // by a mask where it does not (a plain X server would paint them black).
    CQPopupShape::install(this, kCornerRadius);
    setFocus();

    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setSpacing(0);
    m_pLayout->setContentsMargins(0, 17, 0, 17);

    // Only carries the style sheet's wash behind the top of the menu; entries
    // are re-parented later and so stack above it.
    m_pMaskLayer = new QWidget(this);
    m_pMaskLayer->setObjectName(QStringLiteral("m_pMaskLayer"));
    m_pMaskLayer->setAttribute(Qt::WA_StyledBackground);
    m_pMaskLayer->setGeometry(0, 0, kItemWidth, 114);
    m_pMaskLayer->raise();
}

void MenuWidget::addItem(QWidget* w, int index)
{
    if (!w || basegui::Common::refusesOwnAncestor(this, w, "MenuWidget"))
        return;
    {
        QMutexLocker locker(&m_mutex);
        if (!m_items.insert(index, w))
            return;
    }
    w->setParent(this);
    w->setFixedWidth(kItemWidth);
    w->installEventFilter(this);
    connect(w, &QObject::destroyed, this, &MenuWidget::slot_itemDestroyed, Qt::UniqueConnection);
    w->show();
    resetUI();
}

void MenuWidget::removeItem(QWidget* w, int index)
{
    if (!w)
        return;
    QWidget* taken = nullptr;
    {
        QMutexLocker locker(&m_mutex);
        if (!m_items.contains(index))
            return;
        taken = m_items.take(index);
    }
    if (taken) {
        disconnect(taken, &QObject::destroyed, this, &MenuWidget::slot_itemDestroyed);
        m_pLayout->removeWidget(taken);
        if (taken->parentWidget() == this) {
            taken->hide();
            taken->setParent(nullptr);
        }
    }
    resetUI();
}

void MenuWidget::resetUI()
{
    QMutexLocker locker(&m_mutex);
    basegui::Common::clearLayout(m_pLayout, false);
    m_pLayout->setSpacing(0);
    QList<QWidget*> const entries = m_items.values();
    for (QWidget* w : entries)
        m_pLayout->addWidget(w, 0, Qt::AlignHCenter | Qt::AlignTop);
    if (layout() != m_pLayout)
        setLayout(m_pLayout);
    adjustSize();
}

QList<QWidget*> MenuWidget::items() const
{
    QMutexLocker locker(&m_mutex);
    return m_items.values();
}

bool MenuWidget::isOldQt() const
{
    return m_bOldQt;
}

int MenuWidget::versionCompare(QString const& a, QString const& b)
{
    if (a == b)
        return 0;
    QStringList const partsA = a.split(QLatin1Char('.'), Qt::KeepEmptyParts);
    QStringList const partsB = b.split(QLatin1Char('.'), Qt::KeepEmptyParts);
    int const common = qMin(partsA.size(), partsB.size());
    for (int i = 0; i < common; ++i) {
        bool okA = false;
        bool okB = false;
        int const va = partsA.at(i).toInt(&okA, 10);
        int const vb = partsB.at(i).toInt(&okB, 10);
        if (!okA || !okB)
            return -2;
        if (va != vb)
            return va < vb ? -1 : 1;
    }
    return 0;
}

void MenuWidget::myHide()
{
    hide();
}

bool MenuWidget::eventFilter(QObject* watched, QEvent* event)
{
    // Old Qt delivers no release to the entry once the popup grabs the mouse,
    // so there the entry's focus loss stands for the click.
    QEvent::Type const closing = m_bOldQt ? QEvent::FocusOut : QEvent::MouseButtonRelease;
    if (event->type() == closing)
        myHide();
    return CQFrame::eventFilter(watched, event);
}

void MenuWidget::showEvent(QShowEvent*)
{
}

void MenuWidget::hideEvent(QHideEvent* event)
{
    CQFrame::hideEvent(event);
    emit sig_hide();
}

void MenuWidget::leaveEvent(QEvent* event)
{
    CQFrame::leaveEvent(event);
    myHide();
}

void MenuWidget::focusOutEvent(QFocusEvent* event)
{
    CQFrame::focusOutEvent(event);
    myHide();
}

void MenuWidget::mousePressEvent(QMouseEvent*)
{
    // Swallowed: a press on the menu's background neither closes nor passes on.
}

void MenuWidget::slot_itemDestroyed()
{
    // The layout has already dropped the dead entry; rebuild once the widget's
    // destruction is over, which also frees its index.
    QMetaObject::invokeMethod(this, [this]() { resetUI(); }, Qt::QueuedConnection);
}
