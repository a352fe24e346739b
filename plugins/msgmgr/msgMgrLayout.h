#pragma once

#include "msgmgrwininterface.h"

#include <QRect>
#include <QSize>
#include <QVector>

// One window as the placement sees it: its size in each look.
struct sMsgMgrLayoutItem
{
    QSize alone;
    QSize compact;
};

// Where one window goes: its rectangle in screen coordinates and its look, or
// queued (kept hidden until there is room).
struct sMsgMgrPlacement
{
    QRect geometry;
    MsgMgrWinInterface::eUIType look = MsgMgrWinInterface::EUITYPE_ALONE;
    bool queued = false;
};

// The geometry of the notification stack, free of any screen or widget so that
// every case can be computed for any screen.
//
// Windows stack upwards from the bottom-right corner of the available area in
// registration order: the oldest sits lowest, next to the panel, and a newcomer
// goes on top. A new window therefore never moves the ones the user may be
// about to click. When the whole stack does not fit in the stand-alone look,
// every shown window takes the compact look (a mixed stack reads as noise);
// the windows that still do not fit wait, in order, for room. The oldest window
// is always shown, clamped to the top of the area, even if it is taller than
// the area, so that a single huge window cannot block the queue for ever.
class MsgMgrLayout
{
public:
    static constexpr int kDefaultEdgeMargin = 12;
    static constexpr int kDefaultSpacing = 8;

    explicit MsgMgrLayout(QRect const& available, int edgeMargin = kDefaultEdgeMargin,
                          int spacing = kDefaultSpacing);
    ~MsgMgrLayout();

    QRect available() const;
    void setAvailable(QRect const& available);
    int edgeMargin() const;
    int spacing() const;

    // One placement per item, in the items' order. An empty area queues all.
    QVector<sMsgMgrPlacement> place(QVector<sMsgMgrLayoutItem> const& items) const;

private:
    // How many leading items fit, each taking the size `pick` returns.
    template <typename Pick>
    int fittingCount(QVector<sMsgMgrLayoutItem> const& items, Pick pick) const;
    int usableHeight() const;
    QRect rectFor(QSize const& size, int bottomEdge) const;

    QRect m_available;
    int m_edgeMargin;
    int m_spacing;
};
