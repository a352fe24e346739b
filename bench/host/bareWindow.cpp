// The yardstick for the host's start-up: a bare Qt program that shows a main
// window of the client's size with one label in the client's font, the
// product's Chinese title, and quits after its first paint, exactly the way
// quorix-gui --quit-after-show does. The label makes the bare program pay for
// loading and shaping the CJK font too, so the comparison is about what the
// client does on top of that.

#include "firstPaintWatcher.h"

#include <QApplication>
#include <QFont>
#include <QLabel>
#include <QMainWindow>

#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    window.setFixedSize(1000, 580);
    auto* title = new QLabel(QString::fromUtf8("Quorix终端安全管理系统"), &window);
    title->setFont(QFont(QStringLiteral("Noto Sans CJK SC"), 14));
    window.setCentralWidget(title);
    FirstPaintWatcher watcher(&window);
    QObject::connect(&watcher, &FirstPaintWatcher::sig_firstPaint, &app, []() {
        std::fputs("bare: main window painted\n", stdout);
        std::fflush(stdout);
        QCoreApplication::quit();
    });
    window.show();
    return QApplication::exec();
}
