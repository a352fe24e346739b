// Tray menu and goods shelf: keyed registration.

#include "goodsShelf.h"
#include "menuWidget.h"
#include "trayWidget.h"

#include <QGridLayout>
#include <QLabel>
#include <QtTest>

namespace {

QList<QWidget*> layoutOrder(QLayout* layout)
{
    QList<QWidget*> order;
    for (int i = 0; i < layout->count(); ++i) {
        if (QWidget* w = layout->itemAt(i)->widget())
            order << w;
    }
    return order;
}

} // namespace

class TstTargetsTray : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(ui_base); }

    void cleanup()
    {
        TrayWidget::UninitInstance(true);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Ordered by index, first at an index wins, removal by index frees it; an
    // entry deleted by its owner frees its index; entries outlive the menu.
    void menuKeyedEntries()
    {
        QLabel a, b, c, dup;
        QWidget owner;
        dup.setParent(&owner);
        auto* gone = new QLabel;
        {
            MenuWidget menu;
            menu.addItem(&b, 20);
            menu.addItem(&c, 500);
            menu.addItem(&a, -400);
            menu.addItem(&dup, 20);
            menu.addItem(nullptr, 30);
            menu.addItem(gone, 7);
            delete gone;
            QCOMPARE(menu.items(), (QList<QWidget*>{&a, &b, &c}));
            QTRY_COMPARE(layoutOrder(menu.layout()), (QList<QWidget*>{&a, &b, &c}));
            QCOMPARE(dup.parentWidget(), &owner);   // refused, not moved
            menu.removeItem(&b, 20);
            QVERIFY(b.isHidden() && !b.parentWidget());
            menu.removeItem(nullptr, 500);
            menu.removeItem(&a, 12345);
            menu.addItem(&dup, 20);
            menu.addItem(&b, 7);
            QCOMPARE(menu.items(), (QList<QWidget*>{&a, &b, &dup, &c}));
        }
        QVERIFY(!a.parentWidget() && !c.parentWidget());
    }

    void shelfKeyedTiles()
    {
        QWidget host;
        auto* shelf = new GoodsShelf(&host);
        QLabel a, b, c;
        auto* gone = new QLabel;
        QCOMPARE(shelf->registerItem(nullptr, 1), -1);
        QCOMPARE(shelf->registerItem(&a, 1), 0);
        QCOMPARE(shelf->registerItem(&b, 1), -1);
        QCOMPARE(shelf->registerItem(&c, -5), 0);
        QCOMPARE(shelf->registerItem(gone, 3), 0);
        delete gone;
        auto* grid = qobject_cast<QGridLayout*>(shelf->layout());
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), &c);
        QCOMPARE(grid->itemAtPosition(0, 1)->widget(), &a);
        QCOMPARE(shelf->unRegisterItem(99), -1);
        QCOMPARE(shelf->unRegisterItem(1), 0);
        QVERIFY(a.isHidden() && !a.parentWidget());
        QCOMPARE(shelf->registerItem(&b, 3), 0);   // freed by the deletion
        QCOMPARE(shelf->items(), (QList<QWidget*>{&c, &b}));
        delete shelf;
        QVERIFY(!b.parentWidget() && !c.parentWidget());
    }

    // Rows need the menu, which init makes, and a widget.
    void registMenuNeedsInitAndWidget()
    {
        TrayWidget* tray = TrayWidget::singleInstance();
        QLabel row;
        tray->registMenu(&row, 20);
        QVERIFY(!tray->menu());
        tray->init();
        tray->registMenu(nullptr, 20);
        tray->registMenu(&row, 20);
        QCOMPARE(tray->menu()->items(), (QList<QWidget*>{&row}));
        tray->unRegistMenu(&row, 20);
        QVERIFY(tray->menu()->items().isEmpty() && !row.parentWidget());
    }
};

QTEST_MAIN(TstTargetsTray)
#include "tst_targets_tray.moc"
