#include "itemsWin.h"

#include "basegui_common.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWindow>

namespace {
// A widget's height as it will be laid out: its fixed height when it has one,
// else what it asks for.
int layoutHeight(QWidget const* w)
{
    if (w->minimumHeight() == w->maximumHeight())
        return w->minimumHeight();
    return qMax(w->minimumHeight(), w->sizeHint().height());
}
} // namespace

ItemsWin::ItemsWin(QWidget* parent)
    : CQMyStackedWins(parent)
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_X11NetWmWindowTypePopupMenu);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_StyledBackground);
    setFocusPolicy(Qt::NoFocus);
    setObjectName(QStringLiteral("ItemsWin"));
    setStyleSheet(QStringLiteral("#ItemsWin{background:#FFFFFF;border:1px solid #DFE1E6;}"));
    setFixedWidth(202);

    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setSpacing(0);
    m_pLayout->setContentsMargins(0, 0, 0, 0);

    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &ItemsWin::slot_focusWindowChanged);
}

ItemsWin::~ItemsWin()
{
    qApp->removeEventFilter(this);
}

void ItemsWin::resetUI()
{
    if (!m_pLayout)
        return;
    basegui::Common::clearLayout(m_pLayout, false);
    int height = 0;
    QList<QWidget*> const entries = items();
    for (QWidget* w : entries) {
        m_pLayout->addWidget(w, 0, Qt::AlignLeft | Qt::AlignTop);
        w->show();
        height += layoutHeight(w);
    }
    setFixedHeight(height);
    m_pLayout->addStretch();
}

bool ItemsWin::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && isVisible()) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (!frameGeometry().contains(mouse->globalPos())) {
            // The click that closes the pop-up is deliberately not passed on.
            close();
            return true;
        }
    }
    return CQMyStackedWins::eventFilter(watched, event);
}

void ItemsWin::closeEvent(QCloseEvent* event)
{
    releaseItems();
    CQMyStackedWins::closeEvent(event);
}

void ItemsWin::releaseItems()
{
    // The items belong to their plugins: detach them before the pop-up is
    // deleted on close.
    QList<int> const ids = keys();
    for (int id : ids)
        unRegisterItem(id);
}

void ItemsWin::slot_focusWindowChanged()
{
    // The application lost the focus to another program: the pop-up goes too.
    if (isVisible() && !QGuiApplication::focusWindow())
        close();
}
