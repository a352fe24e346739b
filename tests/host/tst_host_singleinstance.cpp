// One client per user: a second quorix-gui hands over to the first and exits,
// a lock left by a killed client does not block the next start, and the
// runtime folder of lock and socket is private to the user.

#include "hostProcess.h"
#include "userRuntimeDir.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QString const kLockTaken = QStringLiteral("[SingleInstanceGuard] instance lock taken");
QString const kPluginsLoaded = QStringLiteral("plugins loaded from");
QString const kHandOver = QStringLiteral("[SingleInstanceGuard] hand-over from a second start ");

int modeOf(QString const& path)
{
    struct stat info {};
    return ::lstat(QFile::encodeName(path).constData(), &info) == 0 ? static_cast<int>(info.st_mode & 07777) : -1;
}

} // namespace

class TstHostSingleInstance : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;

    void startServing(HostProcess& host, QStringList const& arguments, int starts)
    {
        QVERIFY(host.start(arguments));
        QTRY_VERIFY_WITH_TIMEOUT(host.logCount(kPluginsLoaded) == starts, HostProcess::kStartTimeoutMs);
        QCOMPARE(host.logCount(kLockTaken), starts);
    }

    void secondStartExits(QStringList const& arguments)
    {
        HostProcess second(m_dir->path());
        QVERIFY(second.start(arguments));
        QCOMPARE(second.waitForExit(), 0);
    }

private slots:
    void init() { m_dir.reset(new QTemporaryDir); }

    void cleanup()
    {
        if (QTest::currentTestFailed())
            qWarning().noquote() << "host log:\n" << HostProcess(m_dir->path()).log().right(4000);
        m_dir.reset();
    }

    void secondStartHandsOver_data()
    {
        QTest::addColumn<QStringList>("first");
        QTest::addColumn<QStringList>("second");
        QTest::addColumn<bool>("shows");
        QTest::newRow("second start shows the window") << QStringList{} << QStringList{} << true;
        QTest::newRow("second start shows a silent client's window") << QStringList{"--silent"} << QStringList{} << true;
        QTest::newRow("--silent second start changes nothing") << QStringList{"--silent"} << QStringList{"--silent"} << false;
    }

    void secondStartHandsOver()
    {
        QFETCH(QStringList, first);
        QFETCH(QStringList, second);
        QFETCH(bool, shows);
        HostProcess client(m_dir->path());
        startServing(client, first, 1);
        secondStartExits(second);
        // The client answers only after it has acted on the request.
        QCOMPARE(client.logCount(kHandOver + (shows ? "(show)" : "(silent)")), 1);
        QCOMPARE(client.logCount(QStringLiteral("[QuorixGuiHost] main window shown on request")), shows ? 1 : 0);
        QCOMPARE(client.logCount(kPluginsLoaded), 1);
        client.process.terminate();
        QCOMPARE(client.waitForExit(), 0);
        QCOMPARE(client.logCount(QStringLiteral("[SingleInstanceGuard] instance lock released")), 1);
    }

    void staleLockDoesNotBlock_data()
    {
        QTest::addColumn<bool>("foreignOwner");
        QTest::newRow("killed client") << false;
        // Its pid now taken by a live process and the machine renamed since:
        // only the free file lock tells that nobody holds it.
        QTest::newRow("killed client, pid reused, host renamed") << true;
    }

    void staleLockDoesNotBlock()
    {
        QFETCH(bool, foreignOwner);
        HostProcess killed(m_dir->path());
        startServing(killed, {"--silent"}, 1);
        killed.process.kill();
        QVERIFY(killed.process.waitForFinished(HostProcess::kExitTimeoutMs));
        QStringList const locks = QDir(killed.runtimeDir).entryList({QStringLiteral("*.lock")}, QDir::Files);
        QCOMPARE(locks.size(), 1);
        QFile lock(QDir(killed.runtimeDir).filePath(locks.first()));
        if (foreignOwner) {
            QVERIFY(lock.open(QIODevice::WriteOnly | QIODevice::Truncate));
            lock.write(QByteArray::number(::getpid()) + "\nquorix-gui\nsome-other-host\n");
            lock.close();
        }
        HostProcess next(m_dir->path());
        startServing(next, {"--silent"}, 2);
        QCOMPARE(next.logCount(QStringLiteral("stale instance lock taken over")), 1);
        secondStartExits({"--silent"});
        QCOMPARE(next.logCount(kHandOver + "(silent)"), 1);
    }

    void runtimeDirIsPrivate_data()
    {
        QTest::addColumn<int>("xdgMode");        // -1: XDG_RUNTIME_DIR unset
        QTest::addColumn<QString>("fallback");   // what is at <parent>/quorix-<uid> already
        QTest::addColumn<QString>("expected");   // xdg, fallback, refused
        QTest::newRow("XDG_RUNTIME_DIR of the user") << 0700 << "" << "xdg";
        QTest::newRow("XDG_RUNTIME_DIR writable by others") << 0777 << "" << "fallback";
        QTest::newRow("no XDG_RUNTIME_DIR") << -1 << "" << "fallback";
        QTest::newRow("own fallback open to others is narrowed") << -1 << "dir 0755" << "fallback";
        QTest::newRow("fallback is a link") << -1 << "link" << "refused";
        QTest::newRow("fallback of another user") << -1 << "foreign" << "refused";
    }

    void runtimeDirIsPrivate()
    {
        QFETCH(int, xdgMode);
        QFETCH(QString, fallback);
        QFETCH(QString, expected);
        QString const xdg = m_dir->filePath(QStringLiteral("xdg"));
        QString const own = m_dir->filePath(QStringLiteral("quorix-%1").arg(::geteuid()));
        QVERIFY(QDir().mkpath(xdg));
        ::chmod(QFile::encodeName(xdg).constData(), xdgMode < 0 ? 0700 : xdgMode);
        if (fallback == QLatin1String("link")) {
            QVERIFY(QFile::link(xdg, own));
        } else if (!fallback.isEmpty()) {
            QVERIFY(QDir().mkpath(own));
            ::chmod(QFile::encodeName(own).constData(), 0755);
            if (fallback == QLatin1String("foreign") && ::chown(QFile::encodeName(own).constData(), 65534, 65534) != 0)
                QSKIP("giving a folder to another user needs root");
        }
        if (xdgMode < 0)
            qunsetenv("XDG_RUNTIME_DIR");
        else
            qputenv("XDG_RUNTIME_DIR", QFile::encodeName(xdg));

        QString const path = UserRuntimeDir::path(m_dir->path());
        qunsetenv("XDG_RUNTIME_DIR");
        QCOMPARE(path, expected == QLatin1String("xdg") ? xdg : expected == QLatin1String("fallback") ? own : QString());
        if (expected == QLatin1String("fallback"))
            QCOMPARE(modeOf(own), 0700);
    }
};

QTEST_GUILESS_MAIN(TstHostSingleInstance)
#include "tst_host_singleinstance.moc"
