#include "msgMgrStack_p.h"

#include "clogdebug.h"
#include "msgMgrScreenWatcher.h"
#include "msgMgrWinTraits.h"

#include <QThread>

#include <algorithm>

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrStack";
// A window that resizes itself whenever it is placed would otherwise keep the
// stack busy for ever; its next resize event brings it back in any case.
constexpr int kMaxPasses = 3;
} // namespace

MsgMgrStackPrivate::MsgMgrStackPrivate(MsgMgrStack* q)
    : q_ptr(q)
    , m_pScreenWatcher(new MsgMgrScreenWatcher(q))
    , m_layout(QRect())
{
}

MsgMgrStackPrivate::~MsgMgrStackPrivate()
{
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrStackPrivate] delete MsgMgrStackPrivate obj");
}

void MsgMgrStackPrivate::InitControl()
{
    if (m_pScreenWatcher->isWatching())
        return;
    QObject::connect(m_pScreenWatcher, &MsgMgrScreenWatcher::sig_availableGeometryChanged, q_ptr,
                     &MsgMgrStack::slot_availableGeometryChanged, Qt::UniqueConnection);
    m_pScreenWatcher->start();
    q_ptr->slot_availableGeometryChanged(m_pScreenWatcher->availableGeometry());
}

void MsgMgrStackPrivate::unInitControl()
{
    m_pScreenWatcher->stop();
    QObject::disconnect(m_pScreenWatcher, nullptr, q_ptr, nullptr);
}

MsgMgrWinInterface* MsgMgrStackPrivate::acceptedWindow(sMsgMgrWinInfo const& info)
{
    if (QThread::currentThread() != q_ptr->thread()) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win [%s] registered from another thread, ignored", qUtf8Printable(info.winId));
        return nullptr;
    }
    MsgMgrWinInterface* window = MsgMgrWinTraits::liveWindow(info.window);
    if (!window) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win [%s] of [%s] is not a live window, ignored", qUtf8Printable(info.winId),
                    qUtf8Printable(info.ownerPluginId));
        return nullptr;
    }
    if (wasClosed(window)) {
        BFLogPrintX(BFLOG_ERROR, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win [%s] registered after its close, ignored", qUtf8Printable(info.winId));
        return nullptr;
    }
    if (info.winId != window->id())
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win id [%s] differs from the window's [%s], the window's is kept",
                    qUtf8Printable(info.winId), qUtf8Printable(window->id()));
    return window;
}

int MsgMgrStackPrivate::indexOf(QObject const* object) const
{
    auto const it = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                 [object](sMsgMgrEntry const& entry) { return entry.object == object; });
    return it == m_entries.cend() ? -1 : int(it - m_entries.cbegin());
}

void MsgMgrStackPrivate::adopt(MsgMgrWinInterface* window, sMsgMgrWinInfo const& info)
{
    MsgMgrWinTraits::prepareAsNotification(window);
    QObject::connect(window, &MsgMgrWinInterface::sig_preClose, q_ptr, &MsgMgrStack::slot_windowPreClose,
                     Qt::UniqueConnection);
    QObject::connect(window, &QObject::destroyed, q_ptr, &MsgMgrStack::slot_windowDestroyed, Qt::UniqueConnection);
    window->installEventFilter(q_ptr);

    sMsgMgrEntry entry;
    entry.window = window;
    entry.object = window;
    entry.winId = window->id();
    entry.ownerPluginId = info.ownerPluginId;
    QPair<QSize, QSize> const sizes = measure(window);
    entry.alone = sizes.first;
    entry.compact = sizes.second;
    m_entries.append(entry);
}

// An updated window: new sizes, same place. Its update may also have restarted
// the count-down of a window that is held (a notice's new time), so the hold is
// sent again if it applies.
void MsgMgrStackPrivate::refresh(int index)
{
    QObject const* const object = m_entries.at(index).object;
    QPair<QSize, QSize> const sizes = measure(m_entries.at(index).window.data());
    index = indexOf(object);
    if (index >= 0 && !m_entries.at(index).dead) {
        m_entries[index].alone = sizes.first;
        m_entries[index].compact = sizes.second;
        m_entries[index].paused = false;
    }
    restack();
}

// Both looks are measured up front so that the placement can choose without
// trying; the window is left in whichever look, the re-stack sets the right one.
QPair<QSize, QSize> MsgMgrStackPrivate::measure(MsgMgrWinInterface* window)
{
    QPointer<MsgMgrWinInterface> guard = window;
    bool const wasRestacking = m_restacking;
    m_restacking = true;
    QSize const alone = MsgMgrWinTraits::sizeInLook(window, MsgMgrWinInterface::EUITYPE_ALONE);
    QSize const compact = guard ? MsgMgrWinTraits::sizeInLook(window, MsgMgrWinInterface::EUITYPE_COMPACT) : alone;
    m_restacking = wasRestacking;
    if (guard)
        BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win [%s] is %dx%d alone, %dx%d compact", qUtf8Printable(window->id()),
                    alone.width(), alone.height(), compact.width(), compact.height());
    return qMakePair(alone, compact);
}

void MsgMgrStackPrivate::forget(QObject const* object)
{
    int const index = indexOf(object);
    if (index < 0)
        return;
    // Inside a re-stack the entries are being walked: mark now, drop later.
    if (m_restacking) {
        m_entries[index].dead = true;
        m_restackAgain = true;
        return;
    }
    m_entries.remove(index);
    restack();
}

// The windows are told nothing more, then closed: they have no other owner.
void MsgMgrStackPrivate::releaseAll()
{
    QVector<QPointer<MsgMgrWinInterface>> windows;
    for (sMsgMgrEntry const& entry : qAsConst(m_entries)) {
        if (!entry.window || entry.dead)
            continue;
        entry.window->removeEventFilter(q_ptr);
        QObject::disconnect(entry.window.data(), nullptr, q_ptr, nullptr);
        windows << entry.window;
    }
    m_entries.clear();
    m_closed.clear();
    if (!windows.isEmpty())
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrStack] closing %d windows still held",
                    int(windows.size()));
    for (QPointer<MsgMgrWinInterface> const& window : qAsConst(windows)) {
        if (window)
            window->close();
    }
}

bool MsgMgrStackPrivate::wasClosed(MsgMgrWinInterface const* window)
{
    m_closed.removeAll(QPointer<MsgMgrWinInterface>());
    return std::any_of(m_closed.cbegin(), m_closed.cend(),
                       [window](QPointer<MsgMgrWinInterface> const& closed) { return closed.data() == window; });
}

void MsgMgrStackPrivate::rememberClosed(MsgMgrWinInterface* window)
{
    m_closed.removeAll(QPointer<MsgMgrWinInterface>());
    if (window && m_closed.size() < MsgMgrStack::kMaxWindows)
        m_closed.append(window);
}

void MsgMgrStackPrivate::restack()
{
    if (m_restacking) {
        m_restackAgain = true;
        return;
    }
    m_restacking = true;
    int passes = 0;
    do {
        m_restackAgain = false;
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                       [](sMsgMgrEntry const& entry) { return entry.dead || !entry.window; }),
                        m_entries.end());
        applyLayout();
    } while (m_restackAgain && ++passes < kMaxPasses);
    m_restacking = false;
}

void MsgMgrStackPrivate::applyLayout()
{
    QVector<sMsgMgrLayoutItem> items;
    items.reserve(m_entries.size());
    for (sMsgMgrEntry const& entry : qAsConst(m_entries))
        items.append({entry.alone, entry.compact});
    QVector<sMsgMgrPlacement> const placements = m_layout.place(items);

    // Queued windows leave before the others move in, so that nothing is
    // ever drawn on top of a window on its way out.
    for (int i = 0; i < placements.size(); ++i) {
        if (placements.at(i).queued)
            park(i);
    }
    for (int i = 0; i < placements.size(); ++i) {
        if (!placements.at(i).queued)
            place(i, placements.at(i).geometry, placements.at(i).look);
    }
}

void MsgMgrStackPrivate::park(int index)
{
    sMsgMgrEntry& entry = m_entries[index];
    MsgMgrWinInterface* window = entry.window.data();
    if (!window || entry.dead)
        return;
    // A hidden window cannot be under the pointer, and its Leave may never come.
    entry.hovered = false;
    entry.queued = true;
    updatePause(entry);
    if (m_entries.at(index).window && window->isVisible())
        window->hide();
}

// Every call into the window may run its code, which may close it and so
// change the entries: the entry is looked up again after each one.
void MsgMgrStackPrivate::place(int index, QRect const& geometry, MsgMgrWinInterface::eUIType look)
{
    MsgMgrWinInterface* window = m_entries.at(index).window.data();
    if (!window || m_entries.at(index).dead)
        return;
    if (window->uiType() != look)
        window->changUIType(look);
    if (!m_entries.at(index).window)
        return;
    QSize const actual = MsgMgrWinTraits::currentSize(window);
    QSize& expected = look == MsgMgrWinInterface::EUITYPE_COMPACT ? m_entries[index].compact : m_entries[index].alone;
    if (actual != expected) {
        expected = actual;
        m_restackAgain = true;
    }
    window->move(geometry.topLeft());
    if (!window->isVisible())
        window->show();
    if (!m_entries.at(index).window)
        return;
    m_entries[index].queued = false;
    updatePause(m_entries[index]);
}

void MsgMgrStackPrivate::setHovered(sMsgMgrEntry& entry, bool hovered)
{
    if (entry.hovered == hovered)
        return;
    entry.hovered = hovered;
    updatePause(entry);
}

// Only the changes are passed on: a window that was never paused is never told
// to resume, which would start a count-down its owner left stopped.
void MsgMgrStackPrivate::updatePause(sMsgMgrEntry& entry)
{
    bool const paused = entry.hovered || entry.queued;
    if (paused == entry.paused || !entry.window)
        return;
    entry.paused = paused;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrStack] win [%s] count-down %s",
                qUtf8Printable(entry.winId), paused ? "held" : "resumed");
    entry.window->setCountdownPaused(paused);
}

// A window that changed its own height (an updated text) gets its place
// re-computed; sizes the stack causes itself are measured where they happen.
void MsgMgrStackPrivate::noteResize(sMsgMgrEntry& entry, QSize const& size)
{
    if (m_restacking || !entry.window)
        return;
    QSize& expected =
        entry.window->uiType() == MsgMgrWinInterface::EUITYPE_COMPACT ? entry.compact : entry.alone;
    if (size == expected)
        return;
    expected = size;
    restack();
}
