#include "cfile.h"

#include <QtTest>

#include <sys/stat.h>

class TstCFile : public QObject
{
    Q_OBJECT

private slots:
    void splitLines_data();
    void splitLines();
    void readAll_data();
    void readAll();
    void refusesWhatIsNotARegularFile();
    void readsPseudoFilesWithoutSize();

private:
    QTemporaryDir m_dir;
};

void TstCFile::splitLines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("lf") << QByteArray("a\nb\n") << QByteArrayList{"a", "b"};
    QTest::newRow("crlf") << QByteArray("a\r\nb\r\n") << QByteArrayList{"a", "b"};
    QTest::newRow("no final line end") << QByteArray("a\nb") << QByteArrayList{"a", "b"};
    QTest::newRow("blank lines kept") << QByteArray("a\n\n\r\nb") << QByteArrayList{"a", "", "", "b"};
    QTest::newRow("empty") << QByteArray("") << QByteArrayList{};
    QTest::newRow("nul inside") << QByteArray("a\0b\nc", 5) << QByteArrayList{QByteArray("a\0b", 3), "c"};
}

void TstCFile::splitLines()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArrayList, lines);
    QByteArrayList got;
    for (std::string const& line : CFile::splitLines(text.toStdString()))
        got << QByteArray::fromStdString(line);
    QCOMPARE(got, lines);
}

void TstCFile::readAll_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("expectedSize");
    QTest::newRow("small") << QByteArray("ID=kylin\n") << 9;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("binary") << QByteArray("\0\xff\x01\n", 4) << 4;
    QTest::newRow("exactly the cap") << QByteArray(int(CFile::kMaxReadSize), 'x') << int(CFile::kMaxReadSize);
    QTest::newRow("over the cap") << QByteArray(int(CFile::kMaxReadSize) * 3, 'x') << int(CFile::kMaxReadSize);
}

void TstCFile::readAll()
{
    QFETCH(QByteArray, content);
    QFETCH(int, expectedSize);
    QString const path = m_dir.filePath(QStringLiteral("file"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();

    std::string read;
    QVERIFY(CFile::exists(path.toStdString()));
    QVERIFY(CFile::readAll(path.toStdString(), read));
    QCOMPARE(int(read.size()), expectedSize);
    QCOMPARE(QByteArray::fromStdString(read), content.left(expectedSize));
}

void TstCFile::refusesWhatIsNotARegularFile()
{
    std::string const fifo = m_dir.filePath(QStringLiteral("fifo")).toStdString();
    QCOMPARE(::mkfifo(fifo.c_str(), 0600), 0);
    std::string content = "stale";
    // Must return at once: nobody ever writes to the FIFO.
    QVERIFY(!CFile::readAll(fifo, content));
    QVERIFY(content.empty());
    QVERIFY(CFile::exists(fifo));

    QVERIFY(!CFile::readAll(m_dir.path().toStdString(), content));
    QVERIFY(!CFile::readAll(m_dir.filePath(QStringLiteral("missing")).toStdString(), content));
    QVERIFY(!CFile::exists(m_dir.filePath(QStringLiteral("missing")).toStdString()));
    QVERIFY(!CFile::exists(std::string()));

    std::string const dangling = m_dir.filePath(QStringLiteral("dangling")).toStdString();
    QVERIFY(QFile::link(QStringLiteral("/nonexistent/target"), QString::fromStdString(dangling)));
    QVERIFY(!CFile::exists(dangling));
}

void TstCFile::readsPseudoFilesWithoutSize()
{
    // /proc files report a size of 0 and still have content.
    std::vector<std::string> lines;
    QVERIFY(CFile::readLines("/proc/self/status", lines));
    QVERIFY(!lines.empty());
    QVERIFY(QByteArray::fromStdString(lines.front()).startsWith("Name:"));
}

QTEST_GUILESS_MAIN(TstCFile)
#include "tst_cfile.moc"
