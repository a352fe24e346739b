#include "ciniparser.h"

#include <QtTest>

class TstCIniParser : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void readsFiles();
};

void TstCIniParser::parse_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QByteArray>("value");

    QByteArray const osVersion = "[Version] \nSystemName=UOS Desktop\nSystemName[zh_CN]=统信桌面操作系统\n"
                                 "ProductType=Desktop\nProductType[zh_CN]=桌面\nEditionName=Professional\n"
                                 "MinorVersion=1060\nOsBuild=11014.102.100\n";
    QTest::newRow("header with trailing blank") << osVersion << QByteArray("Version") << QByteArray("ProductType")
                                                << true << QByteArray("Desktop");
    QTest::newRow("localised key is another key")
        << QByteArray("[Version]\nProductType[zh_CN]=桌面\n") << QByteArray("Version") << QByteArray("ProductType")
        << false << QByteArray();
    QTest::newRow("utf-8 value") << osVersion << QByteArray("Version") << QByteArray("SystemName[zh_CN]") << true
                                 << QByteArray("统信桌面操作系统");
    QTest::newRow("bom and crlf") << QByteArray("\xEF\xBB\xBF[dist]\r\nname=KylinSec OS\r\n") << QByteArray("dist")
                                  << QByteArray("name") << true << QByteArray("KylinSec OS");
    QTest::newRow("blanks inside header") << QByteArray("  [ dist ]  \n  dist_id  =  desktop-3  \n")
                                          << QByteArray("dist") << QByteArray("dist_id") << true
                                          << QByteArray("desktop-3");
    QTest::newRow("comments skipped") << QByteArray("[dist]\n;name=a\n# name=b\nname=c\n") << QByteArray("dist")
                                      << QByteArray("name") << true << QByteArray("c");
    QTest::newRow("only commented") << QByteArray("[dist]\n;name=a\n") << QByteArray("dist") << QByteArray("name")
                                    << false << QByteArray();
    QTest::newRow("double quotes") << QByteArray("[dist]\nname=\"Kylin Sec\"\n") << QByteArray("dist")
                                   << QByteArray("name") << true << QByteArray("Kylin Sec");
    QTest::newRow("single quotes") << QByteArray("[dist]\nname='x'\n") << QByteArray("dist") << QByteArray("name")
                                   << true << QByteArray("x");
    QTest::newRow("unmatched quote kept") << QByteArray("[dist]\nname=\"x\n") << QByteArray("dist")
                                          << QByteArray("name") << true << QByteArray("\"x");
    QTest::newRow("other section") << QByteArray("[other]\nname=a\n[dist]\nid=1\n") << QByteArray("dist")
                                   << QByteArray("name") << false << QByteArray();
    QTest::newRow("no final line end") << QByteArray("[dist]\nname=last") << QByteArray("dist") << QByteArray("name")
                                       << true << QByteArray("last");
    QTest::newRow("first wins") << QByteArray("[dist]\nname=a\n[dist]\nname=b\n") << QByteArray("dist")
                                << QByteArray("name") << true << QByteArray("a");
    QTest::newRow("empty value") << QByteArray("[dist]\nname=\n") << QByteArray("dist") << QByteArray("name") << true
                                 << QByteArray();
    QTest::newRow("value keeps '='") << QByteArray("[a]\nk=x=y\n") << QByteArray("a") << QByteArray("k") << true
                                     << QByteArray("x=y");
    QTest::newRow("broken header ignored") << QByteArray("[dist\nname=a\n") << QByteArray("dist")
                                           << QByteArray("name") << false << QByteArray();
    QTest::newRow("before any section") << QByteArray("name=top\n[dist]\n") << QByteArray("") << QByteArray("name")
                                        << true << QByteArray("top");
    QTest::newRow("line without '='") << QByteArray("[dist]\nname\nname=b\n") << QByteArray("dist")
                                      << QByteArray("name") << true << QByteArray("b");
    QTest::newRow("section names are exact") << QByteArray("[Dist]\nname=a\n") << QByteArray("dist")
                                             << QByteArray("name") << false << QByteArray();
    QTest::newRow("empty text") << QByteArray() << QByteArray("dist") << QByteArray("name") << false << QByteArray();
    QTest::newRow("binary") << QByteArray("[d\0ist]\n\xff=\x01\n", 12) << QByteArray("dist") << QByteArray("name")
                            << false << QByteArray();
}

void TstCIniParser::parse()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, section);
    QFETCH(QByteArray, key);
    QFETCH(bool, found);
    QFETCH(QByteArray, value);
    std::string got = "stale";
    QCOMPARE(CIniParser::parseItemValue(text.toStdString(), section.toStdString(), key.toStdString(), got), found);
    QCOMPARE(QByteArray::fromStdString(got), value);
}

void TstCIniParser::readsFiles()
{
    QTemporaryDir dir;
    QString const path = dir.filePath(QStringLiteral("os-version"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Version] \r\nMinorVersion=1060");
    file.close();

    std::string value;
    QVERIFY(CIniParser::IniFileGetItemValue(path.toStdString(), "Version", "MinorVersion", value));
    QCOMPARE(value, std::string("1060"));
    QVERIFY(!CIniParser::IniFileGetItemValue(dir.filePath(QStringLiteral("missing")).toStdString(), "Version",
                                             "MinorVersion", value));
    QVERIFY(value.empty());
}

QTEST_GUILESS_MAIN(TstCIniParser)
#include "tst_ciniparser.moc"
