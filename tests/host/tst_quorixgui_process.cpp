// bin/quorix-gui as a real process, headless: start, plugins loaded, signals,
// the exit command, broken plugin files, and the base plugin's teardown lines.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

int const kStartTimeoutMs = 30000;
int const kExitTimeoutMs = 10000;

QString buildRoot()
{
    return qEnvironmentVariable("QUORIX_ROOT");
}

QString readLog(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool hasLineEndingWith(QString const& log, QString const& tail)
{
    for (QString const& line : log.split(QLatin1Char('\n'))) {
        if (line.endsWith(tail))
            return true;
    }
    return false;
}

} // namespace

class TstQuorixGuiProcess : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void signalQuitsCleanly_data();
    void signalQuitsCleanly();
    void basePluginTearsDownOnSigterm();
    void brokenPluginFileIsSkipped();
    void mainExitCommandQuits();
    void silentStartReachesTheBasePlugin();
    void quitAfterShowEndsByItself();

private:
    // Starts the host with a log of its own; `root` "" = the build tree.
    void startHost(QStringList const& arguments, QString const& root = QString());
    bool logHas(QString const& text) const { return readLog(m_logPath).contains(text); }
    void waitForPluginsLoaded();
    void expectCleanExit();
    // A root whose plugin folder links to the built plugins, plus `extra` modules and files.
    QString makeRoot(QStringList const& extraModules, QMap<QString, QByteArray> const& extraFiles);

    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<QProcess> m_process;
    QString m_logPath;
};

void TstQuorixGuiProcess::initTestCase()
{
    QVERIFY2(QFileInfo(buildRoot() + QStringLiteral("/bin/quorix-gui")).isExecutable(),
             "bin/quorix-gui is not built");
}

void TstQuorixGuiProcess::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    m_logPath = m_dir->filePath(QStringLiteral("quorix-gui.log"));
}

void TstQuorixGuiProcess::cleanup()
{
    if (m_process && m_process->state() != QProcess::NotRunning) {
        m_process->kill();
        m_process->waitForFinished(kExitTimeoutMs);
    }
    if (QTest::currentTestFailed())
        qWarning().noquote() << "host log:\n" << readLog(m_logPath).right(4000);
    m_process.reset();
    m_dir.reset();
}

void TstQuorixGuiProcess::startHost(QStringList const& arguments, QString const& root)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_logPath);
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
    env.insert(QStringLiteral("QUORIX_LOG_STDERR"), QStringLiteral("0"));
    env.insert(QStringLiteral("QUORIX_CONFIG_DIR"), m_dir->filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("QUORIX_ROOT"), root.isEmpty() ? buildRoot() : root);
    env.remove(QStringLiteral("QUORIX_EXIT_PASSWORD"));
    m_process.reset(new QProcess);
    m_process->setProcessEnvironment(env);
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(buildRoot() + QStringLiteral("/bin/quorix-gui"), arguments);
    QVERIFY(m_process->waitForStarted(kExitTimeoutMs));
}

void TstQuorixGuiProcess::waitForPluginsLoaded()
{
    QTRY_VERIFY_WITH_TIMEOUT(logHas(QStringLiteral("plugins loaded from")), kStartTimeoutMs);
}

void TstQuorixGuiProcess::expectCleanExit()
{
    QVERIFY(m_process->waitForFinished(kExitTimeoutMs));
    QCOMPARE(m_process->exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process->exitCode(), 0);
    QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quorix-gui stopped")));
}

QString TstQuorixGuiProcess::makeRoot(QStringList const& extraModules, QMap<QString, QByteArray> const& extraFiles)
{
    QString const root = m_dir->filePath(QStringLiteral("root"));
    QString const plugins = root + QStringLiteral("/lib/plugins-gui");
    QDir().mkpath(plugins);
    QDir const built(buildRoot() + QStringLiteral("/lib/plugins-gui"));
    for (QString const& name : built.entryList(QDir::Files))
        QFile::link(built.filePath(name), plugins + QLatin1Char('/') + name);
    for (QString const& module : extraModules)
        QFile::copy(QStringLiteral(TST_HOST_PLUGIN_DIR "/") + module, plugins + QLatin1Char('/') + module);
    for (auto it = extraFiles.cbegin(); it != extraFiles.cend(); ++it) {
        QFile file(plugins + QLatin1Char('/') + it.key());
        if (file.open(QIODevice::WriteOnly))
            file.write(it.value());
    }
    return root;
}

void TstQuorixGuiProcess::signalQuitsCleanly_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("SIGTERM") << int(SIGTERM);
    QTest::newRow("SIGINT") << int(SIGINT);
}

void TstQuorixGuiProcess::signalQuitsCleanly()
{
    QFETCH(int, signalNumber);
    startHost({});
    waitForPluginsLoaded();
    QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quorix-gui starting, root [")));
    QCOMPARE(::kill(static_cast<pid_t>(m_process->processId()), signalNumber), 0);
    expectCleanExit();
}

void TstQuorixGuiProcess::basePluginTearsDownOnSigterm()
{
    startHost({});
    waitForPluginsLoaded();
    m_process->terminate();
    expectCleanExit();
    if (!QFile::exists(buildRoot() + QStringLiteral("/lib/plugins-gui/libui_base_plugin.so")))
        QSKIP("the base plugin module is not built");
    QString const log = readLog(m_logPath);
    QVERIFY2(hasLineEndingWith(log, QStringLiteral("[BasePluginPrivate] delete BasePluginPrivate obj")),
             "no teardown line of BasePluginPrivate");
    QVERIFY2(hasLineEndingWith(log, QStringLiteral("[BasePlugin] delete BasePlugin obj")),
             "no teardown line of BasePlugin");
}

void TstQuorixGuiProcess::brokenPluginFileIsSkipped()
{
    QMap<QString, QByteArray> files;
    files.insert(QStringLiteral("libzz_garbage.so"), QByteArray(8192, '\x42'));
    files.insert(QStringLiteral("libaa_truncated.so"), QByteArray("\x7f" "ELF\x02\x01\x01"));
    startHost({}, makeRoot({}, files));
    waitForPluginsLoaded();
    QVERIFY(logHas(QStringLiteral("libzz_garbage.so], skipped")));
    QVERIFY(logHas(QStringLiteral("libaa_truncated.so], skipped")));
    if (QFile::exists(buildRoot() + QStringLiteral("/lib/plugins-gui/libui_bridge_plugin.so")))
        QVERIFY(logHas(QStringLiteral("plugin [EPLUGIN_ID_BRIDGE_BASE] installed")));
    QCOMPARE(m_process->state(), QProcess::Running);
    m_process->terminate();
    expectCleanExit();
}

void TstQuorixGuiProcess::mainExitCommandQuits()
{
    startHost({}, makeRoot({QStringLiteral("libtst_host_exit_plugin.so")}, {}));
    expectCleanExit();
    QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quitting: main exit command")));
}

void TstQuorixGuiProcess::silentStartReachesTheBasePlugin()
{
    startHost({QStringLiteral("--silent")});
    QTRY_VERIFY_WITH_TIMEOUT(
        logHas(QStringLiteral("[CQPluginManager] cmd [EPLUGIN_ID_BASE_CMD_SILENT_STARTUP] to [EPLUGIN_ID_BASE]")),
        kStartTimeoutMs);
    m_process->terminate();
    expectCleanExit();
}

void TstQuorixGuiProcess::quitAfterShowEndsByItself()
{
    startHost({QStringLiteral("--quit-after-show")});
    expectCleanExit();
    QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quitting: main window painted")));
}

QTEST_GUILESS_MAIN(TstQuorixGuiProcess)
#include "tst_quorixgui_process.moc"
