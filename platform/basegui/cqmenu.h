#pragma once

#include "basegui_global.h"

#include <QMap>
#include <QMenu>
#include <QPointer>

class QAction;

// Drop-down menu whose entries are registered under integer keys and shown in
// ascending key order. The first registration under a key wins; actions are
// never deleted by the menu.
//
// An action deleted by its owner drops out of the menu and frees its key.
// Actions added the plain QMenu way (addAction, addSeparator) stay after the
// keyed ones, in the order they were added.
class BASEGUI_EXPORT CQMenu : public QMenu
{
    Q_OBJECT
public:
    explicit CQMenu(QWidget* parent = nullptr);
    ~CQMenu() override;

    // 0 on success; -1 for a null action, a key already taken or an action
    // already registered under another key.
    int myAddAction(QAction* action, int index);
    // Removes the entry under `index` (the action passed is only detached from
    // the menu if it is the registered one). 0 on success, -1 if unknown.
    int myRemoveAction(QAction* action, int index);
    QList<QAction*> orderedActions() const;
    QList<int> keys() const;
    QAction* actionAt(int index) const;

private:
    void InitUI();
    void rebuild();
    void pruneDeleted();
    QMap<int, QPointer<QAction>> m_actions;
};
