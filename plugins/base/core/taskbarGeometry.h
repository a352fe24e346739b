#pragma once

#include <QPoint>
#include <QSize>

#include <string>
#include <vector>

// Where the desktop's panel (taskbar) sits and where the tray menu goes
// beside it: the readers of what the Deepin dock and the UKUI panel report,
// and the two placement rules. Pure functions; the queries themselves go
// through TrayDesktop.
class TaskbarGeometry
{
public:
    // Panel sides in the tray's own numbering.
    enum eSide { ESIDE_LEFT = 0, ESIDE_TOP = 1, ESIDE_RIGHT = 2, ESIDE_BOTTOM = 3 };
    static constexpr int kDefaultSide = ESIDE_BOTTOM;
    static constexpr int kDefaultThickness = 40;

    // Which desktop can be asked, by the lower-cased distribution name.
    enum eSource { ESOURCE_NONE = 0, ESOURCE_DEEPIN_DOCK = 1, ESOURCE_UKUI_PANEL = 2 };
    static eSource sourceFor(std::string const& osName);

    // The tool's output trimmed and cut at blanks and line feeds.
    static std::vector<std::string> tokens(std::string const& output);
    // The Deepin dock's Position (0 top, 1 right, 2 bottom, 3 left): the
    // first number decides, even one that maps to nothing.
    static int dockSide(std::string const& output);
    // The UKUI panel's panelposition (0 bottom, 1 top, 2 left, 3 right):
    // every number is mapped in turn and the last mappable one stays.
    static int ukuiSide(std::string const& output);
    // Either desktop's thickness: the first number.
    static int thickness(std::string const& output);

    // The menu beside the pointer, kept on the screen: centred on the pointer
    // unless that runs off the left or right edge, above it unless that runs
    // off the top.
    static QPoint placeAtCursor(QPoint const& cursor, QSize const& menu, QSize const& screen);
    // The menu in the screen corner at the panel's far end; (0, 0) for a side
    // that is none of the four.
    static QPoint placeByPanel(int side, int thickness, QSize const& menu, QSize const& screen);

private:
    TaskbarGeometry() = delete;
};
