#include "cqmystackedwins.h"

#include "basegui_common.h"
#include "clogdebug.h"

#include <QBoxLayout>

namespace {
char const* const kModule = "platform/basegui/cqmystackedwins";
}

CQMyStackedWins::CQMyStackedWins(QWidget* parent)
    : QWidget(parent)
{
}

// Registered widgets belong to their registrants: hand back the ones still
// alive instead of letting the widget tree delete them with us.
CQMyStackedWins::~CQMyStackedWins()
{
    for (auto const& w : qAsConst(m_items)) {
        if (!w)
            continue;
        disconnect(w, nullptr, this, nullptr);
        detach(w);
    }
}

int CQMyStackedWins::registerItem(QWidget* w, int key)
{
    if (!w) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[CQMyStackedWins] widget is null, key is [%d]", key);
        return -1;
    }
    if (basegui::Common::refusesOwnAncestor(this, w, metaObject()->className()))
        return -1;
    if (contains(key)) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[CQMyStackedWins] key [%d] exists, not register.", key);
        return -1;
    }
    if (items().contains(w)) {
        BFLogPrintX(3, kModule, __FUNCTION__, __LINE__, "[CQMyStackedWins] widget already registered, key is [%d]", key);
        return -1;
    }
    m_items.insert(key, QPointer<QWidget>(w));
    connect(w, &QObject::destroyed, this, &CQMyStackedWins::slot_itemDestroyed, Qt::UniqueConnection);
    resetUI();
    return 0;
}

int CQMyStackedWins::unRegisterItem(int key)
{
    auto it = m_items.find(key);
    if (it == m_items.end()) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[CQMyStackedWins] key [%d] not found", key);
        return -1;
    }
    QPointer<QWidget> const w = it.value();
    m_items.erase(it);
    if (w) {
        disconnect(w, &QObject::destroyed, this, &CQMyStackedWins::slot_itemDestroyed);
        if (layout())
            layout()->removeWidget(w);
        detach(w);
    }
    resetUI();
    return 0;
}

int CQMyStackedWins::count() const
{
    return items().size();
}

bool CQMyStackedWins::contains(int key) const
{
    return !m_items.value(key).isNull();
}

QWidget* CQMyStackedWins::item(int key) const
{
    return m_items.value(key).data();
}

QList<QWidget*> CQMyStackedWins::items() const
{
    QList<QWidget*> list;
    for (auto const& w : m_items) {
        if (w)
            list << w.data();
    }
    return list;
}

QList<int> CQMyStackedWins::keys() const
{
    QList<int> list;
    for (auto it = m_items.cbegin(); it != m_items.cend(); ++it) {
        if (it.value())
            list << it.key();
    }
    return list;
}

void CQMyStackedWins::resetUI()
{
    auto* box = qobject_cast<QBoxLayout*>(layout());
    if (!box)
        return;
    while (QLayoutItem* li = box->takeAt(0))
        delete li;   // the layout item only; widgets stay with their owners
    for (QWidget* w : items()) {
        box->addWidget(w);
        w->show();
    }
}

void CQMyStackedWins::slot_itemDestroyed(QObject* object)
{
    for (auto it = m_items.begin(); it != m_items.end();) {
        if (it.value().isNull() || static_cast<QObject*>(it.value().data()) == object)
            it = m_items.erase(it);
        else
            ++it;
    }
    // Relayout later: this may run while a subclass is half destroyed.
    QMetaObject::invokeMethod(this, [this]() { resetUI(); }, Qt::QueuedConnection);
}

void CQMyStackedWins::detach(QWidget* w)
{
    w->hide();
    if (isAncestorOf(w))
        w->setParent(nullptr);
}
