#include "msgMgrStack_p.h"

#include "clogdebug.h"
#include "msgMgrScreenWatcher.h"

#include <QEvent>
#include <QResizeEvent>

namespace {
constexpr char kLogModule[] = "plugins/msgmgr/msgMgrStack";
} // namespace

MsgMgrStack::MsgMgrStack(QObject* parent)
    : QObject(parent)
    , d_ptr(new MsgMgrStackPrivate(this))
{
    setObjectName(QStringLiteral("m_pMsgMgrStack"));
}

MsgMgrStack::~MsgMgrStack()
{
    stop();
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(BFLOG_DEBUG, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrStack] delete MsgMgrStack obj");
}

void MsgMgrStack::start()
{
    d_ptr->InitControl();
}

void MsgMgrStack::stop()
{
    d_ptr->unInitControl();
    d_ptr->releaseAll();
}

int MsgMgrStack::registerWindow(sMsgMgrWinInfo const& info)
{
    MsgMgrWinInterface* window = d_ptr->acceptedWindow(info);
    if (!window)
        return -1;
    int const index = d_ptr->indexOf(window);
    if (index >= 0 && !d_ptr->m_entries.at(index).dead) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] win [%s] registered again, keeps its place", qUtf8Printable(window->id()));
        d_ptr->refresh(index);
        return 0;
    }
    if (d_ptr->m_entries.size() >= kMaxWindows) {
        BFLogPrintX(BFLOG_WARN, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] %d windows held already, win [%s] closed", kMaxWindows,
                    qUtf8Printable(window->id()));
        window->close();
        return -1;
    }
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrStack] register win [%s] of [%s], priority %d, flag %d", qUtf8Printable(window->id()),
                qUtf8Printable(info.ownerPluginId), info.priority, info.flag);
    d_ptr->adopt(window, info);
    d_ptr->restack();
    return 0;
}

void MsgMgrStack::slot_availableGeometryChanged(QRect available)
{
    if (available == d_ptr->m_layout.available())
        return;
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                "[MsgMgrStack] area %d,%d %dx%d, %d windows re-stacked", available.x(), available.y(),
                available.width(), available.height(), int(d_ptr->m_entries.size()));
    d_ptr->m_layout.setAvailable(available);
    d_ptr->restack();
}

bool MsgMgrStack::eventFilter(QObject* watched, QEvent* event)
{
    QEvent::Type const type = event->type();
    if (type != QEvent::Enter && type != QEvent::Leave && type != QEvent::Resize && type != QEvent::Show)
        return QObject::eventFilter(watched, event);
    int const index = d_ptr->indexOf(watched);
    if (index < 0 || d_ptr->m_entries.at(index).dead)
        return QObject::eventFilter(watched, event);

    sMsgMgrEntry& entry = d_ptr->m_entries[index];
    if (type == QEvent::Resize) {
        d_ptr->noteResize(entry, static_cast<QResizeEvent*>(event)->size());
    } else if (type == QEvent::Show) {
        // Its owner showed a window that waits in the queue (an update of an
        // open notice): it goes back once the show is over, not from inside it.
        if (entry.queued && !d_ptr->m_restacking)
            QMetaObject::invokeMethod(this, [this]() { d_ptr->restack(); }, Qt::QueuedConnection);
    } else {
        d_ptr->setHovered(entry, type == QEvent::Enter);
    }
    return QObject::eventFilter(watched, event);
}

void MsgMgrStack::slot_windowPreClose(QString id)
{
    // The sender may be inside its destructor: only its address is used.
    QObject const* const object = sender();
    int const index = d_ptr->indexOf(object);
    if (index < 0)
        return;
    BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[MsgMgrStack] win [%s] closes",
                qUtf8Printable(id));
    d_ptr->rememberClosed(d_ptr->m_entries.at(index).window.data());
    d_ptr->forget(object);
}

void MsgMgrStack::slot_windowDestroyed(QObject* object)
{
    if (d_ptr->indexOf(object) >= 0) {
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__,
                    "[MsgMgrStack] a window was deleted without closing");
        d_ptr->forget(object);
    }
}
