// Tray menu, goods shelf and tray icon: keyed registration, placement and clicks.

#include "basepluginmodeldatainterface.h"
#include "goodsShelf.h"
#include "menuWidget.h"
#include "trayWidget.h"
#include "trayWidget_p.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace {
void flushDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

QList<QWidget*> layoutOrder(QLayout* layout)
{
    QList<QWidget*> order;
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (QWidget* w = layout->itemAt(i)->widget())
            order << w;
    }
    return order;
}

struct EnvGuard
{
    QByteArray name;
    QByteArray old;
    bool had;
    explicit EnvGuard(char const* n)
        : name(n)
        , old(qgetenv(n))
        , had(qEnvironmentVariableIsSet(n))
    {
    }
    ~EnvGuard()
    {
        if (had)
            qputenv(name.constData(), old);
        else
            qunsetenv(name.constData());
    }
};
} // namespace

class TstTargetsTray : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef UI_BASE_HAS_RESOURCES
        Q_INIT_RESOURCE(ui_base);
#endif
        qputenv("QUORIX_LOG_STDERR", "0");
    }

    void cleanup()
    {
        TrayWidget::UninitInstance(true);
        flushDeferredDeletes();
    }

    void versionCompare_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("expected");
        QTest::newRow("equal") << "5.6.1" << "5.6.1" << 0;
        QTest::newRow("older") << "5.5.1" << "5.6.1" << -1;
        QTest::newRow("newer, two digits") << "5.12.8" << "5.6.1" << 1;
        QTest::newRow("prefix only") << "5.6" << "5.6.1" << 0;
        QTest::newRow("numeric not textual") << "5.10" << "5.9" << 1;
        QTest::newRow("letters") << "5.x" << "5.6" << -2;
        QTest::newRow("empty against number") << "" << "5" << -2;
        QTest::newRow("empty part") << "5..1" << "5.6.1" << -2;
        QTest::newRow("blank part") << "5. .1" << "5.6.1" << -2;
    }
    void versionCompare()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, expected);
        QCOMPARE(MenuWidget::versionCompare(a, b), expected);
    }

    void menuKeepsFirstAndOrdersByIndex()
    {
        MenuWidget menu;
        QLabel a("a"), b("b"), c("c"), dup("dup");
        QWidget owner;
        dup.setParent(&owner);
        menu.addItem(&b, 20);
        menu.addItem(&c, 500);
        menu.addItem(&a, -400);
        menu.addItem(&dup, 20);
        menu.addItem(nullptr, 30);
        QCOMPARE(menu.items(), (QList<QWidget*>{&a, &b, &c}));
        QCOMPARE(layoutOrder(menu.layout()), (QList<QWidget*>{&a, &b, &c}));
        // The refused duplicate is neither taken in nor moved.
        QCOMPARE(dup.parentWidget(), &owner);
        QCOMPARE(a.width(), 268);
        QCOMPARE(menu.width(), 270);

        menu.removeItem(&b, 20);
        QCOMPARE(menu.items(), (QList<QWidget*>{&a, &c}));
        QVERIFY(b.isHidden());
        QVERIFY(b.parentWidget() == nullptr);
        // The index is free again.
        menu.addItem(&dup, 20);
        QCOMPARE(menu.items(), (QList<QWidget*>{&a, &dup, &c}));
        // Removal is by index; a null widget is a no-op, an unknown index too.
        menu.removeItem(nullptr, 20);
        menu.removeItem(&a, 12345);
        QCOMPARE(menu.items().size(), 3);
    }

    void menuSurvivesDeletedEntryAndFreesItsIndex()
    {
        MenuWidget menu;
        QLabel keep("keep");
        auto* gone = new QLabel("gone");
        menu.addItem(gone, 1);
        menu.addItem(&keep, 2);
        delete gone;
        QCOMPARE(menu.items(), (QList<QWidget*>{&keep}));
        QTRY_COMPARE(layoutOrder(menu.layout()), (QList<QWidget*>{&keep}));
        QLabel again("again");
        menu.addItem(&again, 1);
        QCOMPARE(menu.items(), (QList<QWidget*>{&again, &keep}));
        menu.removeItem(&keep, 2);
    }

    void menuHandsEntriesBackWhenDeleted()
    {
        QLabel entry("entry");
        {
            MenuWidget menu;
            menu.addItem(&entry, 1);
            QCOMPARE(entry.parentWidget(), &menu);
        }
        QVERIFY(entry.parentWidget() == nullptr);
    }

    void releaseOnEntryHidesMenu()
    {
        MenuWidget menu;
        QLabel entry("entry");
        menu.addItem(&entry, 1);
        menu.show();
        QVERIFY(menu.isVisible());
        QSignalSpy hidden(&menu, &MenuWidget::sig_hide);
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&entry, &release);
        if (menu.isOldQt())
            QSKIP("old Qt closes on focus loss instead");
        QVERIFY(!menu.isVisible());
        QCOMPARE(hidden.count(), 1);
    }

    void shelfFillers_data()
    {
        QTest::addColumn<int>("tiles");
        QTest::addColumn<int>("fillers");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("visible");
        QTest::newRow("empty") << 0 << 0 << 0 << false;
        QTest::newRow("one tile") << 1 << 2 << 65 << true;
        QTest::newRow("two tiles") << 2 << 1 << 65 << true;
        QTest::newRow("three tiles") << 3 << 0 << 65 << true;
        QTest::newRow("four tiles, one whole row") << 4 << 0 << 65 << true;
        QTest::newRow("six tiles") << 6 << 0 << 130 << true;
    }
    void shelfFillers()
    {
        QFETCH(int, tiles);
        QFETCH(int, fillers);
        QFETCH(int, height);
        QFETCH(bool, visible);
        QWidget host;
        auto* shelf = new GoodsShelf(&host);
        host.show();
        QList<QLabel*> owned;
        for (int i = 0; i < tiles; ++i) {
            owned << new QLabel(QString::number(i));
            owned.last()->setFixedSize(87, 65);
            QCOMPARE(shelf->registerItem(owned.last(), 10 * i), 0);
        }
        flushDeferredDeletes();
        shelf->updateUI();
        QCOMPARE(shelf->fillerCount(), fillers);
        QCOMPARE(shelf->height(), height);
        QCOMPARE(shelf->isVisible(), visible);
        QCOMPARE(shelf->findChildren<TmpItem*>(QStringLiteral("TmpItem")).size(), fillers);
        delete shelf;
        qDeleteAll(owned);
    }

    void shelfRefusesDuplicatesAndUnknownIndexes()
    {
        GoodsShelf shelf;
        QLabel a("a"), b("b"), c("c");
        QCOMPARE(shelf.registerItem(nullptr, 1), -1);
        QCOMPARE(shelf.registerItem(&a, 1), 0);
        QCOMPARE(shelf.registerItem(&b, 1), -1);
        QCOMPARE(shelf.registerItem(&c, -5), 0);
        QCOMPARE(shelf.items(), (QList<QWidget*>{&c, &a}));
        auto* grid = qobject_cast<QGridLayout*>(shelf.layout());
        QVERIFY(grid);
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), &c);
        QCOMPARE(grid->itemAtPosition(0, 1)->widget(), &a);
        QCOMPARE(shelf.unRegisterItem(99), -1);
        QCOMPARE(shelf.unRegisterItem(1), 0);
        QVERIFY(a.isHidden());
        QVERIFY(a.parentWidget() == nullptr);
        QCOMPARE(shelf.items(), (QList<QWidget*>{&c}));
        QCOMPARE(shelf.unRegisterItem(-5), 0);
    }

    void shelfSurvivesDeletedTile()
    {
        QWidget host;
        auto* shelf = new GoodsShelf(&host);
        QLabel keep("keep");
        auto* gone = new QLabel("gone");
        shelf->registerItem(gone, 1);
        shelf->registerItem(&keep, 2);
        delete gone;
        QCOMPARE(shelf->items(), (QList<QWidget*>{&keep}));
        QLabel again("again");
        QCOMPARE(shelf->registerItem(&again, 1), 0);
        QCOMPARE(shelf->items(), (QList<QWidget*>{&again, &keep}));
        delete shelf;
        QVERIFY(keep.parentWidget() == nullptr);
        QVERIFY(again.parentWidget() == nullptr);
    }

    void displayProtocol_data()
    {
        QTest::addColumn<QByteArray>("session");
        QTest::addColumn<QByteArray>("wayland");
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<int>("expected");
        QTest::newRow("session wayland wins over DISPLAY") << QByteArray("wayland") << QByteArray() << QByteArray(":0") << 2;
        QTest::newRow("session x11") << QByteArray("x11") << QByteArray("wayland-0") << QByteArray() << 1;
        QTest::newRow("tty, both set") << QByteArray("tty") << QByteArray("wayland-0") << QByteArray(":0") << 2;
        QTest::newRow("upper-case Wayland not trusted") << QByteArray("Wayland") << QByteArray() << QByteArray(":0") << 1;
        QTest::newRow("wayland display only") << QByteArray() << QByteArray("wayland-0") << QByteArray() << 2;
        QTest::newRow("x11 display only") << QByteArray() << QByteArray() << QByteArray(":1") << 1;
        QTest::newRow("nothing set") << QByteArray() << QByteArray() << QByteArray() << 1;
    }
    void displayProtocol()
    {
        QFETCH(QByteArray, session);
        QFETCH(QByteArray, wayland);
        QFETCH(QByteArray, display);
        QFETCH(int, expected);
        EnvGuard g1("XDG_SESSION_TYPE"), g2("WAYLAND_DISPLAY"), g3("DISPLAY");
        qputenv("XDG_SESSION_TYPE", session);
        qputenv("WAYLAND_DISPLAY", wayland);
        qputenv("DISPLAY", display);
        TrayWidget::UninitInstance(true);
        QCOMPARE(TrayWidget::singleInstance()->displayProtocol(), expected);
    }

    void placeAtCursor_data()
    {
        QTest::addColumn<QPoint>("cursor");
        QTest::addColumn<QSize>("menu");
        QTest::addColumn<QPoint>("expected");
        QSize const menu(270, 300);
        QTest::newRow("left edge") << QPoint(5, 900) << menu << QPoint(5, 600);
        QTest::newRow("right edge") << QPoint(1900, 1070) << menu << QPoint(1630, 770);
        QTest::newRow("top edge") << QPoint(100, 100) << menu << QPoint(100, 100);
        QTest::newRow("middle") << QPoint(960, 540) << menu << QPoint(825, 240);
        QTest::newRow("exactly at right limit") << QPoint(1785, 540) << menu << QPoint(1515, 240);
    }
    void placeAtCursor()
    {
        QFETCH(QPoint, cursor);
        QFETCH(QSize, menu);
        QFETCH(QPoint, expected);
        QCOMPARE(TrayWidgetPrivate::placeAtCursor(cursor, menu, QSize(1920, 1080)), expected);
    }

    void placeByPanel_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("left") << 0 << QPoint(40, 780);
        QTest::newRow("top") << 1 << QPoint(1650, 40);
        QTest::newRow("right") << 2 << QPoint(1610, 780);
        QTest::newRow("bottom") << 3 << QPoint(1650, 740);
        QTest::newRow("unknown side") << 7 << QPoint(0, 0);
    }
    void placeByPanel()
    {
        QFETCH(int, side);
        QFETCH(QPoint, expected);
        QCOMPARE(TrayWidgetPrivate::placeByPanel(side, 40, QSize(270, 300), QSize(1920, 1080)), expected);
    }

    void registMenuNeedsInitAndWidget()
    {
        TrayWidget* tray = TrayWidget::singleInstance();
        QLabel row("row");
        tray->registMenu(&row, 20);   // before init: nothing happens
        QVERIFY(!tray->menu());
        tray->init();
        QVERIFY(tray->menu());
        QVERIFY(!tray->menu()->isVisible());
        tray->registMenu(nullptr, 20);
        tray->registMenu(&row, 20);
        QCOMPARE(tray->menu()->items(), (QList<QWidget*>{&row}));
        tray->unRegistMenu(&row, 20);
        QVERIFY(tray->menu()->items().isEmpty());
        QVERIFY(row.parentWidget() == nullptr);
    }

    void trayIconCreatedOnceAndRecreatedAfterDeletion()
    {
        TrayWidget* tray = TrayWidget::singleInstance();
        tray->showTrayIcon();
        QPointer<QSystemTrayIcon> first = tray->trayIcon();
        QVERIFY(first);
        QVERIFY(!first->icon().isNull());
        QVERIFY(!first->toolTip().isEmpty());
        tray->showTrayIcon();
        QCOMPARE(tray->trayIcon(), first.data());
        delete first.data();
        QVERIFY(!tray->trayIcon());
        tray->showTrayIcon();
        QVERIFY(tray->trayIcon());
    }

    void clicksReachTheBridge()
    {
        TrayWidget* tray = TrayWidget::singleInstance();
        tray->init();
        QLabel row("row");
        row.setFixedHeight(40);
        tray->registMenu(&row, 20);
        BasePluginModelDataInterface* bridge = BasePluginModelDataInterface::singleInstance();
        QSignalSpy center(bridge, &BasePluginModelDataInterface::sig_centerShow);
        QSignalSpy popShow(bridge, &BasePluginModelDataInterface::sig_trayPopShow);
        QSignalSpy popHide(bridge, &BasePluginModelDataInterface::sig_trayPopHide);

        tray->slot_iconActivated(QSystemTrayIcon::DoubleClick);
        tray->slot_iconActivated(QSystemTrayIcon::MiddleClick);
        QCOMPARE(center.count() + popShow.count(), 0);

        tray->slot_iconActivated(QSystemTrayIcon::Trigger);
        QCOMPARE(center.count(), 1);
        QCOMPARE(popShow.count(), tray->osName().find("ubuntu") != std::string::npos ? 1 : 0);

        tray->menu()->hide();
        popShow.clear();
        popHide.clear();
        tray->slot_iconActivated(QSystemTrayIcon::Context);
        QCOMPARE(popShow.count(), 1);
        QVERIFY(tray->menu()->isVisible());
        QVERIFY(tray->menu()->height() >= 40 + 34);
        // A second right click while the menu is open does nothing.
        tray->slot_iconActivated(QSystemTrayIcon::Context);
        QCOMPARE(popShow.count(), 1);
        tray->menu()->myHide();
        QCOMPARE(popHide.count(), 1);
        tray->unRegistMenu(&row, 20);
    }
};

QTEST_MAIN(TstTargetsTray)
#include "tst_targets_tray.moc"
