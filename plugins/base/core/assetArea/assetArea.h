#pragma once

#include "assetArea_global.h"
#include "spluginregisteritem.h"

#include <QPoint>
#include <QWidget>

class AssetAreaPrivate;
class ComputerLogo;
class QFrame;
class QGridLayout;

// The 744 x 74 strip that sums up the computer's assets: the computer icon
// with its state badge, a rule, a grid of small data widgets that other
// plugins place by cell, and a free-placed slot at the right.
//
// A grid item's extra is a QPoint whose x is the row and whose y is the
// column. The first registration under an index wins. Registered widgets
// belong to their owners: the strip never deletes one, forgets one its owner
// deletes, and lets go of the live ones when it is destroyed.
class ASSETAREA_EXPORT AssetArea : public QWidget
{
    Q_OBJECT
    friend class AssetAreaPrivate;

public:
    explicit AssetArea(QWidget* parent = nullptr);
    ~AssetArea() override;

    // True while a live widget is registered under `index`.
    bool hasItem(int index) const;
    ComputerLogo* computerLogo() const;
    QGridLayout* gridLayout() const;
    QFrame* rightSlot() const;

signals:
    void sig_refreshEnd();

public slots:
    // A refresh asked for while one runs is dropped.
    void slot_refresh();
    // Refreshes only a strip that is not hidden.
    void slot_showRefresh();
    void slot_registerItem(sPluginRegisterItem item);
    // Takes the widget out of the grid; it is neither hidden nor deleted.
    void slot_unRegisterItem(int index);
    // 0 no badge, 1 risk, 2 danger; other values are ignored.
    void slot_updateState(signed char state);
    // Places `w` at `pos` inside the right slot; the slot keeps no record.
    void slot_updateLeftWin(QWidget* w, QPoint pos);

private:
    AssetAreaPrivate* d_ptr = nullptr;
};
