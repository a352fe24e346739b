#include "cstr.h"

#include <QtTest>

namespace {

QByteArray q(std::string const& s)
{
    return QByteArray::fromStdString(s);
}

QByteArrayList toList(std::vector<std::string> const& pieces)
{
    QByteArrayList list;
    for (std::string const& piece : pieces)
        list << q(piece);
    return list;
}

} // namespace

class TstCStr : public QObject
{
    Q_OBJECT

private slots:
    void cleaning_data();
    void cleaning();
    void splitting_data();
    void splitting();
};

void TstCStr::cleaning_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("stripped"); // of '"'
    QTest::addColumn<QByteArray>("trimmed");
    QTest::addColumn<QByteArray>("lowered");
    QTest::addColumn<QByteArray>("alnum");
    QTest::newRow("quoted") << QByteArray("\"22.04\"") << QByteArray("22.04") << QByteArray("\"22.04\"")
                            << QByteArray("\"22.04\"") << QByteArray("2204");
    QTest::newRow("doubled and one-sided quotes") << QByteArray("\"\"Kylin\"") << QByteArray("Kylin")
                                                  << QByteArray("\"\"Kylin\"") << QByteArray("\"\"kylin\"")
                                                  << QByteArray("Kylin");
    QTest::newRow("inner quote kept") << QByteArray("a\"b") << QByteArray("a\"b") << QByteArray("a\"b")
                                      << QByteArray("a\"b") << QByteArray("ab");
    QTest::newRow("whole white-space set") << QByteArray(" \t\f\v\n\r V10 SP1 \r\n") << QByteArray(" \t\f\v\n\r V10 SP1 \r\n")
                                           << QByteArray("V10 SP1") << QByteArray(" \t\f\v\n\r v10 sp1 \r\n")
                                           << QByteArray("V10SP1");
    QTest::newRow("utf-8 untouched") << QByteArray("银河麒麟V10") << QByteArray("银河麒麟V10") << QByteArray("银河麒麟V10")
                                     << QByteArray("银河麒麟v10") << QByteArray("V10");
    QTest::newRow("empty") << QByteArray() << QByteArray() << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("only quotes and blanks") << QByteArray("\"\"") << QByteArray() << QByteArray("\"\"")
                                            << QByteArray("\"\"") << QByteArray();
}

void TstCStr::cleaning()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, stripped);
    QFETCH(QByteArray, trimmed);
    QFETCH(QByteArray, lowered);
    QFETCH(QByteArray, alnum);
    std::string const text = input.toStdString();
    QCOMPARE(q(CStr::strip(text, '"')), stripped);
    QCOMPARE(q(CStr::trimed(text)), trimmed);
    QCOMPARE(q(CStr::toLower(text)), lowered);
    QVERIFY(CStr::equalsNoCase(text, lowered.toStdString()));
    QCOMPARE(q(CStr::keepAlnum(text)), alnum);
}

void TstCStr::splitting_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArrayList>("bySlash");
    QTest::addColumn<QByteArrayList>("bySlashSkippingEmpty");
    QTest::addColumn<QByteArrayList>("byWhiteSpace");
    QTest::newRow("empty pieces") << QByteArray("/a/b//c /") << QByteArrayList{"", "a", "b", "", "c ", ""}
                                  << QByteArrayList{"a", "b", "c "} << QByteArrayList{"/a/b//c", "/"};
    QTest::newRow("mixed blanks") << QByteArray("  a\tb \r\n c ") << QByteArrayList{"  a\tb \r\n c "}
                                  << QByteArrayList{"  a\tb \r\n c "} << QByteArrayList{"a", "b", "c"};
    QTest::newRow("empty") << QByteArray() << QByteArrayList{""} << QByteArrayList{} << QByteArrayList{};
}

void TstCStr::splitting()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArrayList, bySlash);
    QFETCH(QByteArrayList, bySlashSkippingEmpty);
    QFETCH(QByteArrayList, byWhiteSpace);
    std::string const text = input.toStdString();
    QCOMPARE(toList(CStr::split(text, '/')), bySlash);
    QCOMPARE(toList(CStr::split(text, '/', true)), bySlashSkippingEmpty);
    QCOMPARE(toList(CStr::splitAny(text)), byWhiteSpace);
}

QTEST_GUILESS_MAIN(TstCStr)
#include "tst_cstr.moc"
