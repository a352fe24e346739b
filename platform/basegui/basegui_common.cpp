#include "basegui_common.h"

#include "clogdebug.h"

#include <QApplication>
#include <QFile>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QWidget>

namespace {

char const* const kModule = "platform/basegui/basegui_common";
// Style sheets are a few kilobytes; anything near this is not one.
qint64 const kMaxQssSize = 1024 * 1024;

} // namespace

namespace basegui {

QString Common::readQssFile(QString const& path)
{
    if (path.isEmpty()) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[basegui::Common] qss path is empty");
        return QString();
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[basegui::Common] open qss file failed, path is [%s]",
                    qUtf8Printable(path));
        return QString();
    }
    QByteArray const bytes = file.read(kMaxQssSize + 1);
    if (bytes.size() > kMaxQssSize) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[basegui::Common] qss file too large, path is [%s]",
                    qUtf8Printable(path));
        return QString();
    }
    return QString::fromUtf8(bytes);
}

void Common::clearLayout(QLayout* layout, bool deleteWidgets)
{
    if (!layout)
        return;
    while (QLayoutItem* item = layout->takeAt(0)) {
        if (QWidget* w = item->widget()) {
            if (deleteWidgets) {
                // Deferred: the widget may be the one whose signal led here.
                w->hide();
                w->deleteLater();
            }
        } else if (QLayout* child = item->layout()) {
            // A nested layout came with the outer one and goes with it; the
            // widgets it arranged are treated like the outer ones.
            clearLayout(child, deleteWidgets);
        }
        // Spacers, stretches, widget wrappers and the nested layout itself:
        // the item was the layout's, taken, now ours to delete.
        delete item;
    }
}

void Common::clearGridLayout(QGridLayout* layout)
{
    if (!layout)
        return;
    // Rows and columns keep their stretch and minimum size after their items
    // are gone; a grid filled again from scratch must not inherit them.
    for (int row = 0; row < layout->rowCount(); ++row) {
        layout->setRowStretch(row, 0);
        layout->setRowMinimumHeight(row, 0);
    }
    for (int column = 0; column < layout->columnCount(); ++column) {
        layout->setColumnStretch(column, 0);
        layout->setColumnMinimumWidth(column, 0);
    }
    clearLayout(layout, false);
}

void Common::setWidgetMidPos(QWidget* w, QWidget* parent, QPoint const& offset)
{
    if (!w) {
        BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[basegui::Common] widget is null");
        return;
    }
    QRect area;
    if (parent) {
        area = QRect(parent->mapToGlobal(QPoint(0, 0)), parent->size());
    } else {
        QScreen* screen = QGuiApplication::primaryScreen();
        if (!screen) {
            BFLogPrintX(BFLOG_ERROR, kModule, __FUNCTION__, __LINE__, "[basegui::Common] no screen to centre on");
            return;
        }
        area = screen->availableGeometry();
    }
    QSize const size = w->frameGeometry().size();
    QPoint topLeft(area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2);
    topLeft += offset;
    // Child widgets are placed in their parent's coordinates.
    if (!w->isWindow() && w->parentWidget())
        topLeft = w->parentWidget()->mapFromGlobal(topLeft);
    w->move(topLeft);
}

// QWidget's first base is QObject, so a QObject* or void* of a widget has the
// widget's own address.
bool Common::refusesOwnAncestor(QWidget const* container, QWidget const* w, char const* who)
{
    if (!container || !w)
        return false;
    // Not QWidget::isAncestorOf: it stops at window borders, and a dialog's
    // parent window is just as fatal to take in.
    QWidget const* up = container;
    while (up && up != w)
        up = up->parentWidget();
    if (!up)
        return false;
    BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[%s] refuses [%s]: it is the container itself or one of its ancestors",
                who, qUtf8Printable(w->objectName()));
    return true;
}

QWidget* Common::liveWidgetAt(void const* address)
{
    if (!address || !qobject_cast<QApplication*>(QCoreApplication::instance()))
        return nullptr;
    for (QWidget* w : QApplication::allWidgets()) {
        if (static_cast<void const*>(w) == address)
            return w;
    }
    return nullptr;
}

} // namespace basegui
