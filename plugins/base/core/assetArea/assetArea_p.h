#pragma once

#include "assetArea.h"

#include <QList>
#include <QMap>
#include <QMutex>
#include <QPointer>

class CQLine;
class QHBoxLayout;

// State of AssetArea. Grid entries hold guarded pointers: the owner of a
// widget may delete it at any time, and the next rebuild drops its entry.
class AssetAreaPrivate
{
public:
    struct Item {
        QPointer<QWidget> widget;
        QPoint cell;   // x the row, y the column
    };

    explicit AssetAreaPrivate(AssetArea* q);
    ~AssetAreaPrivate();

    void InitUI();
    void InitUIWindow();
    void InitUILogo();
    void InitUIBody();
    void InitUIRightSlot();

    // The item's widget if the grid can take it, else null (logged).
    QWidget* acceptedWidget(sPluginRegisterItem const& item) const;

    bool insertItem(int index, Item const& item);
    bool eraseItem(int index);
    void updateItem();
    QList<Item> liveItems();
    void layoutItems(QList<Item> const& items);
    void releaseForeignWidgets();

    AssetArea* q_ptr = nullptr;
    QHBoxLayout* m_pLayout = nullptr;
    ComputerLogo* m_pComputerLogo = nullptr;
    CQLine* m_pLine = nullptr;
    QFrame* m_pWinBody = nullptr;
    QGridLayout* m_pGridLayout = nullptr;
    QFrame* m_pWinLeft = nullptr;

    bool m_bRefreshing = false;
    bool m_bRebuilding = false;
    bool m_bRebuildPending = false;

    QMap<int, Item> m_mapItems;
    mutable QMutex m_mutexItems;
};
