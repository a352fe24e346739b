#include "msgMgrLayout.h"

#include "clogdebug.h"

#include <algorithm>

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrLayout";
} // namespace

MsgMgrLayout::MsgMgrLayout(QRect const& available, int edgeMargin, int spacing)
    : m_available(available)
    , m_edgeMargin(std::max(0, edgeMargin))
    , m_spacing(std::max(0, spacing))
{
}

MsgMgrLayout::~MsgMgrLayout()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrLayout] delete MsgMgrLayout obj");
}

QRect MsgMgrLayout::available() const
{
    return m_available;
}

void MsgMgrLayout::setAvailable(QRect const& available)
{
    m_available = available;
}

int MsgMgrLayout::edgeMargin() const
{
    return m_edgeMargin;
}

int MsgMgrLayout::spacing() const
{
    return m_spacing;
}

QVector<sMsgMgrPlacement> MsgMgrLayout::place(QVector<sMsgMgrLayoutItem> const& items) const
{
    QVector<sMsgMgrPlacement> placements(items.size());
    for (sMsgMgrPlacement& placement : placements)
        placement.queued = true;
    if (m_available.isEmpty() || items.isEmpty())
        return placements;

    bool const compact = fittingCount(items, [](sMsgMgrLayoutItem const& i) { return i.alone; }) < items.size();
    auto const sizeOf = [compact](sMsgMgrLayoutItem const& i) { return compact ? i.compact : i.alone; };
    int const shown = std::max(1, fittingCount(items, sizeOf));

    int bottomEdge = m_available.y() + m_available.height() - m_edgeMargin;
    for (int i = 0; i < shown; ++i) {
        QSize const size = sizeOf(items.at(i));
        placements[i].geometry = rectFor(size, bottomEdge);
        placements[i].look = compact ? MsgMgrWinInterface::EUITYPE_COMPACT : MsgMgrWinInterface::EUITYPE_ALONE;
        placements[i].queued = false;
        bottomEdge -= size.height() + m_spacing;
    }
    return placements;
}

template <typename Pick>
int MsgMgrLayout::fittingCount(QVector<sMsgMgrLayoutItem> const& items, Pick pick) const
{
    int const usable = usableHeight();
    int used = 0;
    int count = 0;
    for (sMsgMgrLayoutItem const& item : items) {
        int const needed = used + (count > 0 ? m_spacing : 0) + std::max(0, pick(item).height());
        if (needed > usable)
            break;
        used = needed;
        ++count;
    }
    return count;
}

int MsgMgrLayout::usableHeight() const
{
    return m_available.height() - 2 * m_edgeMargin;
}

// Right-aligned on the area's margin with its bottom on `bottomEdge`, pushed
// back inside the area where it would stick out at the top or the left.
QRect MsgMgrLayout::rectFor(QSize const& size, int bottomEdge) const
{
    int const width = std::max(0, size.width());
    int const height = std::max(0, size.height());
    int const right = m_available.x() + m_available.width() - m_edgeMargin;
    int const x = std::max(m_available.x(), right - width);
    int const y = std::max(m_available.y(), bottomEdge - height);
    return QRect(x, y, width, height);
}
