#pragma once

#include "keyedWidgetMap.h"
#include "objectguard.h"
#include "spluginregisteritem.h"

#include <QObject>
#include <QPointer>

class AuthMgritem;
class CQLabel;
class ItemsWin;

// Gathers the authentication items plugins register and shows their combined
// state as one 24 x 24 icon in the title bar (right area, position 100). The
// icon exists only while an item is registered; a click opens ItemsWin.
class AuthMgr : public QObject
{
    Q_OBJECT
public:
    explicit AuthMgr(QObject* parent = nullptr);
    ~AuthMgr() override;

    // 0 when stored, -1 for null or an id already registered (the first stays).
    int registerItem(AuthMgritem* item);
    // 0 when removed (hidden, not deleted), -1 for an unknown id.
    int unRegisterItem(int id);

    // Builds or updates the icon; the record to place it in the title bar.
    sPluginRegisterItem icon(bool& shown);
    CQLabel* iconLabel() const;
    ItemsWin* itemsWin() const;
    QList<AuthMgritem*> items() const;

public slots:
    void updateIconStatus();

signals:
    void sig_registerTitle(sPluginRegisterItem item);
    void sig_unRegisterTitle(sPluginRegisterItem item);

protected:
    // A click on the icon opens the pop-up.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void slot_showItemsWin();
    void fillItemsWin();
    CQLabel* createIcon();

    KeyedWidgetMap<AuthMgritem> m_items;
    ObjectGuard<CQLabel> m_pLabelIcon;
    QPointer<ItemsWin> m_pItemsWin;
};
