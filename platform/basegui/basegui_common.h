#pragma once

#include "basegui_global.h"

#include <QPoint>
#include <QString>

class QGridLayout;
class QLayout;
class QWidget;

namespace basegui {

class BASEGUI_EXPORT Common
{
public:
    // Contents of a style-sheet file or resource; "" (logged) if unreadable.
    static QString readQssFile(QString const& path);
    // Takes every item out of `layout`; widgets are deleted only with deleteWidgets.
    static void clearLayout(QLayout* layout, bool deleteWidgets);
    static void clearGridLayout(QGridLayout* layout);
    // Centres `w` on `parent` (on the screen for a null parent), moved by `offset`.
    static void setWidgetMidPos(QWidget* w, QWidget* parent, QPoint const& offset);
    // The widget alive right now at `address`, else null. Pointers handed
    // over by other plugins may be stale: they are compared with the live
    // widgets and never dereferenced before one matches.
    static QWidget* liveWidgetAt(void const* address);
    // True, and logged at level 4, when `w` is `container` itself or one of
    // its ancestors: taking it in would make a widget its own parent, which
    // loops in the layout or overflows the stack. `who` names the container's
    // class in the log line.
    static bool refusesOwnAncestor(QWidget const* container, QWidget const* w, char const* who);
};

} // namespace basegui
