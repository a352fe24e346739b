// The text helpers the system probe reads release files with: properties and
// INI parsing on messy input, cleaning and splitting. (Reading FIFOs, folders,
// links and huge files is covered through the probe.)

#include "cfile.h"
#include "ciniparser.h"
#include "configtools.h"
#include "cstr.h"

#include <QtTest>

namespace {

QByteArrayList toList(std::vector<std::string> const& pieces)
{
    QByteArrayList list;
    for (std::string const& piece : pieces)
        list << QByteArray::fromStdString(piece);
    return list;
}

} // namespace

class TstSupportText : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void strings();
};

void TstSupportText::parse_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("section"); // null: a properties file, else an INI section
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("value"); // null: not found
    auto props = [](char const* name, QByteArray const& text, char const* key, QByteArray const& value) {
        QTest::newRow(name) << text << QByteArray() << QByteArray(key) << value;
    };
    auto ini = [](char const* name, QByteArray const& text, char const* key, QByteArray const& value) {
        QTest::newRow(name) << text << QByteArray("dist") << QByteArray(key) << value;
    };
    QByteArray const none;
    props("export prefix", "export ID=alpine\n", "ID", "alpine");
    props("crlf and bom", "\xEF\xBB\xBFNAME=\"Kylin\"\r\nID=kylin\r\n", "ID", "kylin");
    props("no final line end", "A=1\nID=\"Kylin\"", "ID", "Kylin");
    props("comment lines", "# ID=wrong\n  # x\n\nID=right\n", "ID", "right");
    props("last wins", "ID=a\nID=b\n", "ID", "b");
    props("never closed quote", "PRETTY_NAME=\"Kylin V10 SP1\n", "PRETTY_NAME", "Kylin V10 SP1");
    props("lone quote", "A=\"\n", "A", "");
    props("escapes in double quotes", "A=\"say \\\"hi\\\" \\\\ \\$x \\n\"\n", "A", "say \"hi\" \\ $x \\n");
    props("single quotes literal", "A='a \\\" b'\n", "A", "a \\\" b");
    props("unquoted comment", "ID=fe#dora # the id\n", "ID", "fe#dora");
    props("text after quotes dropped", "A=\"x\" # c\n", "A", "x");
    props("blanks around '='", "  ID  =  \"uos\"  \n", "ID", "uos");
    props("keys are exact", "IDX=1\nPRETTY_ID=2\nid=3\n", "ID", none);
    props("binary", QByteArray("\0ID=\xff\x01\n", 7), "ID", none);
    QTest::newRow("header with trailing blank")
        << QByteArray("[Version] \nProductType[zh_CN]=桌面\nProductType=Desktop\n") << QByteArray("Version")
        << QByteArray("ProductType") << QByteArray("Desktop");
    QTest::newRow("before any section") << QByteArray("name=top\n[dist]\n") << QByteArray("") << QByteArray("name")
                                        << QByteArray("top");
    ini("ini bom and crlf", "\xEF\xBB\xBF[dist]\r\nname=KylinSec OS\r\n", "name", "KylinSec OS");
    ini("blanks inside header", "  [ dist ]  \n  dist_id  =  desktop-3  \n", "dist_id", "desktop-3");
    ini("ini comments", "[dist]\n;name=a\n# name=b\nname=c\n", "name", "c");
    ini("ini quotes", "[dist]\nname=\"Kylin Sec\"\n", "name", "Kylin Sec");
    ini("unmatched quote kept", "[dist]\nname=\"x\n", "name", "\"x");
    ini("other section", "[other]\nname=a\n[Dist]\nname=b\n[dist]\nid=1\n", "name", none);
    ini("first wins", "[dist]\nname=a\n[dist]\nname=b\n", "name", "a");
    ini("value keeps '='", "[dist]\nk=x=y\n", "k", "x=y");
    ini("broken header", "[dist\nname=a\n", "name", none);
    ini("ini binary", QByteArray("[d\0ist]\n\xff=\x01\n", 12), "name", none);
}

void TstSupportText::parse()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, section);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, value);
    std::string got = "stale";
    std::string const input = text.toStdString();
    std::string const name = key.toStdString();
    bool const found = section.isNull() ? ConfigTools::parseProperties(input, name, got)
                                        : CIniParser::parseItemValue(input, section.toStdString(), name, got);
    QCOMPARE(found, !value.isNull());
    QCOMPARE(QByteArray::fromStdString(got), value);
}

void TstSupportText::strings()
{
    QCOMPARE(CStr::strip("\"\"Kylin\"", '"'), std::string("Kylin"));
    QCOMPARE(CStr::strip("a\"b", '"'), std::string("a\"b"));
    QCOMPARE(CStr::trimed(" \t\f\v\n\r V10 SP1 \r\n"), std::string("V10 SP1"));
    QCOMPARE(CStr::toLower("银河麒麟V10"), std::string("银河麒麟v10"));
    QCOMPARE(CStr::keepAlnum("银河麒麟 V10-SP1"), std::string("V10SP1"));
    QCOMPARE(toList(CStr::split("/a/b//c /", '/')), (QByteArrayList{"", "a", "b", "", "c ", ""}));
    QCOMPARE(toList(CStr::split("/a/b//c /", '/', true)), (QByteArrayList{"a", "b", "c "}));
    QCOMPARE(toList(CStr::splitAny("  a\tb \r\n c ")), (QByteArrayList{"a", "b", "c"}));
    QCOMPARE(toList(CStr::splitAny("")), QByteArrayList{});
    QCOMPARE(toList(CFile::splitLines("a\n\n\r\nb")), (QByteArrayList{"a", "", "", "b"}));
    QCOMPARE(toList(CFile::splitLines(std::string("a\0b\r\nc", 6))), (QByteArrayList{QByteArray("a\0b", 3), "c"}));
    QCOMPARE(toList(CFile::splitLines("")), QByteArrayList{});
}

QTEST_GUILESS_MAIN(TstSupportText)
#include "tst_support_text.moc"
