#pragma once

#include "basegui_global.h"

#include <QMap>
#include <QMenu>
#include <QPointer>

class QAction;

// Drop-down menu whose entries are registered under integer keys and shown in
// ascending key order. The first registration under a key wins; actions are
// never deleted by the menu.
class BASEGUI_EXPORT CQMenu : public QMenu
{
    Q_OBJECT
public:
    explicit CQMenu(QWidget* parent = nullptr);
    ~CQMenu() override;

    // 0 on success; -1 for a null action or a key already taken.
    int myAddAction(QAction* action, int index);
    // Removes the entry under `index` (the action passed is only detached from
    // the menu if it is the registered one). 0 on success, -1 if unknown.
    int myRemoveAction(QAction* action, int index);
    QList<QAction*> orderedActions() const;

private:
    void rebuild();
    QMap<int, QPointer<QAction>> m_actions;
};
