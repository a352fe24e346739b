#include "cstr.h"

#include <QtTest>

namespace {

std::string s(QByteArray const& bytes)
{
    return bytes.toStdString();
}

QByteArrayList toList(std::vector<std::string> const& pieces)
{
    QByteArrayList list;
    for (std::string const& piece : pieces)
        list << QByteArray::fromStdString(piece);
    return list;
}

} // namespace

class TstCStr : public QObject
{
    Q_OBJECT

private slots:
    void strip_data();
    void strip();
    void trimed_data();
    void trimed();
    void toLower_data();
    void toLower();
    void isNum_data();
    void isNum();
    void split_data();
    void split();
    void splitAny_data();
    void splitAny();
    void pieces_data();
    void pieces();
};

void TstCStr::strip_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("quoted") << QByteArray("\"22.04\"") << QByteArray("22.04");
    QTest::newRow("doubled quotes") << QByteArray("\"\"kylin\"\"") << QByteArray("kylin");
    QTest::newRow("one side") << QByteArray("\"kylin") << QByteArray("kylin");
    QTest::newRow("inner quote kept") << QByteArray("a\"b") << QByteArray("a\"b");
    QTest::newRow("only quotes") << QByteArray("\"\"") << QByteArray("");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("single quotes untouched") << QByteArray("'x'") << QByteArray("'x'");
}

void TstCStr::strip()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, expected);
    QCOMPARE(QByteArray::fromStdString(CStr::strip(s(input), '"')), expected);
}

void TstCStr::trimed_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("whole set") << QByteArray(" \t\f\v\n\r a b \r\n") << QByteArray("a b");
    QTest::newRow("inner kept") << QByteArray("a \t b") << QByteArray("a \t b");
    QTest::newRow("blank only") << QByteArray(" \r\n\t") << QByteArray("");
    QTest::newRow("utf-8") << QByteArray(" 银河麒麟 ") << QByteArray("银河麒麟");
}

void TstCStr::trimed()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, expected);
    QCOMPARE(QByteArray::fromStdString(CStr::trimed(s(input))), expected);
}

void TstCStr::toLower_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("ascii") << QByteArray("Kylin V10 SP1") << QByteArray("kylin v10 sp1");
    QTest::newRow("utf-8 bytes untouched") << QByteArray("银河麒麟V10") << QByteArray("银河麒麟v10");
    QTest::newRow("high bytes") << QByteArray("\xC3\x84X") << QByteArray("\xC3\x84x");
}

void TstCStr::toLower()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, expected);
    QCOMPARE(QByteArray::fromStdString(CStr::toLower(s(input))), expected);
    QVERIFY(CStr::equalsNoCase(s(input), s(expected)));
}

void TstCStr::isNum_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("expected");
    QTest::newRow("digits") << QByteArray("2403") << true;
    QTest::newRow("empty") << QByteArray("") << false;
    QTest::newRow("letter") << QByteArray("24a") << false;
    QTest::newRow("sign") << QByteArray("-1") << false;
    QTest::newRow("blank") << QByteArray("1 ") << false;
}

void TstCStr::isNum()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, expected);
    QCOMPARE(CStr::isNum(s(input)), expected);
}

void TstCStr::split_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<bool>("skipEmpty");
    QTest::addColumn<QByteArrayList>("expected");
    QTest::newRow("keeps empty") << QByteArray("a/b//c/") << false << QByteArrayList{"a", "b", "", "c", ""};
    QTest::newRow("skips empty") << QByteArray("/a/b//c/") << true << QByteArrayList{"a", "b", "c"};
    QTest::newRow("no separator") << QByteArray("abc") << false << QByteArrayList{"abc"};
    QTest::newRow("empty text") << QByteArray("") << false << QByteArrayList{""};
}

void TstCStr::split()
{
    QFETCH(QByteArray, input);
    QFETCH(bool, skipEmpty);
    QFETCH(QByteArrayList, expected);
    QCOMPARE(toList(CStr::split(s(input), '/', skipEmpty)), expected);
}

void TstCStr::splitAny_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArrayList>("expected");
    QTest::newRow("mixed blanks") << QByteArray("  a\tb \r\n c ") << QByteArrayList{"a", "b", "c"};
    QTest::newRow("empty") << QByteArray("") << QByteArrayList{};
    QTest::newRow("blank only") << QByteArray(" \n ") << QByteArrayList{};
}

void TstCStr::splitAny()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArrayList, expected);
    QCOMPARE(toList(CStr::splitAny(s(input))), expected);
}

void TstCStr::pieces_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("alnum");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("release line") << QByteArray("V10 SP1/(Lance)") << QByteArray("V10SP1Lance") << QByteArray("");
    QTest::newRow("rpm release") << QByteArray("12.ky3") << QByteArray("12ky3") << QByteArray("12");
    QTest::newRow("utf-8 dropped") << QByteArray("版V10") << QByteArray("V10") << QByteArray("");
    QTest::newRow("empty") << QByteArray("") << QByteArray("") << QByteArray("");
}

void TstCStr::pieces()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, alnum);
    QFETCH(QByteArray, digits);
    QCOMPARE(QByteArray::fromStdString(CStr::keepAlnum(s(input))), alnum);
    QCOMPARE(QByteArray::fromStdString(CStr::leadingDigits(s(input))), digits);
}

QTEST_GUILESS_MAIN(TstCStr)
#include "tst_cstr.moc"
