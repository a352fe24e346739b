#pragma once

#include "childProcess.h"

#include <QList>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QScopedPointer>
#include <QSize>
#include <QStringList>

// A window as the X server sees it.
struct XWindow
{
    quint32 id = 0;
    QString name;
    QString className;   // the class half of WM_CLASS
    QRect geometry;      // on the screen
    bool topLevel = false;
    bool inTray = false;   // below trayer's panel: an icon it has docked
};

// A real X desktop of the test's own: an Xvfb on the first free display
// number and, on request, trayer as its system tray; the X clients xdotool
// and xwininfo to drive and read it. Everything started here is killed on
// destruction, whatever happened in between.
class XDesktop
{
public:
    // Of `programs`, those not found in PATH.
    static QStringList missingPrograms(QStringList const& programs);

    explicit XDesktop(QSize const& screen = QSize(1280, 800));
    ~XDesktop();

    bool isUp() const;
    QString display() const;   // ":N"
    QSize screenSize() const;

    // trayer along `edge` (top, bottom, left, right) with its icons at
    // `align` (left, center, right); a running one is replaced.
    bool startTray(QString const& edge, QString const& align);

    // Every window of the class, from the top of the tree down.
    QList<XWindow> windows(QString const& className) const;
    // The ids of the mapped (viewable) windows of the class.
    QList<quint32> viewable(QString const& className) const;

    // Real pointer moves and clicks; a click "on" a window is sent to it
    // without moving the pointer.
    void moveTo(QPoint const& point) const;
    void click(int button) const;
    void clickWindow(quint32 window, int button) const;
    // Shows the image file on the root window, behind every window.
    void setBackground(QString const& imagePath) const;
    // The screen's `area` as an image file (ImageMagick's import).
    bool screenshot(QString const& path, QRect const& area) const;

    // Runs an X client against this display to its end, the event loop
    // turning meanwhile, so that the test's own bus services keep answering;
    // its standard output.
    QByteArray run(QString const& program, QStringList const& arguments) const;

private:
    void stop(QScopedPointer<ChildProcess>& process);

    QSize m_screen;
    QString m_display;
    QScopedPointer<ChildProcess> m_server;
    QScopedPointer<ChildProcess> m_tray;
};
