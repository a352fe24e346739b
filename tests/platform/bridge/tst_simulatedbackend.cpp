// The simulated backend: settings that survive a restart and are written
// atomically, tolerant reading, protection days, exit password, library versions.

#include "simulatedbackend.h"
#include "simulatedsettingsstore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

__sSettingData commonSetting(int closeAction)
{
    __sSettingData data;
    data.key = 0;
    data.name = QStringLiteral("_SETTING_COMMON_");
    data.value = QVariant::fromValue(_SETTING_COMMON_{closeAction});
    return data;
}

int storedCloseAction(SimulatedBackend& backend)
{
    __sSettingData const data = backend.readSetting(QStringLiteral("SETTING_COMMON"));
    return data.key == 0 ? data.value.value<_SETTING_COMMON_>().closeAction : -100;
}

void writeFile(QString const& path, QByteArray const& data)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(data);
}

} // namespace

class TstSimulatedBackend : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void closeActionPersistsAcrossRestart();
    void writeSettingAccepts_data();
    void writeSettingAccepts();
    void readSettingByName_data();
    void readSettingByName();
    void writeReplacesTheFileWhole();
    void writeIntoUnusableFolderFailsAndKeepsState();
    void tolerantReading_data();
    void tolerantReading();
    void guardDays_data();
    void guardDays();
    void exitPassword_data();
    void exitPassword();
    void libraryVersions_data();
    void libraryVersions();
    void userIdIsStable();
    void defaultFolderFollowsEnvironment();

private:
    QScopedPointer<QTemporaryDir> m_dir;
};

void TstSimulatedBackend::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    qunsetenv("QUORIX_EXIT_PASSWORD");
}

void TstSimulatedBackend::cleanup()
{
    qunsetenv("QUORIX_EXIT_PASSWORD");
    m_dir.reset();
}

void TstSimulatedBackend::closeActionPersistsAcrossRestart()
{
    {
        SimulatedBackend backend(m_dir->path());
        QCOMPARE(storedCloseAction(backend), SimulatedBackend::kDefaultCloseAction);
        QSignalSpy changed(&backend, &QuorixBackend::sig_settingsChanged);
        QVERIFY(backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{1})));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(storedCloseAction(backend), 1);
    }
    SimulatedBackend restarted(m_dir->path());
    QCOMPARE(storedCloseAction(restarted), 1);
    QVERIFY(QFile::exists(m_dir->filePath(QStringLiteral("settings.ini"))));
}

void TstSimulatedBackend::writeSettingAccepts_data()
{
    QTest::addColumn<QVariant>("data");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<int>("stored");
    QTest::newRow("record, quit") << QVariant::fromValue(_SETTING_COMMON_{0}) << true << 0;
    QTest::newRow("record, ask") << QVariant::fromValue(_SETTING_COMMON_{2}) << true << 2;
    QTest::newRow("record inside setting data") << QVariant::fromValue(commonSetting(1)) << true << 1;
    QTest::newRow("close action out of range") << QVariant::fromValue(_SETTING_COMMON_{3}) << false << 2;
    QTest::newRow("negative close action") << QVariant::fromValue(_SETTING_COMMON_{-1}) << false << 2;
    QTest::newRow("plain int") << QVariant(1) << false << 2;
    QTest::newRow("string") << QVariant(QStringLiteral("closeAction=1")) << false << 2;
    QTest::newRow("invalid variant") << QVariant() << false << 2;
}

void TstSimulatedBackend::writeSettingAccepts()
{
    QFETCH(QVariant, data);
    QFETCH(bool, accepted);
    QFETCH(int, stored);
    SimulatedBackend backend(m_dir->path());
    QSignalSpy changed(&backend, &QuorixBackend::sig_settingsChanged);
    QCOMPARE(backend.writeSetting(data), accepted);
    QCOMPARE(changed.count(), accepted ? 1 : 0);
    QCOMPARE(storedCloseAction(backend), stored);
}

void TstSimulatedBackend::readSettingByName_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<int>("key");
    QTest::newRow("registered alias") << "SETTING_COMMON" << 0;
    QTest::newRow("C++ name") << "_SETTING_COMMON_" << 0;
    QTest::newRow("unknown") << "SETTING_ANTIVIRUS" << -1;
    QTest::newRow("wrong case") << "setting_common" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TstSimulatedBackend::readSettingByName()
{
    QFETCH(QString, typeName);
    QFETCH(int, key);
    SimulatedBackend backend(m_dir->path());
    __sSettingData const data = backend.readSetting(typeName);
    QCOMPARE(data.key, key);
    QCOMPARE(data.value.isValid(), key == 0);
    if (key == 0)
        QCOMPARE(data.value.userType(), qMetaTypeId<_SETTING_COMMON_>());
}

void TstSimulatedBackend::writeReplacesTheFileWhole()
{
    QString const path = m_dir->filePath(QStringLiteral("settings.ini"));
    SimulatedBackend backend(m_dir->path());
    QVERIFY(backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{0})));
    QFile before(path);
    QVERIFY(before.open(QIODevice::ReadOnly));

    QVERIFY(backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{1})));
    // A reader that opened the old file still sees it complete: the new one was
    // renamed over it, not written into it.
    QByteArray const oldContent = before.readAll();
    QVERIFY(oldContent.contains("closeAction=0\n"));
    QFile after(path);
    QVERIFY(after.open(QIODevice::ReadOnly));
    QVERIFY(after.readAll().contains("closeAction=1\n"));
    // No temporary file is left beside it.
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("settings.ini")});
}

void TstSimulatedBackend::writeIntoUnusableFolderFailsAndKeepsState()
{
    // The configuration folder's place is taken by a plain file.
    QString const blocked = m_dir->filePath(QStringLiteral("blocked"));
    writeFile(blocked, "x");
    SimulatedBackend backend(blocked);
    QSignalSpy changed(&backend, &QuorixBackend::sig_settingsChanged);
    QVERIFY(!backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{0})));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(storedCloseAction(backend), SimulatedBackend::kDefaultCloseAction);
    // Still answers everything else.
    QVERIFY(backend.guardDays() >= 1);
    QCOMPARE(backend.clientVersion(), QStringLiteral("3.0.2.7550"));
}

void TstSimulatedBackend::tolerantReading_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("closeAction");
    QTest::newRow("plain") << QByteArray("[common]\ncloseAction=1\n") << 1;
    QTest::newRow("CRLF, blanks, comments") << QByteArray("# mine\r\n[ common ]\r\n ; note\r\n closeAction = 0 \r\n") << 0;
    QTest::newRow("no final line end") << QByteArray("[common]\ncloseAction=1") << 1;
    QTest::newRow("first occurrence wins") << QByteArray("[common]\ncloseAction=1\ncloseAction=0\n") << 1;
    QTest::newRow("out of range value") << QByteArray("[common]\ncloseAction=7\n") << 2;
    QTest::newRow("not a number") << QByteArray("[common]\ncloseAction=ask\n") << 2;
    QTest::newRow("key outside any section") << QByteArray("closeAction=1\n") << 2;
    QTest::newRow("bad section name hides its keys") << QByteArray("[com mon]\ncloseAction=1\n") << 2;
    QTest::newRow("binary junk around a good line")
        << QByteArray("\x01\x02\xff\xfe\n[common]\n=\n") + QByteArray(2, '\0') + QByteArray("\ncloseAction=0\n") << 0;
    QTest::newRow("empty file") << QByteArray() << 2;
    QTest::newRow("far too big") << QByteArray("[common]\ncloseAction=1\n") + QByteArray(300 * 1024, '#') << 2;
}

void TstSimulatedBackend::tolerantReading()
{
    QFETCH(QByteArray, content);
    QFETCH(int, closeAction);
    writeFile(m_dir->filePath(QStringLiteral("settings.ini")), content);
    SimulatedBackend backend(m_dir->path());
    QCOMPARE(storedCloseAction(backend), closeAction);
}

void TstSimulatedBackend::guardDays_data()
{
    QTest::addColumn<QString>("firstRun");   // "" = never run before
    QTest::addColumn<QDate>("today");
    QTest::addColumn<uint>("days");
    QDate const today(2026, 11, 22);
    QTest::newRow("first run") << QString() << today << 1u;
    QTest::newRow("same day") << "2026-11-22" << today << 1u;
    QTest::newRow("a week later") << "2026-11-15" << today << 8u;
    QTest::newRow("across a leap year") << "2024-02-28" << QDate(2024, 3, 1) << 3u;
    QTest::newRow("clock set back") << "2026-12-01" << today << 1u;
    QTest::newRow("unreadable date restarts the count") << "yesterday" << today << 1u;
}

void TstSimulatedBackend::guardDays()
{
    QFETCH(QString, firstRun);
    QFETCH(QDate, today);
    QFETCH(uint, days);
    if (!firstRun.isEmpty())
        writeFile(m_dir->filePath(QStringLiteral("settings.ini")), "[state]\nfirstRunDate=" + firstRun.toUtf8() + "\n");
    SimulatedBackend backend(m_dir->path());
    backend.setToday(today);
    QCOMPARE(backend.guardDays(), days);
    QCOMPARE(backend.baseInfo() & 0xFFFFFFFFull, static_cast<quint64>(days));
    QCOMPARE(backend.baseInfo() >> 32, 0ull);

    // The date is kept: a restart a day later counts one more.
    SimulatedBackend restarted(m_dir->path());
    restarted.setToday(today.addDays(1));
    bool const clockBack = firstRun == QLatin1String("2026-12-01");
    QCOMPARE(restarted.guardDays(), clockBack ? 1u : days + 1);
}

void TstSimulatedBackend::exitPassword_data()
{
    QTest::addColumn<QString>("envPassword");
    QTest::addColumn<QString>("storedDigest");   // hex
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("entered");
    QTest::addColumn<int>("policy");
    QTest::addColumn<int>("verdict");
    QString const digest = QString::fromLatin1(
        QCryptographicHash::hash(QStringLiteral("管理员Pass1").toUtf8(), QCryptographicHash::Sha256).toHex());

    QTest::newRow("none configured") << "" << "" << 1 << "anything" << 1 << 1;
    QTest::newRow("env, right") << "s3cret" << "" << 1 << "s3cret" << 2 << 0;
    QTest::newRow("env, wrong") << "s3cret" << "" << 1 << "s3cre" << 2 << 1;
    QTest::newRow("env, longer") << "s3cret" << "" << 1 << "s3cret " << 2 << 1;
    QTest::newRow("env, empty entry") << "s3cret" << "" << 1 << "" << 2 << 1;
    QTest::newRow("env, other kind") << "s3cret" << "" << 3 << "s3cret" << 1 << 1;
    QTest::newRow("stored digest, right") << "" << digest << 1 << "管理员Pass1" << 2 << 0;
    QTest::newRow("stored digest, wrong case") << "" << digest << 1 << "管理员pass1" << 2 << 1;
    QTest::newRow("env wins over stored") << "other" << digest << 1 << "other" << 2 << 0;
    QTest::newRow("malformed digest ignored") << "" << digest.left(60) << 1 << "管理员Pass1" << 1 << 1;
}

void TstSimulatedBackend::exitPassword()
{
    QFETCH(QString, envPassword);
    QFETCH(QString, storedDigest);
    QFETCH(int, kind);
    QFETCH(QString, entered);
    QFETCH(int, policy);
    QFETCH(int, verdict);
    if (!envPassword.isEmpty())
        qputenv("QUORIX_EXIT_PASSWORD", envPassword.toUtf8());
    if (!storedDigest.isEmpty())
        writeFile(m_dir->filePath(QStringLiteral("settings.ini")),
                  "[verify]\nexitPasswordSha256=" + storedDigest.toLatin1() + "\n");
    SimulatedBackend backend(m_dir->path());
    QCOMPARE(backend.verifyPolicy(kind), policy);
    QCOMPARE(backend.verifyPassword(kind, entered), verdict);
}

void TstSimulatedBackend::libraryVersions_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QList<int>>("kinds");
    QTest::newRow("current libraries") << 7 << QList<int>{1, 4};
    QTest::newRow("virus library") << 1 << QList<int>{1};
    QTest::newRow("vulnerability library") << 4 << QList<int>{4};
    QTest::newRow("unknown kind") << 3 << QList<int>{};
    QTest::newRow("negative kind") << -7 << QList<int>{};
}

void TstSimulatedBackend::libraryVersions()
{
    QFETCH(int, kind);
    QFETCH(QList<int>, kinds);
    SimulatedBackend backend(m_dir->path());
    QList<int> got;
    for (_VERINFO_ const& info : backend.libraryVersions(kind)) {
        got.append(info.kind);
        QVERIFY(!info.version.isEmpty());
    }
    QCOMPARE(got, kinds);
}

void TstSimulatedBackend::userIdIsStable()
{
    QString first;
    {
        SimulatedBackend backend(m_dir->path());
        first = backend.userId();
        QVERIFY(!QUuid::fromString(first).isNull());
        QCOMPARE(backend.userId(), first);
    }
    SimulatedBackend restarted(m_dir->path());
    QCOMPARE(restarted.userId(), first);
}

void TstSimulatedBackend::defaultFolderFollowsEnvironment()
{
    QByteArray const savedOwn = qgetenv("QUORIX_CONFIG_DIR");
    QByteArray const savedXdg = qgetenv("XDG_CONFIG_HOME");
    qputenv("QUORIX_CONFIG_DIR", "/tmp/own-config");
    QCOMPARE(SimulatedBackend::defaultConfigDir(), QStringLiteral("/tmp/own-config"));
    qunsetenv("QUORIX_CONFIG_DIR");
    qputenv("XDG_CONFIG_HOME", "/tmp/xdg");
    QCOMPARE(SimulatedBackend::defaultConfigDir(), QStringLiteral("/tmp/xdg/quorix"));
    qputenv("XDG_CONFIG_HOME", "relative/path");
    QCOMPARE(SimulatedBackend::defaultConfigDir(), QDir::homePath() + QStringLiteral("/.config/quorix"));
    savedOwn.isNull() ? qunsetenv("QUORIX_CONFIG_DIR") : qputenv("QUORIX_CONFIG_DIR", savedOwn);
    savedXdg.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", savedXdg);
}

QTEST_GUILESS_MAIN(TstSimulatedBackend)
#include "tst_simulatedbackend.moc"
