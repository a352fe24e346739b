#include "configtools.h"

#include <QtTest>

class TstConfigTools : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void readsFiles();
};

void TstConfigTools::parse_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("double quotes") << QByteArray("VERSION_ID=\"22.04\"\n") << QByteArray("VERSION_ID") << true
                                   << QByteArray("22.04");
    QTest::newRow("single quotes") << QByteArray("ID='rhel'\n") << QByteArray("ID") << true << QByteArray("rhel");
    QTest::newRow("unquoted") << QByteArray("ID=debian\n") << QByteArray("ID") << true << QByteArray("debian");
    QTest::newRow("export prefix") << QByteArray("export ID=alpine\n") << QByteArray("ID") << true
                                   << QByteArray("alpine");
    QTest::newRow("crlf and bom") << QByteArray("\xEF\xBB\xBFNAME=\"Kylin\"\r\nID=kylin\r\n") << QByteArray("ID")
                                  << true << QByteArray("kylin");
    QTest::newRow("no final line end") << QByteArray("A=1\nID=\"Kylin\"") << QByteArray("ID") << true
                                       << QByteArray("Kylin");
    QTest::newRow("comment lines") << QByteArray("# ID=wrong\n  # x\n\nID=right\n") << QByteArray("ID") << true
                                   << QByteArray("right");
    QTest::newRow("only commented") << QByteArray("#ID=x\n") << QByteArray("ID") << false << QByteArray();
    QTest::newRow("last wins") << QByteArray("ID=a\nID=b\n") << QByteArray("ID") << true << QByteArray("b");
    QTest::newRow("never closed quote") << QByteArray("PRETTY_NAME=\"Kylin V10 SP1\n") << QByteArray("PRETTY_NAME")
                                        << true << QByteArray("Kylin V10 SP1");
    QTest::newRow("escapes in double quotes") << QByteArray("A=\"say \\\"hi\\\" \\\\ \\$x \\n\"\n") << QByteArray("A")
                                              << true << QByteArray("say \"hi\" \\ $x \\n");
    QTest::newRow("single quotes literal") << QByteArray("A='a \\\" b'\n") << QByteArray("A") << true
                                           << QByteArray("a \\\" b");
    QTest::newRow("unquoted comment") << QByteArray("ID=fedora # the id\n") << QByteArray("ID") << true
                                      << QByteArray("fedora");
    QTest::newRow("hash inside word") << QByteArray("A=x#y\n") << QByteArray("A") << true << QByteArray("x#y");
    QTest::newRow("text after quotes dropped") << QByteArray("A=\"x\" # c\n") << QByteArray("A") << true
                                               << QByteArray("x");
    QTest::newRow("blanks around '='") << QByteArray("  ID  =  \"uos\"  \n") << QByteArray("ID") << true
                                       << QByteArray("uos");
    QTest::newRow("empty value") << QByteArray("ID=\n") << QByteArray("ID") << true << QByteArray();
    QTest::newRow("longer key is another key") << QByteArray("IDX=1\nPRETTY_ID=2\n") << QByteArray("ID") << false
                                               << QByteArray();
    QTest::newRow("keys are exact") << QByteArray("id=x\n") << QByteArray("ID") << false << QByteArray();
    QTest::newRow("value keeps '='") << QByteArray("CPE=a=b\n") << QByteArray("CPE") << true << QByteArray("a=b");
    QTest::newRow("utf-8") << QByteArray("VERSION=\"银河麒麟桌面操作系统V10 (SP1)\"\n") << QByteArray("VERSION") << true
                           << QByteArray("银河麒麟桌面操作系统V10 (SP1)");
    QTest::newRow("lone quote") << QByteArray("A=\"\n") << QByteArray("A") << true << QByteArray();
    QTest::newRow("empty text") << QByteArray() << QByteArray("ID") << false << QByteArray();
    QTest::newRow("empty key") << QByteArray("=x\n") << QByteArray("") << false << QByteArray();
    QTest::newRow("binary") << QByteArray("\0ID=\xff\x01\n", 7) << QByteArray("ID") << false << QByteArray();
}

void TstConfigTools::parse()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, key);
    QFETCH(bool, found);
    QFETCH(QByteArray, value);
    std::string got = "stale";
    QCOMPARE(ConfigTools::parseProperties(text.toStdString(), key.toStdString(), got), found);
    QCOMPARE(QByteArray::fromStdString(got), value);
}

void TstConfigTools::readsFiles()
{
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("os-release"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("NAME=\"Ubuntu\"\r\nVERSION_ID=\"22.04\"");
    file.close();

    std::string value;
    QVERIFY(ConfigTools::readProperties(path.toStdString(), "VERSION_ID", value));
    QCOMPARE(value, std::string("22.04"));
    QVERIFY(!ConfigTools::readProperties(path.toStdString(), "ID", value));
    QVERIFY(!ConfigTools::readProperties(dir.filePath(QStringLiteral("missing")).toStdString(), "ID", value));
    QVERIFY(value.empty());
}

QTEST_GUILESS_MAIN(TstConfigTools)
#include "tst_configtools.moc"
