#pragma once

#include "msgMgrLayout.h"
#include "msgMgrStack.h"

#include <QPair>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QVector>

// One held window. `object` identifies it even while it is being destroyed,
// when the guard may still be set but nothing of it may be called.
struct sMsgMgrEntry
{
    QPointer<MsgMgrWinInterface> window;
    QObject const* object = nullptr;
    QString winId;
    QString ownerPluginId;
    QSize alone;
    QSize compact;
    bool hovered = false;
    bool queued = false;
    // What the window was last told through setCountdownPaused.
    bool paused = false;
    // Gone while a re-stack was running; dropped when it is safe.
    bool dead = false;
};

class MsgMgrStackPrivate
{
public:
    explicit MsgMgrStackPrivate(MsgMgrStack* q);
    ~MsgMgrStackPrivate();

    void InitControl();
    void unInitControl();

    // The live window the record names, or null when the record is refused.
    MsgMgrWinInterface* acceptedWindow(sMsgMgrWinInfo const& info);
    int indexOf(QObject const* object) const;
    void adopt(MsgMgrWinInterface* window, sMsgMgrWinInfo const& info);
    void refresh(int index);
    // Its size in each look, stand-alone first.
    QPair<QSize, QSize> measure(MsgMgrWinInterface* window);
    void forget(QObject const* object);
    void releaseAll();

    bool wasClosed(MsgMgrWinInterface const* window);
    void rememberClosed(MsgMgrWinInterface* window);

    void restack();
    void applyLayout();
    void park(int index);
    void place(int index, QRect const& geometry, MsgMgrWinInterface::eUIType look);

    void setHovered(sMsgMgrEntry& entry, bool hovered);
    void updatePause(sMsgMgrEntry& entry);
    void noteResize(sMsgMgrEntry& entry, QSize const& size);

    MsgMgrStack* q_ptr = nullptr;
    MsgMgrScreenWatcher* m_pScreenWatcher = nullptr;
    QVector<sMsgMgrEntry> m_entries;
    // Windows that announced their close but are not deleted yet: registered
    // again, they would reappear on their way out.
    QVector<QPointer<MsgMgrWinInterface>> m_closed;
    MsgMgrLayout m_layout;
    bool m_restacking = false;
    bool m_restackAgain = false;
};
