#include "firstPaintWatcher.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

FirstPaintWatcher::FirstPaintWatcher(QWidget* window, QObject* parent)
    : QObject(parent)
{
    if (window)
        window->installEventFilter(this);
}

bool FirstPaintWatcher::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_seen && event->type() == QEvent::Paint) {
        m_seen = true;
        watched->removeEventFilter(this);
        // Signalled after the paint has finished and been flushed, not from inside it.
        QTimer::singleShot(0, this, &FirstPaintWatcher::sig_firstPaint);
    }
    return QObject::eventFilter(watched, event);
}
