#pragma once

#include "msgmgrwininterface.h"

#include <QObject>
#include <QRect>

class MsgMgrScreenWatcher;
class MsgMgrStackPrivate;

// The notification stack: the windows other plugins register, shown in the
// bottom-right corner of the primary screen without taking the focus, stacked
// without overlap, switched to the compact look when they do not fit, queued
// (hidden) when even that does not fit, and re-stacked whenever one closes,
// changes height, or the screen changes. A window's count-down is held while
// the pointer rests on it or while it waits in the queue.
//
// Registered windows have no other owner, but any of them may be closed or
// deleted at any moment by its own code: each is held through a guard and
// never touched once it has gone.
class MsgMgrStack : public QObject
{
    Q_OBJECT
    friend class MsgMgrStackPrivate;

public:
    // More windows than this are refused (and closed): a flood of notices must
    // not pile up hidden windows without end.
    static constexpr int kMaxWindows = 64;

    explicit MsgMgrStack(QObject* parent = nullptr);
    ~MsgMgrStack() override;

    // Starts following the screens; the stack uses the primary screen's
    // available area from now on.
    void start();
    // Stops following the screens and watching the windows, and closes every
    // window still held (they delete themselves).
    void stop();

    // 0 when the window is shown or queued (again, for a window already held:
    // it keeps its place), -1 when the record is refused (logged).
    int registerWindow(sMsgMgrWinInfo const& info);

public slots:
    // The area the stack may use; the screen watcher calls it on every change.
    void slot_availableGeometryChanged(QRect available);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void slot_windowPreClose(QString id);
    void slot_windowDestroyed(QObject* object);

private:
    MsgMgrStackPrivate* d_ptr = nullptr;
};
