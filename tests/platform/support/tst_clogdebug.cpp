// The logging contract the probe and its tests rely on: QUORIX_LOG_FILE and
// QUORIX_LOG_LEVEL are honoured, and each record is one line that ends with the
// message exactly as formatted.

#include "clogdebug.h"

#include <QtTest>

class TstCLogDebug : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void records_data();
    void records();
    void macroNamesTheFunction();

private:
    QByteArrayList logLines() const;

    QTemporaryDir m_dir;
    QString m_logPath;
};

void TstCLogDebug::initTestCase()
{
    // Before the first record: the sink reads its settings once, when created.
    m_logPath = m_dir.filePath(QStringLiteral("state/quorix/test.log"));
    qputenv("QUORIX_LOG_FILE", m_logPath.toUtf8());
    qputenv("QUORIX_LOG_LEVEL", "3");
    qputenv("QUORIX_LOG_STDERR", "0");
    QCOMPARE(QString::fromStdString(CLogDebug::singleInstance()->filePath()), m_logPath);
    QCOMPARE(CLogDebug::singleInstance()->minimumLevel(), 3);
}

QByteArrayList TstCLogDebug::logLines() const
{
    QFile file(m_logPath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArrayList lines = file.readAll().split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

void TstCLogDebug::records_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QByteArray>("expectedTail"); // null: below the minimum level, dropped
    QTest::newRow("chinese text") << 3 << QByteArray("从%s获取ID字段失败") << QByteArray("从%s获取ID字段失败");
    QTest::newRow("trailing blank kept") << 4 << QByteArray("[BasePlugin] x ") << QByteArray("[BasePlugin] x ");
    QTest::newRow("line break flattened") << 3 << QByteArray("a\nb\r\nc") << QByteArray("a b  c");
    QTest::newRow("long") << 3 << QByteArray(3000, 'x') << QByteArray(3000, 'x');
    QTest::newRow("info dropped") << 2 << QByteArray("dropped") << QByteArray();
    QTest::newRow("debug dropped") << 1 << QByteArray("dropped") << QByteArray();
}

void TstCLogDebug::records()
{
    QFETCH(int, level);
    QFETCH(QByteArray, message);
    QFETCH(QByteArray, expectedTail);
    int const before = logLines().size();
    BFLogPrintX(level, "modules/probesys/probe_sysinfo", "records", 42, "%s", message.constData());
    QByteArrayList const lines = logLines();
    QCOMPARE(lines.size(), before + (expectedTail.isNull() ? 0 : 1));
    if (expectedTail.isNull())
        return;
    QByteArray const record = lines.last();
    QVERIFY2(record.endsWith(" " + expectedTail), record.constData());
    QVERIFY(record.contains(" modules/probesys/probe_sysinfo records:42 "));
    QVERIFY(record.contains(level == 3 ? " WARN " : " ERROR "));
}

void TstCLogDebug::macroNamesTheFunction()
{
    BFLOG(BFLOG_WARN, "tests/support", "kept %d", 3);
    QByteArray const record = logLines().value(logLines().size() - 1);
    QVERIFY(record.contains(" tests/support macroNamesTheFunction:") && record.endsWith(" kept 3"));
}

QTEST_GUILESS_MAIN(TstCLogDebug)
#include "tst_clogdebug.moc"
