// bin/quorix-gui as a real process, headless: broken plugin files, SIGTERM and
// the base plugin's teardown, the exit command, --silent, --quit-after-show,
// every plugin in before the first paint, extra plugin folders.

#include "hostProcess.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

bool isBuilt(QString const& module)
{
    return QFile::exists(HostProcess::buildRoot() + QStringLiteral("/lib/plugins-gui/") + module);
}

} // namespace

class TstQuorixGuiProcess : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<HostProcess> m_host;

    bool logHas(QString const& text) const { return m_host->logCount(text) > 0; }
    int logIndex(QString const& text) const { return m_host->log().indexOf(text); }
    // The whole record holding `text`, "" if none.
    QString recordWith(QString const& text) const
    {
        QString const log = m_host->log();
        int const at = log.indexOf(text);
        if (at < 0)
            return QString();
        int const begin = log.lastIndexOf(QLatin1Char('\n'), at) + 1;
        return log.mid(begin, log.indexOf(QLatin1Char('\n'), at) - begin);
    }

    // Starts the host with a log of its own; `root` "" = the build tree.
    void startHost(QStringList const& arguments, QString const& root = QString())
    {
        m_host.reset(new HostProcess(m_dir->path()));
        QVERIFY(m_host->start(arguments, root));
    }

    void waitForLog(QString const& text) { QTRY_VERIFY_WITH_TIMEOUT(logHas(text), HostProcess::kStartTimeoutMs); }

    void expectCleanExit()
    {
        QCOMPARE(m_host->waitForExit(), 0);
        QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quorix-gui stopped")));
    }

    // A root whose plugin folder links to the built plugins, plus a test module and files.
    QString makeRoot(QString const& extraModule, QMap<QString, QByteArray> const& extraFiles = {})
    {
        QString const root = m_dir->filePath(QStringLiteral("root"));
        QString const plugins = root + QStringLiteral("/lib/plugins-gui/");
        QDir().mkpath(plugins);
        QDir const built(HostProcess::buildRoot() + QStringLiteral("/lib/plugins-gui"));
        for (QString const& name : built.entryList(QDir::Files))
            QFile::link(built.filePath(name), plugins + name);
        if (!extraModule.isEmpty())
            QFile::copy(QStringLiteral(TST_HOST_PLUGIN_DIR "/") + extraModule, plugins + extraModule);
        for (auto it = extraFiles.cbegin(); it != extraFiles.cend(); ++it) {
            QFile file(plugins + it.key());
            if (file.open(QIODevice::WriteOnly))
                file.write(it.value());
        }
        return root;
    }

private slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
    }

    void cleanup()
    {
        if (QTest::currentTestFailed() && m_host)
            qWarning().noquote() << "host log:\n" << m_host->log().right(4000);
        m_host.reset();
        m_dir.reset();
    }

    // Broken files beside the real plugins are skipped and the host runs on; on
    // SIGTERM the base plugin tears down and the host exits 0.
    void brokenFilesSkippedThenSigtermTearsDown()
    {
        QMap<QString, QByteArray> files;
        files.insert(QStringLiteral("libzz_garbage.so"), QByteArray(8192, '\x42'));
        files.insert(QStringLiteral("libaa_truncated.so"), QByteArray("\x7f" "ELF\x02\x01\x01"));
        startHost({}, makeRoot(QString(), files));
        waitForLog(QStringLiteral("plugins loaded from"));
        QVERIFY(logHas(QStringLiteral("libzz_garbage.so], skipped")));
        QVERIFY(logHas(QStringLiteral("libaa_truncated.so], skipped")));
        QCOMPARE(m_host->process.state(), QProcess::Running);
        m_host->process.terminate();
        expectCleanExit();
        if (!isBuilt(QStringLiteral("libui_base_plugin.so")))
            QSKIP("the base plugin module is not built");
        // Whole lines: the message ends the record.
        QVERIFY(logHas(QStringLiteral("[BasePluginPrivate] delete BasePluginPrivate obj\n")));
        QVERIFY(logHas(QStringLiteral("[BasePlugin] delete BasePlugin obj\n")));
    }

    void startOptionsAndExitCommand_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("extraModule");
        QTest::addColumn<QString>("logLine");
        QTest::addColumn<bool>("quitsByItself");
        QTest::newRow("main exit command from a plugin") << QStringList{} << "libtst_host_exit_plugin.so"
                                                         << "[QuorixGuiHost] quitting: main exit command" << true;
        QTest::newRow("--silent reaches the base plugin")
            << QStringList{"--silent"} << ""
            << "[CQPluginManager] cmd [EPLUGIN_ID_BASE_CMD_SILENT_STARTUP] to [EPLUGIN_ID_BASE]" << false;
        QTest::newRow("--quit-after-show") << QStringList{"--quit-after-show"} << ""
                                           << "[QuorixGuiHost] quitting: main window painted" << true;
    }

    void startOptionsAndExitCommand()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, extraModule);
        QFETCH(QString, logLine);
        QFETCH(bool, quitsByItself);
        startHost(arguments, extraModule.isEmpty() ? QString() : makeRoot(extraModule));
        if (!quitsByItself) {
            waitForLog(logLine);
            m_host->process.terminate();
        }
        expectCleanExit();
        QVERIFY(logHas(logLine));
    }

    // The first paint shows what every plugin adds, the bridge's data too:
    // nothing is left for later that would change the window right after.
    void everyPluginInBeforeFirstPaint()
    {
        if (!isBuilt(QStringLiteral("libui_base_plugin.so")) || !isBuilt(QStringLiteral("libui_bridge_plugin.so")))
            QSKIP("the base and bridge plugin modules are not built");
        startHost({QStringLiteral("--quit-after-show")});
        expectCleanExit();
        int const bridge = logIndex(QStringLiteral("plugin [EPLUGIN_ID_BRIDGE_BASE] installed"));
        int const loaded = logIndex(QStringLiteral("plugins loaded from"));
        int const painted = logIndex(QStringLiteral("[QuorixGuiHost] main window painted"));
        QVERIFY(bridge >= 0 && loaded >= 0 && painted >= 0);
        QVERIFY(bridge < loaded);
        QVERIFY(loaded < painted);
    }

    void extraPluginFolders_data()
    {
        QTest::addColumn<QStringList>("arguments");   // "@" = the scratch folder
        QTest::addColumn<QString>("variable");        // QUORIX_PLUGIN_DIRS
        QTest::addColumn<bool>("missingFolder");      // one of them does not exist
        QTest::newRow("--plugin-dir") << QStringList{"--plugin-dir", "@/extra"} << "" << false;
        QTest::newRow("QUORIX_PLUGIN_DIRS, a missing folder first") << QStringList{} << ":@/missing:@/extra" << true;
        QTest::newRow("missing --plugin-dir, then the variable's folder")
            << QStringList{"--plugin-dir", "@/missing"} << "@/extra" << true;
    }

    // A plugin in an extra folder is loaded through the same bus: its exit
    // command ends the host. A missing folder is a warning, and skipped.
    void extraPluginFolders()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, variable);
        QFETCH(bool, missingFolder);
        QString const scratch = m_dir->path();
        QVERIFY(QDir(scratch).mkpath(QStringLiteral("extra")));
        QVERIFY(QFile::copy(QStringLiteral(TST_HOST_PLUGIN_DIR "/libtst_host_exit_plugin.so"),
                            scratch + QStringLiteral("/extra/libtst_host_exit_plugin.so")));
        for (QString& argument : arguments)
            argument.replace(QLatin1Char('@'), scratch);
        m_host.reset(new HostProcess(scratch));
        m_host->env.insert(QStringLiteral("QUORIX_PLUGIN_DIRS"), variable.replace(QLatin1Char('@'), scratch));
        QVERIFY(m_host->start(arguments));
        expectCleanExit();
        QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quitting: main exit command")));
        QString const loaded = recordWith(QStringLiteral("extra plugin folder [%1/extra]: 1 plugins loaded").arg(scratch));
        QVERIFY2(loaded.contains(QStringLiteral(" INFO ")), qPrintable(loaded));
        QString const missing =
            recordWith(QStringLiteral("extra plugin folder [%1/missing] does not exist, skipped").arg(scratch));
        QCOMPARE(missing.contains(QStringLiteral(" WARN ")), missingFolder);
    }
};

QTEST_GUILESS_MAIN(TstQuorixGuiProcess)
#include "tst_quorixgui_process.moc"
