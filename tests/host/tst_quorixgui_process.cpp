// bin/quorix-gui as a real process, headless: broken plugin files, SIGTERM and
// the base plugin's teardown, the exit command, --silent, --quit-after-show.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int const kStartTimeoutMs = 30000;
int const kExitTimeoutMs = 10000;

QString buildRoot()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT));
}

bool isBuilt(QString const& module)
{
    return QFile::exists(buildRoot() + QStringLiteral("/lib/plugins-gui/") + module);
}

} // namespace

class TstQuorixGuiProcess : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<QProcess> m_process;

    QString log() const
    {
        QFile file(m_dir->filePath(QStringLiteral("quorix-gui.log")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    bool logHas(QString const& text) const { return log().contains(text); }

    // Starts the host with a log of its own; `root` "" = the build tree.
    void startHost(QStringList const& arguments, QString const& root = QString())
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_dir->filePath(QStringLiteral("quorix-gui.log")));
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

    void waitForLog(QString const& text) { QTRY_VERIFY_WITH_TIMEOUT(logHas(text), kStartTimeoutMs); }

    void expectCleanExit()
    {
        QVERIFY(m_process->waitForFinished(kExitTimeoutMs));
        QCOMPARE(m_process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_process->exitCode(), 0);
        QVERIFY(logHas(QStringLiteral("[QuorixGuiHost] quorix-gui stopped")));
    }

    // A root whose plugin folder links to the built plugins, plus a test module and files.
    QString makeRoot(QString const& extraModule, QMap<QString, QByteArray> const& extraFiles = {})
    {
        QString const root = m_dir->filePath(QStringLiteral("root"));
        QString const plugins = root + QStringLiteral("/lib/plugins-gui/");
        QDir().mkpath(plugins);
        QDir const built(buildRoot() + QStringLiteral("/lib/plugins-gui"));
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
        if (m_process && m_process->state() != QProcess::NotRunning) {
            m_process->kill();
            m_process->waitForFinished(kExitTimeoutMs);
        }
        if (QTest::currentTestFailed())
            qWarning().noquote() << "host log:\n" << log().right(4000);
        m_process.reset();
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
        QCOMPARE(m_process->state(), QProcess::Running);
        m_process->terminate();
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
            m_process->terminate();
        }
        expectCleanExit();
        QVERIFY(logHas(logLine));
    }
};

QTEST_GUILESS_MAIN(TstQuorixGuiProcess)
#include "tst_quorixgui_process.moc"
