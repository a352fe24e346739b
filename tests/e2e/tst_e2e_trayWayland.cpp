// The tray menu under a Wayland session, where the pointer cannot be read:
// the client runs on Xvfb with XDG_SESSION_TYPE=wayland, in a real tray, on a
// session bus of the test's own. It asks the Deepin dock through the real
// dbus-send and the UKUI panel through the real gsettings where to put the
// menu, takes the defaults elsewhere, and on UOS follows the KWayland
// daemon's button presses through the real busctl, which it restarts.
//
// The menu is opened by a click sent to the icon while the pointer rests at
// the screen's corner, so that the cursor gives no position.

#include "deepinDesktopService.h"
#include "privateSessionBus.h"
#include "trayScene.h"
#include "ukuiPanelSettings.h"

#include <QtTest>

#include <csignal>

namespace {

int const kRightButton = 3;
int const kMonitorTimeoutMs = 20000;
int const kAny = -1;
QString const kBusctl = QStringLiteral("busctl");
QString const kBusctlFinished =
    QStringLiteral("MonitorButtonReleasePosThread::slot_processFinished QProcess finished with code[");

QString releaseTree(char const* name)
{
    return qEnvironmentVariable("QUORIX_TESTDATA") + QStringLiteral("/release-files/") + QLatin1String(name);
}

// Gaps between the menu and the screen's left, top, right and bottom edges;
// kAny where the placement leaves it to the menu's size.
using Gaps = QList<int>;

} // namespace

class TstE2eTrayWayland : public QObject
{
    Q_OBJECT

    QScopedPointer<PrivateSessionBus> m_bus;
    QScopedPointer<DeepinDesktopService> m_deepin;
    QScopedPointer<UkuiPanelSettings> m_ukui;
    QScopedPointer<TrayScene> m_scene;
    QString m_tree;   // the distribution the running client was given

    // A client given the distribution under `tree`, started unless the
    // running one already has it; true once its icon docked.
    bool clientOn(QString const& tree)
    {
        if (m_tree == tree)
            return true;
        m_tree.clear();
        QProcessEnvironment env = m_ukui->environment(m_scene->environment(m_bus->address()));
        env.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
        env.insert(QStringLiteral("QUORIX_PROBE_ROOT"), tree);
        if (!m_scene->startClient(env))
            return false;
        m_tree = tree;
        return true;
    }

    XWindow openMenuFromCorner()
    {
        m_scene->desktop().moveTo(QPoint(0, 0));
        m_scene->desktop().clickWindow(m_scene->icon().id, kRightButton);
        XWindow menu;
        m_scene->waitMenu(menu);
        return menu;
    }

    void compareGaps(XWindow const& menu, Gaps const& expected)
    {
        QVERIFY2(menu.id != 0, "no menu after the click");
        Gaps actual = m_scene->screenGaps(menu);
        for (int i = 0; i < actual.size(); ++i) {
            if (expected.at(i) == kAny)
                actual[i] = kAny;
        }
        QCOMPARE(actual, expected);
    }

    // The daemon reports a press at `point` until the menu opens centred
    // above it: busctl's report and the click reach the client by different
    // ways, so one round may lose the race.
    bool menuFollowsPress(QPoint const& point)
    {
        return QTest::qWaitFor(
            [&]() {
                m_deepin->emitButtonPress(1, uint(point.x()), uint(point.y()));
                XWindow const menu = openMenuFromCorner();
                QRect const r = menu.geometry;
                if (menu.id != 0 && QPoint(r.x() + r.width() / 2, r.y() + r.height()) == point)
                    return true;
                m_scene->closeMenu();
                return false;
            },
            kMonitorTimeoutMs);
    }

    static void addSideRows(QList<QPair<int, QString>> const& sides)
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("thickness");
        QTest::addColumn<Gaps>("gaps");
        for (int thickness : {40, 56}) {
            for (auto const& side : sides) {
                Gaps gaps;
                if (side.second == QLatin1String("left"))
                    gaps = {thickness, kAny, kAny, 0};
                else if (side.second == QLatin1String("top"))
                    gaps = {kAny, thickness, 0, kAny};
                else if (side.second == QLatin1String("right"))
                    gaps = {kAny, kAny, thickness, 0};
                else
                    gaps = {kAny, kAny, 0, thickness};
                QTest::addRow("%d %s, %d px", side.first, qPrintable(side.second), thickness)
                    << side.first << thickness << gaps;
            }
        }
    }

private slots:
    void initTestCase()
    {
        QStringList const missing = TrayScene::missingPrograms(
            {QStringLiteral("dbus-daemon"), QStringLiteral("dbus-send"), kBusctl, QStringLiteral("gsettings"),
             QStringLiteral("glib-compile-schemas")});
        if (!missing.isEmpty())
            QSKIP(qPrintable(QStringLiteral("not installed: ") + missing.join(QLatin1Char(' '))));
        m_bus.reset(new PrivateSessionBus);
        QVERIFY2(!m_bus->address().isEmpty(), "dbus-daemon did not start");
        m_deepin.reset(new DeepinDesktopService(m_bus->address()));
        QVERIFY2(m_deepin->serve(), "the Deepin names could not be taken");
        m_ukui.reset(new UkuiPanelSettings);
        QVERIFY2(m_ukui->compile(), "the UKUI schema did not compile");
        m_scene.reset(new TrayScene);
        QVERIFY2(m_scene->isUp(), "Xvfb did not start");
        QVERIFY2(m_scene->desktop().startTray(QStringLiteral("bottom"), QStringLiteral("right")), "no tray");
    }

    void cleanup()
    {
        if (!QTest::currentTestFailed()) {
            QVERIFY(m_scene->closeMenu());
            return;
        }
        qWarning().noquote() << "client log:\n" << m_scene->host().log().right(4000);
        m_scene->host().kill();
        m_tree.clear();
    }

    void cleanupTestCase()
    {
        m_scene.reset();
        m_deepin.reset();
        m_bus.reset();
    }

    // Deepin dock Position: 0 top, 1 right, 2 bottom, 3 left; any other value
    // keeps the bottom.
    void deepinDockPlacesMenu_data()
    {
        addSideRows({{0, "top"}, {1, "right"}, {2, "bottom"}, {3, "left"}, {7, "bottom"}});
    }
    void deepinDockPlacesMenu()
    {
        QFETCH(int, value);
        QFETCH(int, thickness);
        QFETCH(Gaps, gaps);
        QVERIFY(clientOn(releaseTree("ans_uos_20")));
        m_deepin->setDock(value, uint(thickness));
        compareGaps(openMenuFromCorner(), gaps);
    }

    // UKUI panelposition: 0 bottom, 1 top, 2 left, 3 right.
    void ukuiPanelPlacesMenu_data()
    {
        addSideRows({{0, "bottom"}, {1, "top"}, {2, "left"}, {3, "right"}});
    }
    void ukuiPanelPlacesMenu()
    {
        QFETCH(int, value);
        QFETCH(int, thickness);
        QFETCH(Gaps, gaps);
        QVERIFY(clientOn(releaseTree("dt_kylin_desktop_v10sp1")));
        QVERIFY(m_ukui->set(uint(value), thickness));
        compareGaps(openMenuFromCorner(), gaps);
    }

    void unknownDistributionTakesDefaults()
    {
        QVERIFY(clientOn(releaseTree("pd_debian10")));
        compareGaps(openMenuFromCorner(), {kAny, kAny, 0, 40});
        QString const log = m_scene->host().log();
        QVERIFY(log.contains(QStringLiteral("不支持本系统查找状态栏位置，使用默认值 3\n")));
        QVERIFY(log.contains(QStringLiteral("不支持本系统查找状态栏高度，使用默认值 40\n")));
        QVERIFY(!log.contains(QStringLiteral("[TrayWidget] wayland start monitor")));
    }

    // Runs last: the press it reports stays the client's last position.
    void kwaylandPressPlacesMenuAndBusctlComesBack()
    {
        QVERIFY(clientOn(releaseTree("ans_uos_20")));
        QVERIFY(m_scene->host().log().contains(QStringLiteral("[TrayWidget] wayland start monitor")));
        QVERIFY(menuFollowsPress(QPoint(700, 500)));
        QVERIFY(m_scene->closeMenu());

        QList<qint64> const first = m_scene->host().children(kBusctl);
        QCOMPARE(first.size(), 1);
        int const finished = m_scene->host().logCount(kBusctlFinished);
        ::kill(pid_t(first.first()), SIGTERM);
        QTRY_COMPARE_WITH_TIMEOUT(m_scene->host().logCount(kBusctlFinished), finished + 1, kMonitorTimeoutMs);
        QTRY_VERIFY_WITH_TIMEOUT(m_scene->host().children(kBusctl).size() == 1 &&
                                     m_scene->host().children(kBusctl) != first,
                                 kMonitorTimeoutMs);
        QVERIFY(menuFollowsPress(QPoint(900, 600)));
    }
};

QTEST_GUILESS_MAIN(TstE2eTrayWayland)
#include "tst_e2e_trayWayland.moc"
