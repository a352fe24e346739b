// The yardstick for the host's start-up: a bare Qt program that shows an empty
// main window of the client's size and quits after its first paint, exactly
// the way quorix-gui --quit-after-show does.

#include "firstPaintWatcher.h"

#include <QApplication>
#include <QMainWindow>

#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.setFixedSize(1000, 580);
    FirstPaintWatcher watcher(&window);
    QObject::connect(&watcher, &FirstPaintWatcher::sig_firstPaint, &app, []() {
        std::fputs("bare: main window painted\n", stdout);
        std::fflush(stdout);
        QCoreApplication::quit();
    });
    window.show();
    return QApplication::exec();
}
