// The simulated backend: settings written atomically that survive a restart,
// tolerant reading, protection days, exit password.

#include "simulatedbackend.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

int storedCloseAction(SimulatedBackend& backend)
{
    __sSettingData const data = backend.readSetting(QStringLiteral("SETTING_COMMON"));
    return data.key == 0 ? data.value.value<_SETTING_COMMON_>().closeAction : -100;
}

} // namespace

class TstSimulatedBackend : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;

    void writeSettingsFile(QByteArray const& content)
    {
        QFile file(m_dir->filePath(QStringLiteral("settings.ini")));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
    }

private slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
        qunsetenv("QUORIX_EXIT_PASSWORD");
    }

    void writeSettingAccepts_data()
    {
        QTest::addColumn<QVariant>("data");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<int>("stored");
        __sSettingData wrapped;
        wrapped.key = 0;
        wrapped.value = QVariant::fromValue(_SETTING_COMMON_{1});
        QTest::newRow("record") << QVariant::fromValue(_SETTING_COMMON_{0}) << true << 0;
        QTest::newRow("record inside setting data") << QVariant::fromValue(wrapped) << true << 1;
        QTest::newRow("close action out of range") << QVariant::fromValue(_SETTING_COMMON_{3}) << false << 2;
        QTest::newRow("plain int") << QVariant(1) << false << 2;
    }

    void writeSettingAccepts()
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

    void settingsPersistAtomically()
    {
        QString const path = m_dir->filePath(QStringLiteral("settings.ini"));
        SimulatedBackend backend(m_dir->path());
        QCOMPARE(storedCloseAction(backend), SimulatedBackend::kDefaultCloseAction);
        QVERIFY(backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{0})));
        QFile before(path);
        QVERIFY(before.open(QIODevice::ReadOnly));
        QVERIFY(backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{1})));
        // A reader of the old file still sees it whole: the new one was renamed
        // over it, not written into it, and no temporary file is left beside it.
        QVERIFY(before.readAll().contains("closeAction=0\n"));
        QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList{"settings.ini"});

        QString const userId = backend.userId();
        QVERIFY(!QUuid::fromString(userId).isNull());
        SimulatedBackend restarted(m_dir->path());
        QCOMPARE(storedCloseAction(restarted), 1);
        QCOMPARE(restarted.userId(), userId);
    }

    void writeIntoUnusableFolderFailsAndKeepsState()
    {
        // The configuration folder's place is taken by a plain file.
        writeSettingsFile("x");
        SimulatedBackend backend(m_dir->filePath(QStringLiteral("settings.ini")));
        QSignalSpy changed(&backend, &QuorixBackend::sig_settingsChanged);
        QVERIFY(!backend.writeSetting(QVariant::fromValue(_SETTING_COMMON_{0})));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(storedCloseAction(backend), SimulatedBackend::kDefaultCloseAction);
        QVERIFY(backend.guardDays() >= 1);
    }

    void tolerantReading_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("closeAction");
        QTest::newRow("CRLF, blanks, comments")
            << QByteArray("# mine\r\n[ common ]\r\n ; note\r\n closeAction = 0 \r\n") << 0;
        QTest::newRow("first occurrence wins") << QByteArray("[common]\ncloseAction=1\ncloseAction=0\n") << 1;
        QTest::newRow("out of range value") << QByteArray("[common]\ncloseAction=7\n") << 2;
        QTest::newRow("key outside any section") << QByteArray("closeAction=1\n") << 2;
        QTest::newRow("binary junk and NULs around a good line")
            << QByteArray("\x01\x02\xff\xfe\n[common]\n=\n") + QByteArray(2, '\0') + QByteArray("\ncloseAction=0\n")
            << 0;
        QTest::newRow("far too big") << QByteArray("[common]\ncloseAction=1\n") + QByteArray(300 * 1024, '#') << 2;
    }

    void tolerantReading()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, closeAction);
        writeSettingsFile(content);
        SimulatedBackend backend(m_dir->path());
        QCOMPARE(storedCloseAction(backend), closeAction);
    }

    void guardDays_data()
    {
        QTest::addColumn<QString>("firstRun");   // "" = never run before
        QTest::addColumn<QDate>("today");
        QTest::addColumn<uint>("days");
        QDate const today(2026, 11, 22);
        QTest::newRow("first run") << QString() << today << 1u;
        QTest::newRow("a week later") << "2026-11-15" << today << 8u;
        QTest::newRow("across a leap year") << "2024-02-28" << QDate(2024, 3, 1) << 3u;
        QTest::newRow("clock set back") << "2026-12-01" << today << 1u;
        QTest::newRow("unreadable date restarts the count") << "yesterday" << today << 1u;
    }

    void guardDays()
    {
        QFETCH(QString, firstRun);
        QFETCH(QDate, today);
        QFETCH(uint, days);
        if (!firstRun.isEmpty())
            writeSettingsFile("[state]\nfirstRunDate=" + firstRun.toUtf8() + "\n");
        SimulatedBackend backend(m_dir->path());
        backend.setToday(today);
        QCOMPARE(backend.guardDays(), days);
        QCOMPARE(backend.baseInfo(), static_cast<quint64>(days));   // high half: no flags

        // The date is kept: a restart a day later counts one more.
        SimulatedBackend restarted(m_dir->path());
        restarted.setToday(today.addDays(1));
        bool const clockBack = firstRun == QLatin1String("2026-12-01");
        QCOMPARE(restarted.guardDays(), clockBack ? 1u : days + 1);
    }

    void exitPassword_data()
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
        QTest::newRow("env, prefix only") << "s3cret" << "" << 1 << "s3cre" << 2 << 1;
        QTest::newRow("env, other kind") << "s3cret" << "" << 3 << "s3cret" << 1 << 1;
        QTest::newRow("stored digest, right") << "" << digest << 1 << "管理员Pass1" << 2 << 0;
        QTest::newRow("stored digest, wrong case") << "" << digest << 1 << "管理员pass1" << 2 << 1;
        QTest::newRow("env wins over stored") << "other" << digest << 1 << "other" << 2 << 0;
        QTest::newRow("malformed digest ignored") << "" << digest.left(60) << 1 << "管理员Pass1" << 1 << 1;
    }

    void exitPassword()
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
            writeSettingsFile("[verify]\nexitPasswordSha256=" + storedDigest.toLatin1() + "\n");
        SimulatedBackend backend(m_dir->path());
        QCOMPARE(backend.verifyPolicy(kind), policy);
        QCOMPARE(backend.verifyPassword(kind, entered), verdict);
    }
};

QTEST_GUILESS_MAIN(TstSimulatedBackend)
#include "tst_simulatedbackend.moc"
