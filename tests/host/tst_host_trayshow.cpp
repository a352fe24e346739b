// The way back from the tray: a left click on the tray icon brings the
// host's main window back however it was put away. The click goes the whole
// real path: tray icon -> bridge sig_centerShow -> base plugin broadcast ->
// plugin manager -> host.

#include "basePlugin.h"
#include "cqbaseplugin.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "quorixGuiHost.h"
#include "trayWidget.h"

#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QtTest>

class TestHostTrayShow : public QObject
{
    Q_OBJECT

private slots:
    void leftClickShowsMainWindow_data()
    {
        QTest::addColumn<QString>("awayBy");
        QTest::newRow("hidden (minimise to tray, silent start)") << "hide";
        QTest::newRow("minimised") << "minimise";
    }
    void leftClickShowsMainWindow()
    {
        QFETCH(QString, awayBy);
        QTemporaryDir emptyRoot;   // no plugin files: the test adds the real ones in-process
        QuorixGuiHost::Options options;
        options.root = emptyRoot.path();
        options.silent = true;
        QuorixGuiHost host(options);
        host.start();
        CQPluginManager* manager = CQPluginManager::singleInstance();
        QVERIFY(manager->addPlugin(new BasePlugin(), QStringLiteral("EPLUGIN_ID_BASE")));
        QVERIFY(manager->addPlugin(new CQBasePlugin(), QStringLiteral("EPLUGIN_ID_BRIDGE_BASE")));
        CQMainWindow* main = host.mainWindow();
        if (awayBy == QLatin1String("minimise")) {
            main->show();
            main->showMinimized();
            QTRY_VERIFY(main->isMinimized());
        }
        QVERIFY(!main->isVisible() || main->isMinimized());

        auto* icon = TrayWidget::singleInstance()->findChild<QSystemTrayIcon*>();
        QVERIFY(icon);
        emit icon->activated(QSystemTrayIcon::Trigger);
        QTRY_VERIFY(main->isVisible() && !main->isMinimized());
        host.stop();
    }
};

QTEST_MAIN(TestHostTrayShow)
#include "tst_host_trayshow.moc"
