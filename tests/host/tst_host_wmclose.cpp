// The window manager's close (Alt+F4, a taskbar's close) on the host's main
// window takes the title bar's way into the base plugin's quit flow, with the
// stored close action; a close the client makes itself does not. QWindow's
// close() is the window system's request, as a window manager sends it.

#include "basePlugin.h"
#include "bridgerecords.h"
#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "mainExitAskWin.h"
#include "promotwin.h"
#include "quorixGuiHost.h"
#include "quorixbackendregistry.h"
#include "simulatedbackend.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

namespace {

template <typename T>
int openCount()
{
    int count = 0;
    for (QWidget* w : QApplication::topLevelWidgets())
        count += qobject_cast<T*>(w) && w->isVisible() ? 1 : 0;
    return count;
}

} // namespace

class TestHostWindowManagerClose : public QObject
{
    Q_OBJECT

private slots:
    void closeTakesTheQuitFlow_data()
    {
        QTest::addColumn<int>("closeAction");
        QTest::addColumn<bool>("byWindowManager");
        QTest::addColumn<bool>("visibleAfter");
        QTest::addColumn<int>("askWindows");
        QTest::addColumn<int>("prompts");
        QTest::newRow("minimise to tray: hidden") << 1 << true << false << 0 << 0;
        QTest::newRow("ask: the question, window stays") << 2 << true << true << 1 << 0;
        QTest::newRow("quit: the confirmation, window stays") << 0 << true << true << 0 << 1;
        QTest::newRow("the client's own close() is not a question") << 2 << false << false << 0 << 0;
    }

    void closeTakesTheQuitFlow()
    {
        QFETCH(int, closeAction);
        QFETCH(bool, byWindowManager);
        QFETCH(bool, visibleAfter);
        QFETCH(int, askWindows);
        QFETCH(int, prompts);
        QTemporaryDir dir;
        auto backend = std::make_shared<SimulatedBackend>(dir.filePath(QStringLiteral("config")));
        _SETTING_COMMON_ common;
        common.closeAction = closeAction;
        QVERIFY(backend->writeSetting(QVariant::fromValue(common)));
        QuorixBackendRegistry::setBackend(backend);

        QuorixGuiHost::Options options;
        options.root = dir.path();   // no plugin files: the real base plugin is added in-process
        QuorixGuiHost host(options);
        host.start();
        auto* base = new BasePlugin();
        QVERIFY(CQPluginManager::singleInstance()->addPlugin(base, QStringLiteral("EPLUGIN_ID_BASE")));
        QVERIFY(CQPluginManager::singleInstance()->addPlugin(new CQBasePlugin(), QStringLiteral("EPLUGIN_ID_BRIDGE_BASE")));
        QSignalSpy modeRead(base, &BasePlugin::sig_updateQuitMode);
        CQMainWindow* main = host.mainWindow();
        QVERIFY(QTest::qWaitForWindowExposed(main));

        QCOMPARE(byWindowManager ? main->windowHandle()->close() : main->close(), !byWindowManager);
        // The quit flow reads the close action off the GUI thread and acts on a queued answer.
        QTRY_COMPARE(modeRead.count(), byWindowManager ? 1 : 0);
        QCoreApplication::processEvents();
        QCOMPARE(main->isVisible(), visibleAfter);
        QCOMPARE(openCount<MainExitAskWin>(), askWindows);
        QCOMPARE(openCount<PromotWin>(), prompts);
        host.stop();
        QuorixBackendRegistry::setBackend(nullptr);
    }

    void withoutBasePluginTheCloseQuits()
    {
        QTemporaryDir emptyRoot;
        QuorixGuiHost::Options options;
        options.root = emptyRoot.path();
        QuorixGuiHost host(options);
        QSignalSpy quit(&host, &QuorixGuiHost::sig_quitRequested);
        host.start();
        QVERIFY(QTest::qWaitForWindowExposed(host.mainWindow()));
        QVERIFY(!host.mainWindow()->windowHandle()->close());
        QVERIFY(quit.wait());
        host.stop();
    }
};

QTEST_MAIN(TestHostWindowManagerClose)
#include "tst_host_wmclose.moc"
