// The client's tray icon in a real system tray (trayer on Xvfb), driven with
// real pointer clicks: it docks; a right click opens the menu beside the
// pointer; a left click brings the main window back; the menu's quit row
// leads through the confirmation to the client's end.

#include "privateSessionBus.h"
#include "trayScene.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QtTest>

namespace {

int const kExitTimeoutMs = 15000;
int const kRightButton = 3;
int const kLeftButton = 1;

// Where the quit row (the menu's last) and the confirmation's OK button sit,
// from a bottom corner of their windows.
QPoint const kQuitRowFromBottomLeft(60, -36);
QPoint const kOkFromBottomRight(-68, -40);

// With QUORIX_SCREENSHOT_DIR set, the first row also leaves tray-docked.png
// there: the open menu above its icon in the tray, on a plain desktop.
QString const kScreenshotDir = qEnvironmentVariable("QUORIX_SCREENSHOT_DIR");
QSize const kScreenshotSize(600, 360);

} // namespace

class TstE2eTrayX11 : public QObject
{
    Q_OBJECT

    QScopedPointer<TrayScene> m_scene;

    // The client in a fresh tray along `edge`; true once its icon docked.
    bool startInTray(QString const& edge, QString const& align)
    {
        m_scene.reset(new TrayScene);
        if (!m_scene->isUp() || !m_scene->desktop().startTray(edge, align))
            return false;
        QProcessEnvironment env = m_scene->environment(PrivateSessionBus::deadAddress());
        env.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("x11"));
        return m_scene->startClient(env);
    }

    void saveScreenshot()
    {
        QString const background = QDir(kScreenshotDir).filePath(QStringLiteral(".tray-background.png"));
        QSize const screen = m_scene->desktop().screenSize();
        QImage image(screen, QImage::Format_RGB32);
        QPainter painter(&image);
        QLinearGradient gradient(0, 0, 0, screen.height());
        gradient.setColorAt(0, QColor(0x4b, 0x6c, 0xb7));
        gradient.setColorAt(1, QColor(0x18, 0x28, 0x48));
        painter.fillRect(image.rect(), gradient);
        painter.end();
        QVERIFY(image.save(background));
        m_scene->desktop().setBackground(background);
        QFile::remove(background);
        QRect const area(QPoint(screen.width() - kScreenshotSize.width(), screen.height() - kScreenshotSize.height()),
                         kScreenshotSize);
        QVERIFY(m_scene->desktop().screenshot(QDir(kScreenshotDir).filePath(QStringLiteral("tray-docked.png")), area));
    }

    XWindow openMenuByRightClick()
    {
        m_scene->desktop().moveTo(m_scene->iconCentre());
        m_scene->desktop().click(kRightButton);
        XWindow menu;
        m_scene->waitMenu(menu);
        return menu;
    }

private slots:
    void initTestCase()
    {
        QStringList const missing = TrayScene::missingPrograms();
        if (!missing.isEmpty())
            QSKIP(qPrintable(QStringLiteral("not installed: ") + missing.join(QLatin1Char(' '))));
    }

    void cleanup()
    {
        if (QTest::currentTestFailed() && m_scene)
            qWarning().noquote() << "client log:\n" << m_scene->host().log().right(4000);
        m_scene.reset();
    }

    // The X11 rule, wherever the tray puts the icon: the menu is centred on
    // the pointer unless that runs off the screen, and opens above it unless
    // that runs off the top. Edges name which menu edge meets the pointer.
    void rightClickOpensMenuAtPointer_data()
    {
        QTest::addColumn<QString>("edge");
        QTest::addColumn<QString>("align");
        QTest::addColumn<QString>("menuSide");   // left, centre, right
        QTest::addColumn<QString>("menuEnd");    // top, bottom
        QTest::newRow("bottom panel, right end") << "bottom" << "right" << "right" << "bottom";
        QTest::newRow("bottom panel, middle") << "bottom" << "center" << "centre" << "bottom";
        QTest::newRow("top panel, right end") << "top" << "right" << "right" << "top";
        QTest::newRow("top panel, left end") << "top" << "left" << "left" << "top";
        QTest::newRow("left panel, bottom end") << "left" << "right" << "left" << "bottom";
    }
    void rightClickOpensMenuAtPointer()
    {
        QFETCH(QString, edge);
        QFETCH(QString, align);
        QFETCH(QString, menuSide);
        QFETCH(QString, menuEnd);
        QVERIFY2(startInTray(edge, align), "the client's icon never docked");
        XWindow const menu = openMenuByRightClick();
        QVERIFY2(menu.id != 0, "no menu after a right click");
        QPoint const pointer = m_scene->iconCentre();
        QRect const r = menu.geometry;
        int const x = menuSide == QLatin1String("left")     ? r.left()
                      : menuSide == QLatin1String("centre") ? r.x() + r.width() / 2
                                                            : r.x() + r.width();
        int const y = menuEnd == QLatin1String("top") ? r.top() : r.y() + r.height();
        QCOMPARE(QPoint(x, y), pointer);
        if (!kScreenshotDir.isEmpty() && QTest::currentDataTag() == QLatin1String("bottom panel, right end"))
            saveScreenshot();
        QVERIFY(m_scene->closeMenu());
        QCOMPARE(m_scene->host().logCount(QStringLiteral("[EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_CLOSE]")), 1);
    }

    void leftClickBringsMainWindowBack()
    {
        QVERIFY(startInTray(QStringLiteral("bottom"), QStringLiteral("right")));
        QVERIFY(m_scene->otherWindows().isEmpty());
        m_scene->desktop().moveTo(m_scene->iconCentre());
        m_scene->desktop().click(kLeftButton);
        QTRY_COMPARE(m_scene->otherWindows().size(), 1);
        QCOMPARE(m_scene->otherWindows().first().geometry.size(), QSize(1000, 580));
        QCOMPARE(m_scene->host().logCount(QStringLiteral("[QuorixGuiHost] main window shown on request")), 1);
        QVERIFY(m_scene->menu().id == 0);
    }

    void quitRowEndsTheClient()
    {
        QVERIFY(startInTray(QStringLiteral("top"), QStringLiteral("right")));
        XWindow const menu = openMenuByRightClick();
        QVERIFY(menu.id != 0);
        m_scene->desktop().moveTo(menu.geometry.bottomLeft() + kQuitRowFromBottomLeft);
        m_scene->desktop().click(kLeftButton);
        // The confirmation stands alone: the menu closed with the click.
        QTRY_COMPARE(m_scene->otherWindows().size(), 1);
        QVERIFY(m_scene->menu().id == 0);
        XWindow const confirm = m_scene->otherWindows().first();
        m_scene->desktop().moveTo(confirm.geometry.bottomRight() + kOkFromBottomRight);
        m_scene->desktop().click(kLeftButton);
        QProcess& client = m_scene->host().process();
        QVERIFY(client.state() == QProcess::NotRunning || client.waitForFinished(kExitTimeoutMs));
        QCOMPARE(client.exitStatus(), QProcess::NormalExit);
        QCOMPARE(client.exitCode(), 0);
        QCOMPARE(m_scene->host().logCount(QStringLiteral("[QuorixGuiHost] quitting: main exit command")), 1);
    }
};

QTEST_GUILESS_MAIN(TstE2eTrayX11)
#include "tst_e2e_trayX11.moc"
