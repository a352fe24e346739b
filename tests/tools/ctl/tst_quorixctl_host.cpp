// bin/quorix-ctl against the real bin/quorix-gui on a session bus of the
// test's own, headless: every command reaches the client, quit ends it, and a
// client without the service (no bus, name taken) still starts and says why.

#include "privateSessionBus.h"
#include "quorixControlProtocol.h"

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int const kStartTimeoutMs = 30000;
int const kEventTimeoutMs = 20000;
int const kExitTimeoutMs = 15000;
QString const kServiceName = QLatin1String(QuorixControl::kServiceName);
QString const kUnavailable = QStringLiteral("[BackendControlService] control service unavailable: ");
QString const kPluginsLoaded = QStringLiteral("plugins loaded from");
// The test's own hold on the client's name.
QString const kOwnerConnection = QStringLiteral("tst_quorixctl_host_owner");

QString buildRoot()
{
    return qEnvironmentVariable("QUORIX_ROOT", QStringLiteral(TST_BUILD_ROOT));
}

} // namespace

class TstQuorixCtlHost : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<PrivateSessionBus> m_bus;
    QScopedPointer<QProcess> m_host;

    QString log() const
    {
        QFile file(m_dir->filePath(QStringLiteral("quorix-gui.log")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    bool logHas(QString const& text) const { return log().contains(text); }

    // The whole record holding `text`, "" if none.
    QString logLineWith(QString const& text) const
    {
        QStringList const lines = log().split(QLatin1Char('\n'));
        for (QString const& line : lines) {
            if (line.contains(text))
                return line;
        }
        return QString();
    }

    void startHost(QString const& busAddress)
    {
        QProcessEnvironment env = PrivateSessionBus::environment(busAddress);
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_dir->filePath(QStringLiteral("quorix-gui.log")));
        env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
        env.insert(QStringLiteral("QUORIX_LOG_STDERR"), QStringLiteral("0"));
        env.insert(QStringLiteral("QUORIX_CONFIG_DIR"), m_dir->filePath(QStringLiteral("config")));
        env.insert(QStringLiteral("QUORIX_ROOT"), buildRoot());
        env.remove(QStringLiteral("QUORIX_EXIT_PASSWORD"));
        m_host.reset(new QProcess);
        m_host->setProcessEnvironment(env);
        m_host->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_host->start(buildRoot() + QStringLiteral("/bin/quorix-gui"), QStringList{});
        QVERIFY(m_host->waitForStarted(kExitTimeoutMs));
        // Once every plugin is in, the base plugin listens to the bridge and
        // the next call is served from the event loop.
        QTRY_VERIFY_WITH_TIMEOUT(logHas(kPluginsLoaded), kStartTimeoutMs);
    }

    // Runs quorix-ctl to its end; the client is another process.
    int runCtl(QStringList const& arguments, QString const& busAddress, QString* standardError = nullptr)
    {
        QProcess ctl;
        ctl.setProcessEnvironment(PrivateSessionBus::environment(busAddress));
        ctl.start(buildRoot() + QStringLiteral("/bin/quorix-ctl"), arguments);
        if (!ctl.waitForFinished(kEventTimeoutMs))
            return -1;
        if (standardError)
            *standardError = QString::fromLocal8Bit(ctl.readAllStandardError());
        return ctl.exitStatus() == QProcess::NormalExit ? ctl.exitCode() : -1;
    }

private slots:
    void initTestCase()
    {
        for (QString const& file : {QStringLiteral("/bin/quorix-ctl"), QStringLiteral("/bin/quorix-gui"),
                                    QStringLiteral("/lib/plugins-gui/libui_bridge_plugin.so")}) {
            if (!QFile::exists(buildRoot() + file))
                QSKIP(qPrintable(file + QStringLiteral(" is not built")));
        }
    }

    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
        m_bus.reset(new PrivateSessionBus);
        QVERIFY2(m_bus->isUp(), "dbus-daemon did not start");
    }

    void cleanup()
    {
        if (m_host && m_host->state() != QProcess::NotRunning) {
            m_host->kill();
            m_host->waitForFinished(kExitTimeoutMs);
        }
        if (QTest::currentTestFailed() && m_dir)
            qWarning().noquote() << "host log:\n" << log().right(4000);
        m_host.reset();
        QDBusConnection::disconnectFromBus(kOwnerConnection);
        m_bus.reset();
        m_dir.reset();
    }

    void commandReachesClient_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("logLine");
        QTest::newRow("notice") << QStringList{"notice", "--title", "Scan finished", "--id", "ctl-e2e"}
                                << "[BasePlugin] receive uni notify msg, id [ctl-e2e]";
        QTest::newRow("device") << QStringList{"device", "--win-title", "USB", "--content", "blocked"}
                                << "[BasePlugin] receive devicesmgr gui popup msg";
        QTest::newRow("power shutdown") << QStringList{"power", "shutdown", "--countdown", "300"}
                                        << "[BasePlugin] receive shutdown reboot notice, method [0] time [300]";
        QTest::newRow("prompt") << QStringList{"prompt", "--type", "2", "Title", "Text"}
                                << "[BasePlugin] receive backend notice, type [2]";
        QTest::newRow("show") << QStringList{"show"} << "[QuorixGuiHost] main window shown on request";
    }

    void commandReachesClient()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, logLine);
        startHost(m_bus->address());
        QString standardError;
        QCOMPARE(runCtl(arguments, m_bus->address(), &standardError), 0);
        QCOMPARE(standardError, QString());
        QTRY_VERIFY_WITH_TIMEOUT(logHas(logLine), kEventTimeoutMs);
    }

    // The notice's count-down runs out and the order is carried out, which
    // the simulated backend only logs.
    void restartOrderCarriedOutWhenCountdownEnds()
    {
        startHost(m_bus->address());
        QCOMPARE(runCtl({"power", "restart", "--countdown", "1"}, m_bus->address()), 0);
        QTRY_VERIFY_WITH_TIMEOUT(logHas(QStringLiteral("[SimulatedBackend] reboot order received, not carried out")),
                                 kEventTimeoutMs);
    }

    void quitEndsClient()
    {
        startHost(m_bus->address());
        QCOMPARE(runCtl({"quit"}, m_bus->address()), 0);
        QVERIFY(m_host->waitForFinished(kExitTimeoutMs));
        QCOMPARE(m_host->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_host->exitCode(), 0);
        QVERIFY(logHas(QStringLiteral("[BackendControlService] control service stopped")));
    }

    void noClientRunning_data()
    {
        QTest::addColumn<bool>("withBus");
        QTest::newRow("bus without a client") << true;
        QTest::newRow("no session bus") << false;
    }

    void noClientRunning()
    {
        QFETCH(bool, withBus);
        QString standardError;
        QCOMPARE(runCtl({"show"}, withBus ? m_bus->address() : PrivateSessionBus::deadAddress(), &standardError), 1);
        QVERIFY2(standardError.startsWith(QStringLiteral("quorix-ctl: no Quorix client running")), qPrintable(standardError));
        QCOMPARE(standardError.count(QLatin1Char('\n')), 1);
        QVERIFY(standardError.endsWith(QLatin1Char('\n')));
    }

    // The client starts and runs as before, and says once, as a warning, why
    // it cannot be driven.
    void clientRunsOnWithoutService_data()
    {
        QTest::addColumn<bool>("nameTaken");
        QTest::newRow("name owned by another client") << true;
        QTest::newRow("no session bus") << false;
    }

    void clientRunsOnWithoutService()
    {
        QFETCH(bool, nameTaken);
        if (nameTaken) {
            QDBusConnection owner = QDBusConnection::connectToBus(m_bus->address(), kOwnerConnection);
            QVERIFY(owner.registerService(kServiceName));
        }
        startHost(nameTaken ? m_bus->address() : PrivateSessionBus::deadAddress());
        QString const line = logLineWith(kUnavailable);
        QVERIFY2(line.contains(QStringLiteral(" WARN ")), qPrintable(line));
        QVERIFY2(line.contains(nameTaken ? kServiceName : QStringLiteral("no session bus")), qPrintable(line));
        QCOMPARE(log().count(kUnavailable), 1);
        QCOMPARE(m_host->state(), QProcess::Running);
        m_host->terminate();
        QVERIFY(m_host->waitForFinished(kExitTimeoutMs));
        QCOMPARE(m_host->exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TstQuorixCtlHost)
#include "tst_quorixctl_host.moc"
