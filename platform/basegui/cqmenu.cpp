#include "cqmenu.h"

#include "clogdebug.h"
#include "cqpopupshape.h"

#include <QAction>
#include <QSet>

namespace {

char const* const kModule = "platform/basegui/cqmenu";
// The style sheet's border-radius.
int const kCornerRadius = 8;

char const* const kMenuStyle =
    "QMenu{background:#FFFFFF;border:1px solid #DFE1E6;border-radius:8px;padding:4px 0px;}"
    "QMenu::item{height:36px;padding:0px 24px 0px 16px;color:#333444;font-family:\"Noto Sans CJK SC\";font-size:14px;"
    "background:transparent;}"
    "QMenu::item:selected{background:#EBF3FF;}"
    "QMenu::item:disabled{color:#A8A9B3;}"
    "QMenu::separator{height:1px;background:#DFE1E6;margin:4px 8px;}";

} // namespace

CQMenu::CQMenu(QWidget* parent)
    : QMenu(parent)
{
    InitUI();
}

CQMenu::~CQMenu()
{
    // Actions parented to the menu are deleted by ~QWidget, after this
    // destructor: their destroyed signal must not reach a half-destroyed menu.
    for (QPointer<QAction> const& action : qAsConst(m_actions)) {
        if (action)
            disconnect(action.data(), &QObject::destroyed, this, &CQMenu::rebuild);
    }
}

void CQMenu::InitUI()
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    // See-through outside the corners where the desktop composites, cut to
    // shape where it does not (black corners otherwise).
    CQPopupShape::install(this, kCornerRadius);
    setStyleSheet(QString::fromLatin1(kMenuStyle));
}

int CQMenu::myAddAction(QAction* action, int index)
{
    if (!action) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[CQMenu] action is null, index is [%d]", index);
        return -1;
    }
    pruneDeleted();
    if (m_actions.contains(index)) {
        BFLogPrintX(BFLOG_INFO, kModule, __FUNCTION__, __LINE__, "[CQMenu] index [%d] is taken, action not added", index);
        return -1;
    }
    for (auto it = m_actions.cbegin(); it != m_actions.cend(); ++it) {
        if (it.value() == action) {
            BFLogPrintX(BFLOG_WARN, kModule, __FUNCTION__, __LINE__, "[CQMenu] action already registered at [%d], not added at [%d]", it.key(),
                        index);
            return -1;
        }
    }
    m_actions.insert(index, QPointer<QAction>(action));
    // QAction's destructor takes it out of every widget itself; all that is
    // left to do here is forget the key and lay the rest out again.
    connect(action, &QObject::destroyed, this, &CQMenu::rebuild, Qt::UniqueConnection);
    rebuild();
    return 0;
}

int CQMenu::myRemoveAction(QAction* action, int index)
{
    pruneDeleted();
    auto it = m_actions.find(index);
    if (it == m_actions.end()) {
        BFLogPrintX(BFLOG_INFO, kModule, __FUNCTION__, __LINE__, "[CQMenu] index [%d] is not registered", index);
        return -1;
    }
    QAction* registered = it.value().data();
    m_actions.erase(it);
    if (registered) {
        disconnect(registered, &QObject::destroyed, this, &CQMenu::rebuild);
        removeAction(registered);
    }
    if (action && action != registered)
        BFLogPrintX(BFLOG_DEBUG, kModule, __FUNCTION__, __LINE__, "[CQMenu] index [%d] held another action, that one removed", index);
    rebuild();
    return 0;
}

QList<QAction*> CQMenu::orderedActions() const
{
    QList<QAction*> ordered;
    for (auto const& action : m_actions) {
        if (action)
            ordered.append(action.data());
    }
    return ordered;
}

QList<int> CQMenu::keys() const
{
    QList<int> live;
    for (auto it = m_actions.cbegin(); it != m_actions.cend(); ++it) {
        if (it.value())
            live.append(it.key());
    }
    return live;
}

QAction* CQMenu::actionAt(int index) const
{
    return m_actions.value(index).data();
}

void CQMenu::pruneDeleted()
{
    for (auto it = m_actions.begin(); it != m_actions.end();) {
        if (it.value().isNull())
            it = m_actions.erase(it);
        else
            ++it;
    }
}

void CQMenu::rebuild()
{
    pruneDeleted();
    QList<QAction*> const keyed = orderedActions();
    QSet<QAction*> const keyedSet(keyed.cbegin(), keyed.cend());
    QList<QAction*> others;
    for (QAction* action : actions()) {
        if (!keyedSet.contains(action))
            others.append(action);
    }
    // removeAction only detaches; QMenu::clear() would delete what the menu owns.
    for (QAction* action : actions())
        removeAction(action);
    addActions(keyed);
    addActions(others);
}
