// The text rules of the release-file readers, over text in memory.

#include "release_text.h"

#include <QtTest>

namespace {

std::vector<std::string> lines(QByteArrayList const& list)
{
    std::vector<std::string> out;
    for (QByteArray const& line : list)
        out.push_back(line.toStdString());
    return out;
}

} // namespace

class TstReleaseText : public QObject
{
    Q_OBJECT

private slots:
    void neokylin_data();
    void neokylin();
    void suse_data();
    void suse();
    void productInfo_data();
    void productInfo();
    void cpe_data();
    void cpe();
    void kylinVersions_data();
    void kylinVersions();
    void kylinReleaseSuffix_data();
    void kylinReleaseSuffix();
    void rpmAnswer_data();
    void rpmAnswer();
    void uosOsVersion_data();
    void uosOsVersion();
    void arch_data();
    void arch();
};

void TstReleaseText::neokylin_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<int>("type"); // -1 = left as it was
    QTest::newRow("server V7Update6") << QByteArray("NeoKylin Linux Advanced Server release V7Update6 (Chromium)\n")
                                      << QByteArray("v7") << 1;
    QTest::newRow("v6 lower case") << QByteArray("NeoKylin Server release v6.5") << QByteArray("v6") << 1;
    QTest::newRow("6 without kind") << QByteArray("NeoKylin release 6") << QByteArray("v6") << -1;
    QTest::newRow("other digit fails") << QByteArray("NeoKylin Desktop release 5.0 7.0") << QByteArray("") << 0;
    QTest::newRow("V8 skipped") << QByteArray("NeoKylin V8 Server") << QByteArray("") << 1;
    QTest::newRow("kind after version") << QByteArray("7.0 Desktop") << QByteArray("v7") << -1;
    QTest::newRow("lower-case kind is no kind") << QByteArray("desktop release 7") << QByteArray("v7") << -1;
    QTest::newRow("DesktopEdition") << QByteArray("DesktopEdition V7") << QByteArray("v7") << 0;
}

void TstReleaseText::neokylin()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, version);
    QFETCH(int, type);
    std::string got;
    int gotType = -1;
    QCOMPARE(CReleaseText::neokylinVersion(text.toStdString(), got, gotType), !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(got), version);
    QCOMPARE(gotType, type);
}

void TstReleaseText::suse_data()
{
    QTest::addColumn<QByteArrayList>("text");
    QTest::addColumn<QByteArray>("name"); // as it was: "unset"
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("sles 11.4") << QByteArrayList{"SUSE Linux Enterprise Server 11 (x86_64)", "VERSION = 11",
                                                 "PATCHLEVEL = 4"}
                               << QByteArray("suse") << QByteArray("11.4");
    QTest::newRow("patchlevel 0") << QByteArrayList{"SUSE Linux Enterprise Server 12 (x86_64)", "VERSION = 12",
                                                    "PATCHLEVEL = 0", "# comment"}
                                  << QByteArray("suse") << QByteArray("12");
    QTest::newRow("no patchlevel") << QByteArrayList{"openSUSE 13.2 (x86_64)", "VERSION = 13.2", "CODENAME = Harlequin"}
                                   << QByteArray("opensuse") << QByteArray("13.2");
    QTest::newRow("empty patchlevel") << QByteArrayList{"VERSION=15", "PATCHLEVEL="} << QByteArray("unset")
                                      << QByteArray("15");
    QTest::newRow("no version") << QByteArrayList{"openSUSE 42.1 (x86_64)"} << QByteArray("opensuse")
                                << QByteArray("");
    QTest::newRow("version without '='") << QByteArrayList{"VERSION 12"} << QByteArray("unset") << QByteArray("");
    QTest::newRow("indented crlf") << QByteArrayList{"  SUSE Linux\r", "  version = 11 \r", " patchlevel = 3\r"}
                                   << QByteArray("suse") << QByteArray("11.3");
}

void TstReleaseText::suse()
{
    QFETCH(QByteArrayList, text);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, version);
    std::string gotName = "unset";
    std::string gotVersion;
    QCOMPARE(CReleaseText::suseRelease(lines(text), gotName, gotVersion), !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(gotName), name);
    QCOMPARE(QByteArray::fromStdString(gotVersion), version);
}

void TstReleaseText::productInfo_data()
{
    QTest::addColumn<QByteArrayList>("text");
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("neokylin") << QByteArrayList{"NeoKylin", "  release V7Update6/(Chromium)-x86_64\r",
                                                "b4.lic/20190820"}
                              << QByteArray("v7update6");
    QTest::newRow("no slash") << QByteArrayList{"RELEASE V4 (Juniper)"} << QByteArray("v4juniper");
    QTest::newRow("first release line decides") << QByteArrayList{"release /x", "release V10/y"} << QByteArray("");
    QTest::newRow("needs the blank") << QByteArrayList{"releaseV10/x"} << QByteArray("");
    QTest::newRow("none") << QByteArrayList{"Kylin", ""} << QByteArray("");
}

void TstReleaseText::productInfo()
{
    QFETCH(QByteArrayList, text);
    QFETCH(QByteArray, version);
    std::string got;
    QCOMPARE(CReleaseText::productInfoVersion(lines(text), got), !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(got), version);
}

void TstReleaseText::cpe_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("uos 1060") << QByteArray("cpe:/o:uos:uos:1060:server\n") << QByteArray("1060");
    QTest::newRow("first :10") << QByteArray("cpe:/o:a:b:1050:10x:") << QByteArray("1050");
    QTest::newRow("no closing colon") << QByteArray("cpe:/o:uos:uos:1060\n") << QByteArray("");
    QTest::newRow("no :10") << QByteArray("cpe:/o:rocky:rocky:8.4:GA") << QByteArray("");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
}

void TstReleaseText::cpe()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, version);
    std::string got;
    QCOMPARE(CReleaseText::cpeVersion(text.toStdString(), got), !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(got), version);
}

void TstReleaseText::kylinVersions_data()
{
    QTest::addColumn<QByteArray>("prettyName"); // already lower case, as the reader passes it
    QTest::addColumn<QByteArray>("desktop");
    QTest::addColumn<QByteArray>("server");
    QTest::newRow("v10 sp3") << QByteArray("kylin v10 sp3") << QByteArray("v10sp3") << QByteArray("");
    QTest::newRow("4.0.2") << QByteArray("kylin 4.0.2") << QByteArray("v4") << QByteArray("v4sp1");
    QTest::newRow("desktop compares whole") << QByteArray("kylin v10 sp1 edu") << QByteArray("") << QByteArray("");
    QTest::newRow("azalea") << QByteArray("kylin linux advanced server v10 (azalea)") << QByteArray("")
                            << QByteArray("v10");
    QTest::newRow("lance") << QByteArray("kylin linux advanced server v10 (lance)") << QByteArray("")
                           << QByteArray("v10sp3");
    QTest::newRow("v4 tercel") << QByteArray("kylin server v4 (tercel)") << QByteArray("") << QByteArray("v4sp1");
    QTest::newRow("unknown code name") << QByteArray("kylin linux advanced server v10 (halberd)") << QByteArray("")
                                       << QByteArray("");
}

void TstReleaseText::kylinVersions()
{
    QFETCH(QByteArray, prettyName);
    QFETCH(QByteArray, desktop);
    QFETCH(QByteArray, server);
    std::string const name = prettyName.toStdString();
    QCOMPARE(QByteArray::fromStdString(CReleaseText::kylinDesktopVersion(name)), desktop);
    QCOMPARE(QByteArray::fromStdString(CReleaseText::kylinServerVersion(name)), server);
    // Only a capital V is sought, and the name is lower case by now.
    QCOMPARE(CReleaseText::kylinCapitalVVersion(name), std::string());
}

void TstReleaseText::kylinReleaseSuffix_data()
{
    QTest::addColumn<QByteArray>("releaseId");
    QTest::addColumn<QByteArray>("suffix");
    QTest::newRow("2403") << QByteArray("2403") << QByteArray("2403");
    QTest::newRow("2503") << QByteArray("2503") << QByteArray("2403");
    QTest::newRow("letters sort above") << QByteArray("v11") << QByteArray("2403");
    QTest::newRow("2107") << QByteArray("2107") << QByteArray("2107");
    QTest::newRow("2203-1") << QByteArray("2203-1") << QByteArray("2203-1");
    QTest::newRow("2303") << QByteArray("2303") << QByteArray("2303");
    QTest::newRow("2309 unknown") << QByteArray("2309") << QByteArray("");
    QTest::newRow("1999") << QByteArray("1999") << QByteArray("");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
}

void TstReleaseText::kylinReleaseSuffix()
{
    QFETCH(QByteArray, releaseId);
    QFETCH(QByteArray, suffix);
    QCOMPARE(QByteArray::fromStdString(CReleaseText::kylinReleaseSuffix(releaseId.toStdString())), suffix);
}

void TstReleaseText::rpmAnswer_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("two parts") << QByteArray("4.0|12.ky3\n") << QByteArray("4.0-12");
    QTest::newRow("three parts") << QByteArray("3.4.1|5.ky3\n") << QByteArray("3.4.1");
    QTest::newRow("release without digits") << QByteArray("4.0|ky3\n") << QByteArray("4.0");
    QTest::newRow("four parts") << QByteArray("3.4.1.2|7\n") << QByteArray("3.4.1.2-7");
    QTest::newRow("not installed") << QByteArray("package kylinsec-release is not installed\n") << QByteArray("");
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("no version") << QByteArray("|12") << QByteArray("");
}

void TstReleaseText::rpmAnswer()
{
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, version);
    std::string got;
    QCOMPARE(CReleaseText::kylinsecRpmVersion(answer.toStdString(), got), !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(got), version);
}

void TstReleaseText::uosOsVersion_data()
{
    QTest::addColumn<QByteArray>("productType");
    QTest::addColumn<QByteArray>("edition");
    QTest::addColumn<QByteArray>("minor");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<int>("type");
    QTest::newRow("server e") << QByteArray("server") << QByteArray("e") << QByteArray("1050") << QByteArray("1050e")
                              << 1;
    QTest::newRow("server b") << QByteArray("server") << QByteArray("b") << QByteArray("1060") << QByteArray("") << 1;
    QTest::newRow("other product") << QByteArray("embedded") << QByteArray("a") << QByteArray("1") << QByteArray("")
                                   << -1;
    QTest::newRow("empty minor") << QByteArray("server") << QByteArray("a") << QByteArray("") << QByteArray("") << -1;
}

void TstReleaseText::uosOsVersion()
{
    QFETCH(QByteArray, productType);
    QFETCH(QByteArray, edition);
    QFETCH(QByteArray, minor);
    QFETCH(QByteArray, version);
    QFETCH(int, type);
    std::string got;
    int gotType = -1;
    QCOMPARE(CReleaseText::uosOsVersion(productType.toStdString(), edition.toStdString(), minor.toStdString(), got,
                                        gotType),
             !version.isEmpty());
    QCOMPARE(QByteArray::fromStdString(got), version);
    QCOMPARE(gotType, type);
}

void TstReleaseText::arch_data()
{
    QTest::addColumn<QByteArray>("machine");
    QTest::addColumn<QByteArray>("arch");
    QTest::newRow("mips64el") << QByteArray("mips64el") << QByteArray("mips64");
    QTest::newRow("mips64") << QByteArray("mips64") << QByteArray("mips64");
    QTest::newRow("mips") << QByteArray("mips") << QByteArray("mips");
    QTest::newRow("aarch64") << QByteArray("aarch64") << QByteArray("aarch64");
    QTest::newRow("x86_64") << QByteArray("x86_64") << QByteArray("x86_64");
    QTest::newRow("loongarch64") << QByteArray("loongarch64") << QByteArray("loongarch64");
}

void TstReleaseText::arch()
{
    QFETCH(QByteArray, machine);
    QFETCH(QByteArray, arch);
    QCOMPARE(QByteArray::fromStdString(CReleaseText::archFromMachine(machine.toStdString())), arch);
}

QTEST_GUILESS_MAIN(TstReleaseText)
#include "tst_release_text.moc"
