// QuorixGuiHost in process: options, root, start-up with real plugin modules,
// the commands the host reacts to, and teardown.

#include "cqmainwindow.h"
#include "cqpluginmanager.h"
#include "quorixGuiHost.h"
#include "testJournal.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString const kBase = QStringLiteral("EPLUGIN_ID_BASE");
QString const kAlpha = QStringLiteral("EPLUGIN_ID_TEST_ALPHA");

} // namespace

class TstQuorixGuiHost : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void parseArguments_data();
    void parseArguments();
    void resolveRoot_data();
    void resolveRoot();
    void startShowsWindowAndHandsItToPlugins();
    void silentStartTellsTheBasePlugin();
    void mainExitCommandRequestsQuit();
    void firstPaintRequestsQuitWhenAsked();
    void stopUnloadsEverything();
    void missingPluginFolderStillStarts();

private:
    // <tmp>/lib/plugins-gui with copies of the given test modules.
    QuorixGuiHost::Options rootWith(QStringList const& stems);

    QScopedPointer<QTemporaryDir> m_root;
};

void TstQuorixGuiHost::init()
{
    TestJournal::clear();
    m_root.reset(new QTemporaryDir);
    QVERIFY(m_root->isValid());
}

void TstQuorixGuiHost::cleanup()
{
    CQPluginManager::UninitInstance(true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_root.reset();
}

QuorixGuiHost::Options TstQuorixGuiHost::rootWith(QStringList const& stems)
{
    QString const dir = m_root->filePath(QStringLiteral("lib/plugins-gui"));
    QDir().mkpath(dir);
    for (QString const& stem : stems)
        QFile::copy(QStringLiteral(TST_PLUGIN_DIR "/lib%1.so").arg(stem), dir + QStringLiteral("/lib%1.so").arg(stem));
    QuorixGuiHost::Options options;
    options.root = m_root->path();
    return options;
}

void TstQuorixGuiHost::parseArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("root");
    QTest::addColumn<bool>("silent");
    QTest::addColumn<bool>("quitAfterShow");
    QTest::newRow("nothing") << QStringList{"quorix-gui"} << "" << false << false;
    QTest::newRow("silent") << QStringList{"quorix-gui", "--silent"} << "" << true << false;
    QTest::newRow("root, separate") << QStringList{"quorix-gui", "--root", "/opt/q"} << "/opt/q" << false << false;
    QTest::newRow("root, joined") << QStringList{"quorix-gui", "--root=/opt/q"} << "/opt/q" << false << false;
    QTest::newRow("root without value") << QStringList{"quorix-gui", "--root"} << "" << false << false;
    QTest::newRow("all, unknown ignored")
        << QStringList{"quorix-gui", "--bogus", "--quit-after-show", "-x", "--silent", "--root", "r"} << "r" << true
        << true;
    QTest::newRow("no program name") << QStringList{} << "" << false << false;
}

void TstQuorixGuiHost::parseArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, root);
    QFETCH(bool, silent);
    QFETCH(bool, quitAfterShow);
    QuorixGuiHost::Options const options = QuorixGuiHost::parseArguments(arguments);
    QCOMPARE(options.root, root);
    QCOMPARE(options.silent, silent);
    QCOMPARE(options.quitAfterShow, quitAfterShow);
}

void TstQuorixGuiHost::resolveRoot_data()
{
    QTest::addColumn<QString>("requested");
    QTest::addColumn<QString>("environment");
    QTest::addColumn<QString>("appDir");
    QTest::addColumn<QString>("root");
    QTest::newRow("folder above bin") << "" << "" << "/opt/quorix/bin" << "/opt/quorix";
    QTest::newRow("environment wins over the binary") << "" << "/srv/q" << "/opt/quorix/bin" << "/srv/q";
    QTest::newRow("option wins over all") << "/x/y" << "/srv/q" << "/opt/quorix/bin" << "/x/y";
    QTest::newRow("untidy path") << "/x//y/./z/.." << "" << "/opt/quorix/bin" << "/x/y";
}

void TstQuorixGuiHost::resolveRoot()
{
    QFETCH(QString, requested);
    QFETCH(QString, environment);
    QFETCH(QString, appDir);
    QFETCH(QString, root);
    QByteArray const saved = qgetenv("QUORIX_ROOT");
    environment.isEmpty() ? qunsetenv("QUORIX_ROOT") : qputenv("QUORIX_ROOT", environment.toUtf8());
    QString const resolved = QuorixGuiHost::resolveRoot(requested, appDir);
    saved.isNull() ? qunsetenv("QUORIX_ROOT") : qputenv("QUORIX_ROOT", saved);
    QCOMPARE(resolved, root);
}

void TstQuorixGuiHost::startShowsWindowAndHandsItToPlugins()
{
    QuorixGuiHost host(rootWith({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_c_base")}));
    QCOMPARE(host.start(), 2);
    CQMainWindow* window = host.mainWindow();
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QCOMPARE(window->size(), QSize(1000, 580));
    QVERIFY(window->windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(window->windowTitle(), QStringLiteral("Quorix终端安全管理系统"));
    QCOMPARE(CQPluginManager::singleInstance()->pluginIds(), (QStringList{kBase, kAlpha}));
    QCOMPARE(TestJournal::count(kBase + QStringLiteral(" init host=m_pMainWindow")), 1);
    QCOMPARE(TestJournal::count(kAlpha + QStringLiteral(" init host=m_pMainWindow")), 1);
    QCOMPARE(TestJournal::count(kBase + QStringLiteral(" PLUGINMANAGE_CMDTYPE_INSTALL ") + kAlpha), 1);
}

void TstQuorixGuiHost::silentStartTellsTheBasePlugin()
{
    QuorixGuiHost::Options options = rootWith({QStringLiteral("tst_c_base")});
    options.silent = true;
    QuorixGuiHost host(options);
    host.start();
    QVERIFY(!host.mainWindow()->isVisible());
    QCOMPARE(TestJournal::count(kBase + QStringLiteral(" EPLUGIN_ID_BASE_CMD_SILENT_STARTUP")), 0);
    QTRY_COMPARE(TestJournal::count(kBase + QStringLiteral(" EPLUGIN_ID_BASE_CMD_SILENT_STARTUP")), 1);
    QVERIFY(!host.mainWindow()->isVisible());
}

void TstQuorixGuiHost::mainExitCommandRequestsQuit()
{
    QuorixGuiHost host(rootWith({QStringLiteral("tst_a_alpha")}));
    host.start();
    QSignalSpy quit(&host, &QuorixGuiHost::sig_quitRequested);
    // The alpha plugin broadcasts the command, as the base plugin's quit flow does.
    CQPluginManager::singleInstance()->sendCmd(
        kAlpha, QStringLiteral("TST_CMD_BROADCAST"),
        QStringList{QStringLiteral("EPLUGIN_ID_BASE_CMD_MAINEXIT"), QString()});
    QCOMPARE(quit.count(), 0);   // never from inside the plugin's call
    QVERIFY(quit.wait(5000));
    QCOMPARE(quit.count(), 1);
    // Other commands are not the host's business.
    CQPluginManager::singleInstance()->broadcast(QStringLiteral("EPLUGIN_ID_BASE_CMD_TMP_QUIT"), QVariant());
    QTest::qWait(0);
    QCOMPARE(quit.count(), 1);
}

void TstQuorixGuiHost::firstPaintRequestsQuitWhenAsked()
{
    QuorixGuiHost::Options options = rootWith({});
    options.quitAfterShow = true;
    QuorixGuiHost host(options);
    QSignalSpy quit(&host, &QuorixGuiHost::sig_quitRequested);
    QCOMPARE(host.start(), 0);
    QVERIFY(quit.wait(10000));
}

void TstQuorixGuiHost::stopUnloadsEverything()
{
    {
        QuorixGuiHost host(rootWith({QStringLiteral("tst_a_alpha"), QStringLiteral("tst_c_base")}));
        host.start();
        QPointer<CQMainWindow> window = host.mainWindow();
        host.stop();
        QVERIFY(!window);
        QVERIFY(CQPluginManager::singleInstance()->pluginIds().isEmpty());
        host.stop();   // twice is harmless
    }
    QStringList const lines = TestJournal::lines();
    QVERIFY(lines.indexOf(kAlpha + QStringLiteral(" unInit")) < lines.indexOf(kBase + QStringLiteral(" unInit")));
    QCOMPARE(TestJournal::count(kBase + QStringLiteral(" deleted")), 1);
    QCOMPARE(TestJournal::count(kAlpha + QStringLiteral(" deleted")), 1);
}

void TstQuorixGuiHost::missingPluginFolderStillStarts()
{
    QuorixGuiHost::Options options;
    options.root = m_root->filePath(QStringLiteral("nowhere"));
    QuorixGuiHost host(options);
    QCOMPARE(host.start(), 0);
    QVERIFY(host.mainWindow()->isVisible());
    QCOMPARE(host.pluginDir(), options.root + QStringLiteral("/lib/plugins-gui"));
}

QTEST_MAIN(TstQuorixGuiHost)
#include "tst_quorixguihost.moc"
