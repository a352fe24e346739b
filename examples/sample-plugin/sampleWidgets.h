#pragma once

#include <QPointer>
#include <QSize>
#include <QString>
#include <QWidget>

#include <type_traits>

class QLabel;
class QObject;

// The small widgets every contribution of the sample is made of, and the one
// way they are let go.
namespace SampleWidgets {

// A label showing `text` as plain text, whatever characters it holds: texts
// that cross a plugin boundary are never read as markup. Fixed at `size`,
// dashed in the accent colour so that the place it landed in stands out.
QLabel* plainLabel(QString const& objectName, QString const& text, QSize const& size, QWidget* parent = nullptr);

// Tool tips have no text format of their own: Qt reads one as rich text as
// soon as it looks like markup. Such text is converted so it shows as written.
QString plainToolTip(QString const& text);

// Whether the frame took `w`. Keyed containers parent what they accept and
// leave a widget refused for a key already held parentless. An unregister by
// key takes out whatever holds the key, so it is only sent for a widget that
// was placed: never another plugin's.
inline bool isPlaced(QWidget const* w)
{
    return w && w->parentWidget();
}

// Hides, detaches and schedules a contribution for deletion. Detached first:
// a container may keep what it lets go as its child (the home page's column
// does) and would otherwise delete it along with itself; deferred, because
// this may run inside a command the frame is still dispatching.
void disposeWidget(QWidget* w);
void disposeObject(QObject* object);

template <typename T>
void dispose(QPointer<T>& pointer)
{
    if (pointer) {
        if constexpr (std::is_base_of<QWidget, T>::value)
            disposeWidget(pointer.data());
        else
            disposeObject(pointer.data());
    }
    pointer = nullptr;
}

} // namespace SampleWidgets
