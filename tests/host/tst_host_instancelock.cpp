// The client's lock file: taken when nobody holds it, whatever it holds from
// a dead owner; refused while another holder lives; never through a link; gone
// once unlocked.

#include "instanceLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

class TestHostInstanceLock : public QObject
{
    Q_OBJECT

    QScopedPointer<QTemporaryDir> m_dir;

    QString lockPath() const { return m_dir->filePath(QStringLiteral("client.lock")); }

private slots:
    void init()
    {
        m_dir.reset(new QTemporaryDir);
        QVERIFY(m_dir->isValid());
    }

    void tryLock_data()
    {
        QTest::addColumn<QString>("before");   // what is at the lock's path already
        QTest::addColumn<int>("expected");
        QTest::newRow("nothing there") << "" << int(InstanceLock::LOCK_TAKEN);
        QTest::newRow("left by a dead owner on another host") << "4242\nquorix-gui\nold-name\n"
                                                              << int(InstanceLock::LOCK_TAKEN);
        QTest::newRow("held by a live owner") << "held" << int(InstanceLock::LOCK_BUSY);
        QTest::newRow("a link planted in its place") << "link" << int(InstanceLock::LOCK_ERROR);
        QTest::newRow("no folder") << "no folder" << int(InstanceLock::LOCK_ERROR);
    }

    void tryLock()
    {
        QFETCH(QString, before);
        QFETCH(int, expected);
        InstanceLock owner(lockPath());
        QString path = lockPath();
        if (before == QLatin1String("held")) {
            QCOMPARE(owner.tryLock(0), InstanceLock::LOCK_TAKEN);
        } else if (before == QLatin1String("link")) {
            QVERIFY(QFile::link(m_dir->filePath(QStringLiteral("elsewhere")), path));
        } else if (before == QLatin1String("no folder")) {
            path = m_dir->filePath(QStringLiteral("missing/client.lock"));
        } else if (!before.isEmpty()) {
            QFile stale(path);
            QVERIFY(stale.open(QIODevice::WriteOnly));
            stale.write(before.toUtf8());
        }
        InstanceLock lock(path);
        QCOMPARE(int(lock.tryLock(20)), expected);
        QCOMPARE(lock.isLocked(), expected == InstanceLock::LOCK_TAKEN);
        if (expected == InstanceLock::LOCK_TAKEN) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readLine().trimmed().toLongLong(), static_cast<qint64>(::getpid()));
        }
        QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral("elsewhere"))));
    }

    // Unlocking removes the file; the next start takes a fresh one.
    void unlockHandsOn()
    {
        InstanceLock first(lockPath());
        QCOMPARE(first.tryLock(0), InstanceLock::LOCK_TAKEN);
        InstanceLock second(lockPath());
        QCOMPARE(second.tryLock(30), InstanceLock::LOCK_BUSY);
        first.unlock();
        QVERIFY(!QFile::exists(lockPath()));
        QCOMPARE(second.tryLock(0), InstanceLock::LOCK_TAKEN);
        QVERIFY(QFile::exists(lockPath()));
    }
};

QTEST_GUILESS_MAIN(TestHostInstanceLock)
#include "tst_host_instancelock.moc"
