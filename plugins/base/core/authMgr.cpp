#include "authMgr.h"

#include "authmgritem.h"
#include "clogdebug.h"
#include "cqlabel.h"
#include "itemsWin.h"

#include <QEvent>
#include <QMouseEvent>
#include <QStyle>

namespace {
constexpr char kLogModule[] = "plugins/base/core/authMgr";
// Title bar: right area, position 100, between the day counter and the drop-down.
constexpr int kTitlePosition = 100;
constexpr int kTitleRightArea = 1;
constexpr int kIconSize = 24;
constexpr int kPopupGap = 12;

QString const kIconStyle = QStringLiteral(
    "#m_pLabelIcon[status=\"normal\"]{border-image:url(:/img/authStatus/normal_normal.png);}"
    "#m_pLabelIcon[status=\"normal\"]:hover{border-image:url(:/img/authStatus/normal_hover.png);}"
    "#m_pLabelIcon[status=\"normal\"][pressed=\"true\"]{border-image:url(:/img/authStatus/normal_pressed.png);}"
    "#m_pLabelIcon[status=\"error\"]{border-image:url(:/img/authStatus/error_normal.png);}"
    "#m_pLabelIcon[status=\"error\"]:hover{border-image:url(:/img/authStatus/error_hover.png);}"
    "#m_pLabelIcon[status=\"error\"][pressed=\"true\"]{border-image:url(:/img/authStatus/error_pressed.png);}");

void repolish(QWidget* w)
{
    w->style()->unpolish(w);
    w->style()->polish(w);
    w->update();
}
} // namespace

AuthMgr::AuthMgr(QObject* parent)
    : QObject(parent)
{
}

AuthMgr::~AuthMgr()
{
    if (m_pItemsWin)
        m_pItemsWin->close();
    for (AuthMgritem* item : m_items.values())
        disconnect(item, nullptr, this, nullptr);
    if (m_pLabelIcon)
        m_pLabelIcon->deleteLater();
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[AuthMgr] delete AuthMgr obj");
}

int AuthMgr::registerItem(AuthMgritem* item)
{
    if (!item) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "item is null");
        return -1;
    }
    int const id = item->id();
    int ret = 0;
    if (m_items.contains(id)) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__, "item is repeat, id is %d", id);
        ret = -1;
    } else {
        m_items.insert(id, item);
        connect(item, &AuthMgritem::sig_updateStatus, this, &AuthMgr::updateIconStatus, Qt::UniqueConnection);
        // An item deleted by its plugin drops out of the map; refresh once its
        // destruction is over.
        connect(item, &QObject::destroyed, this, &AuthMgr::updateIconStatus, Qt::QueuedConnection);
    }
    updateIconStatus();
    return ret;
}

int AuthMgr::unRegisterItem(int id)
{
    if (!m_items.contains(id))
        return -1;
    AuthMgritem* item = m_items.take(id);
    if (item) {
        disconnect(item, nullptr, this, nullptr);
        if (m_pItemsWin && m_pItemsWin->item(id) == item)
            m_pItemsWin->unRegisterItem(id);
        item->hide();
    }
    updateIconStatus();
    return 0;
}

sPluginRegisterItem AuthMgr::icon(bool& shown)
{
    sPluginRegisterItem record;
    record.index = kTitlePosition;
    record.extra = kTitleRightArea;
    QList<AuthMgritem*> const items = m_items.values();
    if (items.isEmpty()) {
        shown = false;
        record.object = m_pLabelIcon.data();
        return record;
    }
    int good = 0;
    for (AuthMgritem* item : items) {
        if (item->status() != 0)
            ++good;
    }
    CQLabel* label = m_pLabelIcon ? m_pLabelIcon.data() : createIcon();
    // One good item is enough for the normal look (any-good, not all-good).
    label->setProperty("status", good > 0 ? "normal" : "error");
    repolish(label);
    shown = true;
    record.object = label;
    return record;
}

void AuthMgr::updateIconStatus()
{
    bool shown = false;
    sPluginRegisterItem const record = icon(shown);
    if (!shown) {
        emit sig_unRegisterTitle(record);
        if (m_pLabelIcon) {
            m_pLabelIcon->deleteLater();
            m_pLabelIcon = nullptr;
        }
        if (m_pItemsWin)
            m_pItemsWin->close();
        return;
    }
    emit sig_registerTitle(record);
    if (m_pItemsWin)
        fillItemsWin();
}

CQLabel* AuthMgr::iconLabel() const
{
    return m_pLabelIcon.data();
}

ItemsWin* AuthMgr::itemsWin() const
{
    return m_pItemsWin.data();
}

QList<AuthMgritem*> AuthMgr::items() const
{
    return m_items.values();
}

CQLabel* AuthMgr::createIcon()
{
    auto* label = new CQLabel;
    label->setObjectName(QStringLiteral("m_pLabelIcon"));
    label->setFixedSize(kIconSize, kIconSize);
    label->setAttribute(Qt::WA_Hover);
    label->setStyleSheet(kIconStyle);
    label->installEventFilter(this);
    m_pLabelIcon = label;
    return label;
}

bool AuthMgr::eventFilter(QObject* watched, QEvent* event)
{
    bool const press = event->type() == QEvent::MouseButtonPress;
    // Only clicks matter, and the icon sends other events while it is being
    // destroyed, when it is no CQLabel any more.
    if ((!press && event->type() != QEvent::MouseButtonRelease) || !m_pLabelIcon.is(watched))
        return QObject::eventFilter(watched, event);
    auto* label = m_pLabelIcon.data();
    if (press) {
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            label->setProperty("pressed", true);
            repolish(label);
        }
    } else if (event->type() == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        bool const wasPressed = label->property("pressed").toBool();
        label->setProperty("pressed", false);
        repolish(label);
        if (wasPressed && mouse->button() == Qt::LeftButton && label->rect().contains(mouse->pos()))
            slot_showItemsWin();
    }
    return QObject::eventFilter(watched, event);
}

void AuthMgr::fillItemsWin()
{
    QList<int> const ids = m_items.keys();
    for (int id : ids) {
        if (!m_pItemsWin->contains(id))
            m_pItemsWin->registerItem(m_items.value(id), id);
    }
}

void AuthMgr::slot_showItemsWin()
{
    if (!m_pLabelIcon)
        return;
    if (!m_pItemsWin)
        m_pItemsWin = new ItemsWin(nullptr);
    fillItemsWin();
    QWidget* label = m_pLabelIcon.data();
    QPoint const topLeft = label->mapToGlobal(QPoint(0, 0));
    int const x = topLeft.x() + label->width() / 2 - m_pItemsWin->width() / 2;
    int const y = topLeft.y() + label->height() + kPopupGap;
    m_pItemsWin->move(x, y);
    m_pItemsWin->show();
}
