// The log file is capped: rotated before a record would take it past the
// limit, a few old files kept and the oldest dropped, no record split or lost
// in the kept files; two processes writing one file rotate it between them.

#include "clogdebug.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>
#include <unistd.h>

namespace {

QRegularExpression const kRecord(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} INFO  tests/rotation "
                                                "(\\w+):1 record (\\d+) x*$"));

// The log and its old files that exist, oldest first.
QStringList chain(QString const& path)
{
    QStringList files;
    for (int i = 9; i >= 0; --i) {
        QString const name = i == 0 ? path : path + QLatin1Char('.') + QString::number(i);
        if (QFile::exists(name))
            files << name;
    }
    return files;
}

QStringList linesOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                                          : QStringList();
}

void writeRecords(char const* writer, int count, int padding)
{
    QByteArray const pad(padding, 'x');
    for (int n = 0; n < count; ++n)
        BFLogPrintX(BFLOG_INFO, "tests/rotation", writer, 1, "record %d %s", n, pad.constData());
}

} // namespace

class TstCLogDebugRotation : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void initTestCase()
    {
        qputenv("QUORIX_LOG_STDERR", "0");
        qputenv("QUORIX_LOG_LEVEL", "2");
        qputenv("QUORIX_LOG_FILE", QFile::encodeName(m_dir.filePath(QStringLiteral("first.log"))));
    }

    void rotation_data()
    {
        QTest::addColumn<int>("maxBytes");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("padding");
        QTest::addColumn<int>("files");
        QTest::newRow("under the cap: one file") << 4096 << 3 << 10 << 100 << 1;
        QTest::newRow("past the cap once: .1") << 4096 << 3 << 40 << 100 << 2;
        QTest::newRow("far past: three old files, the oldest dropped") << 4096 << 3 << 400 << 100 << 4;
        QTest::newRow("one old file kept") << 4096 << 1 << 400 << 100 << 2;
        QTest::newRow("records bigger than the cap, one file each") << 512 << 3 << 6 << 1000 << 4;
        QTest::newRow("cap 0: never rotated") << 0 << 3 << 400 << 100 << 1;
    }

    void rotation()
    {
        QFETCH(int, maxBytes);
        QFETCH(int, kept);
        QFETCH(int, records);
        QFETCH(int, padding);
        QFETCH(int, files);
        QString const path = m_dir.filePath(QStringLiteral("%1/quorix-gui.log").arg(QTest::currentDataTag()));
        CLogDebug::singleInstance()->setFilePath(QFile::encodeName(path).toStdString());
        CLogDebug::singleInstance()->setRotation(static_cast<std::uint64_t>(maxBytes), kept);
        writeRecords("rotation", records, padding);

        QStringList const existing = chain(path);
        QCOMPARE(existing.size(), files);
        // Oldest to newest, the kept records are one unbroken run ending with the last.
        int previous = -1;
        for (QString const& file : existing) {
            if (padding < maxBytes)
                QVERIFY2(QFileInfo(file).size() <= maxBytes, qPrintable(file));
            for (QString const& line : linesOf(file)) {
                int const n = kRecord.match(line).captured(2).toInt();
                QVERIFY2(previous < 0 || n == previous + 1, qPrintable(line));
                previous = n;
            }
        }
        QCOMPARE(previous, records - 1);
    }

    // Two processes with their own open file, as the client and the probe
    // tool (or a second client) have.
    void twoProcessesShareTheFile()
    {
        QString const path = m_dir.filePath(QStringLiteral("shared/quorix-gui.log"));
        int const maxBytes = 8192;
        for (char const* writer : {"first", "second"}) {
            if (::fork() == 0) {
                CLogDebug::singleInstance()->setFilePath(QFile::encodeName(path).toStdString());
                CLogDebug::singleInstance()->setRotation(maxBytes, 3);
                writeRecords(writer, 3000, 60);
                ::_exit(0);
            }
        }
        for (int i = 0; i < 2; ++i) {
            int status = -1;
            QVERIFY(::wait(&status) > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0);
        }

        QStringList const existing = chain(path);
        QCOMPARE(existing.size(), 4);
        QHash<QString, int> last;
        for (QString const& file : existing) {
            QStringList const lines = linesOf(file);
            // The other writer may append one record between a check and a write.
            QVERIFY2(QFileInfo(file).size() <= maxBytes + lines.value(0).size() + 1, qPrintable(file));
            for (QString const& line : lines) {
                QRegularExpressionMatch const record = kRecord.match(line);
                QVERIFY2(record.hasMatch() && record.captured(0).endsWith(QString(60, QLatin1Char('x'))), qPrintable(line));
                // Each writer's records in order, oldest file to newest.
                QVERIFY2(record.captured(2).toInt() > last.value(record.captured(1), -1), qPrintable(line));
                last.insert(record.captured(1), record.captured(2).toInt());
            }
        }
    }
};

QTEST_GUILESS_MAIN(TstCLogDebugRotation)
#include "tst_clogdebug_rotation.moc"
