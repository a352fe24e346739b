// Tray menu and goods shelf: keyed registration; the tray icon: the display
// protocol it finds, when it watches the Wayland pointer, and where its
// clicks go.

#include "basepluginmodeldatainterface.h"
#include "goodsShelf.h"
#include "menuWidget.h"
#include "monitorButtonReleasePosThread.h"
#include "testLogCapture.h"
#include "trayDesktop.h"
#include "trayWidget.h"

#include <QGridLayout>
#include <QLabel>
#include <QScopeGuard>
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

// Environment variables set for one scope, put back as they were after it;
// an empty value unsets.
class ScopedEnv
{
public:
    explicit ScopedEnv(QList<QPair<QByteArray, QByteArray>> const& values)
    {
        for (auto const& value : values) {
            m_saved << Saved{value.first, qgetenv(value.first), qEnvironmentVariableIsSet(value.first)};
            value.second.isEmpty() ? qunsetenv(value.first) : qputenv(value.first, value.second);
        }
    }
    ~ScopedEnv()
    {
        for (Saved const& saved : qAsConst(m_saved))
            saved.wasSet ? qputenv(saved.name, saved.value) : qunsetenv(saved.name);
    }

private:
    struct Saved {
        QByteArray name;
        QByteArray value;
        bool wasSet;
    };
    QList<Saved> m_saved;
};

QByteArray releaseTree(char const* name)
{
    return QFile::encodeName(qEnvironmentVariable("QUORIX_TESTDATA") + QStringLiteral("/release-files/") +
                             QLatin1String(name));
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

    // Rows need the menu, which init makes, and a widget; taking one out
    // detaches it whoever held it, even a refused one, and frees its index.
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
        QWidget owner;
        QLabel refused(&owner);
        tray->registMenu(&refused, 20);
        QCOMPARE(refused.parentWidget(), &owner);
        tray->unRegistMenu(&refused, 20);   // detached all the same, and the index goes
        QVERIFY(tray->menu()->items().isEmpty() && !refused.parentWidget() && !row.parentWidget());
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
        ScopedEnv scoped({{"XDG_SESSION_TYPE", env.at(0)}, {"WAYLAND_DISPLAY", env.at(1)}, {"DISPLAY", env.at(2)}});
        QCOMPARE(TrayWidget::singleInstance()->displayProtocol(), expected);
    }

    // Only Wayland on UOS watches the pointer; the monitor outlives the tray.
    void waylandMonitorOnlyOnUos_data()
    {
        QTest::addColumn<QByteArray>("session");
        QTest::addColumn<QByteArray>("tree");
        QTest::addColumn<bool>("monitor");
        QTest::newRow("wayland, uos") << QByteArray("wayland") << releaseTree("ans_uos_20") << true;
        QTest::newRow("wayland, kylin") << QByteArray("wayland") << releaseTree("dt_kylin_desktop_v10sp1") << false;
        QTest::newRow("x11, uos") << QByteArray("x11") << releaseTree("ans_uos_20") << false;
    }
    void waylandMonitorOnlyOnUos()
    {
        QFETCH(QByteArray, session);
        QFETCH(QByteArray, tree);
        QFETCH(bool, monitor);
        TestLogCapture log;
        ScopedEnv scoped({{"XDG_SESSION_TYPE", session}, {TrayDesktop::kProbeRootVariable, tree}});
        QPointer<MonitorButtonReleasePosThread> started = TrayWidget::singleInstance()->waylandMonitor();
        auto const stopMonitor = qScopeGuard([&started]() { delete started.data(); });
        QCOMPARE(!started.isNull(), monitor);
        QCOMPARE(log.count(QStringLiteral("[TrayWidget] wayland start monitor")), monitor ? 1 : 0);
        if (!monitor)
            return;
        QVERIFY(started->isRunning());
        TrayWidget::UninitInstance(true);
        QVERIFY(started && started->isRunning());
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
