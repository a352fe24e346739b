// Tray menu and goods shelf: keyed registration; the tray icon: the display
// protocol it finds and where its clicks go.

#include "basepluginmodeldatainterface.h"
#include "goodsShelf.h"
#include "menuWidget.h"
#include "trayWidget.h"

#include <QGridLayout>
#include <QLabel>
#include <QSignalSpy>
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

    void displayProtocol_data()
    {
        QTest::addColumn<QByteArrayList>("env");   // XDG_SESSION_TYPE, WAYLAND_DISPLAY, DISPLAY
        QTest::addColumn<int>("expected");         // 1 X11, 2 Wayland
        QTest::newRow("session wayland wins over DISPLAY") << QByteArrayList{"wayland", "", ":0"} << 2;
        QTest::newRow("session x11 wins over WAYLAND_DISPLAY") << QByteArrayList{"x11", "wayland-0", ""} << 1;
        QTest::newRow("tty, both set: Wayland") << QByteArrayList{"tty", "wayland-0", ":0"} << 2;
        QTest::newRow("upper-case Wayland not trusted") << QByteArrayList{"Wayland", "", ":0"} << 1;
        QTest::newRow("WAYLAND_DISPLAY only") << QByteArrayList{"", "wayland-0", ""} << 2;
        QTest::newRow("DISPLAY only") << QByteArrayList{"", "", ":1"} << 1;
        QTest::newRow("nothing set: X11") << QByteArrayList{"", "", ""} << 1;
    }
    void displayProtocol()
    {
        QFETCH(QByteArrayList, env);
        QFETCH(int, expected);
        char const* const names[] = {"XDG_SESSION_TYPE", "WAYLAND_DISPLAY", "DISPLAY"};
        QByteArrayList saved;
        QList<bool> wasSet;
        for (int i = 0; i < 3; ++i) {
            saved << qgetenv(names[i]);
            wasSet << qEnvironmentVariableIsSet(names[i]);
            env.at(i).isEmpty() ? qunsetenv(names[i]) : qputenv(names[i], env.at(i));
        }
        int const protocol = TrayWidget::singleInstance()->displayProtocol();
        for (int i = 0; i < 3; ++i)
            wasSet.at(i) ? qputenv(names[i], saved.at(i)) : qunsetenv(names[i]);
        QCOMPARE(protocol, expected);
    }

    // Left click: the centre (on Ubuntu the menu too); right click: the menu,
    // once while it is open, and its going away is announced; double and
    // middle clicks: nothing.
    void clicksReachTheBridge_data()
    {
        QTest::addColumn<QList<int>>("reasons");
        QTest::addColumn<int>("centre");
        QTest::addColumn<int>("menu");   // openings, leaving Ubuntu's left click aside
        QTest::newRow("double, middle") << QList<int>{QSystemTrayIcon::DoubleClick, QSystemTrayIcon::MiddleClick} << 0 << 0;
        QTest::newRow("left") << QList<int>{QSystemTrayIcon::Trigger} << 1 << 0;
        QTest::newRow("right") << QList<int>{QSystemTrayIcon::Context} << 0 << 1;
        QTest::newRow("right twice") << QList<int>{QSystemTrayIcon::Context, QSystemTrayIcon::Context} << 0 << 1;
    }
    void clicksReachTheBridge()
    {
        QFETCH(QList<int>, reasons);
        QFETCH(int, centre);
        QFETCH(int, menu);
        TrayWidget* tray = TrayWidget::singleInstance();
        tray->init();
        QLabel row;
        row.setFixedHeight(40);
        tray->registMenu(&row, 20);
        BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
        QSignalSpy centreShow(bridge, &BasePluginModelDataInterface::sig_centerShow);
        QSignalSpy popShow(bridge, &BasePluginModelDataInterface::sig_trayPopShow);
        QSignalSpy popHide(bridge, &BasePluginModelDataInterface::sig_trayPopHide);
        for (int reason : qAsConst(reasons))
            tray->slot_iconActivated(QSystemTrayIcon::ActivationReason(reason));
        if (tray->osName().find("ubuntu") != std::string::npos)
            menu += centre;
        QCOMPARE(centreShow.count(), centre);
        QCOMPARE(popShow.count(), menu);
        QCOMPARE(tray->menu()->isVisible(), menu > 0);
        QCOMPARE(popHide.count(), 0);
        tray->menu()->myHide();
        QCOMPARE(popHide.count(), menu);
        tray->unRegistMenu(&row, 20);
    }
};

QTEST_MAIN(TstTargetsTray)
#include "tst_targets_tray.moc"
