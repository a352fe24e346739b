#include "taskbarGeometry.h"

#include "cstr.h"

#include <QtGlobal>

#include <climits>
#include <cstdlib>

namespace {

// The tools print their value after a type word ("variant int32 2", "uint32 2")
// on lines of their own; blanks and line feeds are the only separators that
// matter.
constexpr char kTokenSeparators[] = " \n";

// Deepin dock Position, indexed by the dock's value.
constexpr int kDockSides[] = {TaskbarGeometry::ESIDE_TOP, TaskbarGeometry::ESIDE_RIGHT, TaskbarGeometry::ESIDE_BOTTOM,
                              TaskbarGeometry::ESIDE_LEFT};
// UKUI panelposition, indexed by the panel's value.
constexpr int kUkuiSides[] = {TaskbarGeometry::ESIDE_BOTTOM, TaskbarGeometry::ESIDE_TOP, TaskbarGeometry::ESIDE_LEFT,
                              TaskbarGeometry::ESIDE_RIGHT};
constexpr int kSideCount = 4;

bool mapSide(int const (&table)[kSideCount], int value, int& side)
{
    if (value < 0 || value >= kSideCount)
        return false;
    side = table[value];
    return true;
}

// A thickness or a pointer position that the desktop reports can be any
// number; the corner is worked out wide and brought back into int so that no
// sum overflows.
int clampToInt(qint64 value)
{
    return int(qBound<qint64>(INT_MIN, value, INT_MAX));
}

} // namespace

TaskbarGeometry::eSource TaskbarGeometry::sourceFor(std::string const& osName)
{
    if (CStr::contains(osName, "uos"))
        return ESOURCE_DEEPIN_DOCK;
    if (CStr::contains(osName, "kylin"))
        return ESOURCE_UKUI_PANEL;
    return ESOURCE_NONE;
}

std::vector<std::string> TaskbarGeometry::tokens(std::string const& output)
{
    return CStr::splitAny(CStr::trimed(output), kTokenSeparators);
}

int TaskbarGeometry::dockSide(std::string const& output)
{
    int side = kDefaultSide;
    for (std::string const& token : tokens(output)) {
        if (!CStr::isNum(token))
            continue;
        mapSide(kDockSides, std::atoi(token.c_str()), side);
        break;
    }
    return side;
}

int TaskbarGeometry::ukuiSide(std::string const& output)
{
    int side = kDefaultSide;
    for (std::string const& token : tokens(output)) {
        if (CStr::isNum(token))
            mapSide(kUkuiSides, std::atoi(token.c_str()), side);
    }
    return side;
}

int TaskbarGeometry::thickness(std::string const& output)
{
    for (std::string const& token : tokens(output)) {
        if (CStr::isNum(token))
            return std::atoi(token.c_str());
    }
    return kDefaultThickness;
}

QPoint TaskbarGeometry::placeAtCursor(QPoint const& cursor, QSize const& menu, QSize const& screen)
{
    qint64 const w = menu.width();
    qint64 x = cursor.x() - w / 2;
    if (x < 0)
        x = cursor.x();
    else if (x + w >= screen.width())
        x = cursor.x() - w;
    qint64 y = qint64(cursor.y()) - menu.height();
    if (y < 0)
        y = cursor.y();
    return QPoint(clampToInt(x), clampToInt(y));
}

QPoint TaskbarGeometry::placeByPanel(int side, int thickness, QSize const& menu, QSize const& screen)
{
    qint64 const w = menu.width();
    qint64 const h = menu.height();
    qint64 const t = thickness;
    qint64 x = 0;
    qint64 y = 0;
    switch (side) {
    case ESIDE_LEFT:
        x = t;
        y = screen.height() - h;
        break;
    case ESIDE_TOP:
        x = screen.width() - w;
        y = t;
        break;
    case ESIDE_RIGHT:
        x = screen.width() - t - w;
        y = screen.height() - h;
        break;
    case ESIDE_BOTTOM:
        x = screen.width() - w;
        y = screen.height() - t - h;
        break;
    default:
        break;
    }
    return QPoint(clampToInt(x), clampToInt(y));
}
