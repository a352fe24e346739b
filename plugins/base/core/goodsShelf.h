#pragma once

#include "cqframe.h"
#include "cqlabel.h"
#include "keyedWidgetMap.h"

#include <QList>
#include <QMutex>
#include <QPointer>

class QGridLayout;

// Empty, transparent tile that keeps a shelf row holding one or two real tiles
// from collapsing.
class TmpItem : public CQLabel
{
    Q_OBJECT
public:
    explicit TmpItem(QWidget* parent);
};

// The tile grid at the top of the tray menu: three columns of 87 x 65 tiles
// that plugins register under an index.
class GoodsShelf : public CQFrame
{
    Q_OBJECT
public:
    explicit GoodsShelf(QWidget* parent = nullptr);
    ~GoodsShelf() override;

    // 0 on success; -1 for a null widget or an index already taken.
    int registerItem(QWidget* w, int index);
    // 0 on success; -1 for an unknown index. The tile is hidden and detached, not deleted.
    int unRegisterItem(int index);
    void updateUI();

    // Registered tiles in display order.
    QList<QWidget*> items() const;
    // Filler tiles currently placed (0, 1 or 2).
    int fillerCount() const;

private:
    void InitUI();
    TmpItem* createFiller(QPointer<TmpItem>& slot);
    void dropFiller(QPointer<TmpItem>& slot);
    void slot_itemDestroyed();

    QGridLayout* m_pGridLayout = nullptr;
    KeyedWidgetMap<QWidget> m_items;
    mutable QMutex m_mutex;
    QPointer<TmpItem> m_pTmpItemA;
    QPointer<TmpItem> m_pTmpItemB;
};
