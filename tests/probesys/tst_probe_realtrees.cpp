// The probe over real release files of many distributions (test data
// release-files/, one tree per folder). The expected lines were worked out by
// hand from the identification rules, not by running the probe.

#include "clogdebug.h"
#include "probe_sysinfo.h"
#include "probetree.h"

#include <QtTest>

using namespace probetest;

class TstProbeRealTrees : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void knownTrees_data();
    void knownTrees();
    void withoutOsRelease_data();
    void withoutOsRelease();
    void everyTree_data();
    void everyTree();

private:
    static QByteArray probeLine(QString const& root);

    QTemporaryDir m_work;
};

void TstProbeRealTrees::initTestCase()
{
    if (!QFileInfo(releaseFilesDir()).isDir())
        QFAIL(qPrintable(QStringLiteral("no test data at %1 (QUORIX_TESTDATA)").arg(releaseFilesDir())));
    CLogDebug::singleInstance()->setStderrEnabled(false);
    CLogDebug::singleInstance()->setFilePath(m_work.filePath(QStringLiteral("probe.log")).toStdString());
    QVERIFY(installFakeRpm(m_work.path()));
}

QByteArray TstProbeRealTrees::probeLine(QString const& root)
{
    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, root.toUtf8().constData());
    return lineOf(result, info);
}

void TstProbeRealTrees::knownTrees_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QByteArray>("line");
    auto row = [](char const* tree, char const* line) {
        QTest::newRow(tree) << QString::fromLatin1(tree) << QByteArray(line);
    };
    // Kylin desktop: PRETTY_NAME table, then KYLIN_RELEASE_ID (>= "2403" adds 2403, 2303 adds itself).
    row("doc_kylin_desktop_v10sp1_2403", "1|kylin|v10sp12403|ARCH|0");
    row("doc_kylin_desktop_v10sp1_2303", "1|kylin|v10sp12303|ARCH|0");
    row("doc_kylin_desktop_v10sp1_edu_2403_loongarch64", "1|kylin|v10sp12403|ARCH|0");
    row("gh_fastfetch1757_kylin_desktop_v10sp1_2403", "1|kylin|v10sp12403|ARCH|0");
    row("dt_kylin_desktop_v10sp1", "1|kylin|v10sp1|ARCH|0");
    row("dt_kylin_desktop_v10_orig", "1|kylin|v10|ARCH|0");
    // "Kylin V11" and "Kylin 4.0-2" are not in the table and have no PROJECT_CODENAME.
    row("dt_kylin_desktop_v11", "0|kylin||ARCH|0");
    row("dt_kylin_desktop_v4", "0|kylin||ARCH|0");
    // Kylin server: code name in PRETTY_NAME; no release-id suffix.
    row("ans_kylin_server_v10", "1|kylin|v10sp2|ARCH|1");
    row("doc_kylin_server_v10_sp3_lance", "1|kylin|v10sp3|ARCH|1");
    row("gh_productmd182_kylin_server_v10_tercel", "1|kylin|v10sp1|ARCH|1");
    row("doc_neokylin_v7u6", "1|neokylin|v7|ARCH|1");
    row("doc_neokylin_v7u5_aarch64", "1|neokylin|v7|ARCH|1");
    // UOS: os-version ("[Version] " header) first, else os-release's PRETTY_NAME.
    row("doc_uos_desktop_20_pro_1060_arm64", "1|uos|1060|ARCH|0");
    row("ans_uos_20", "1|uos|20|ARCH|1");
    row("ans_uos_server20_uelc20", "1|uos|20|ARCH|1");
    row("gh_productmd182_uos_server20_uel20", "1|uos|20|ARCH|1");
    row("ans_centos8.1", "1|centos|8.1.1911|ARCH|1");
    row("ans_centos_stream8", "1|centos|8|ARCH|1");
    row("pd_centos7", "1|centos|7.1.1503|ARCH|1");
    row("wd_centos_9", "0|centos||ARCH|1");
    row("ans_rhel7.7", "1|redhat|7.7|ARCH|1");
    row("pd_rhel9", "0|redhat||ARCH|1");
    row("ans_ubuntu18.04", "1|ubuntu|18.04|ARCH|1");
    row("wd_ubuntu_kylin_22.04", "1|ubuntu|22.04|ARCH|1");
    row("pd_alpine", "1|alpine|3.23.2|ARCH|1");
    row("doc_bclinux_8.8", "1|bclinux|8.8|ARCH|1");
    row("ans_sles12sp1", "1|suse|12.1|ARCH|1");
    row("wd_sles_15.6", "1|suse|15.6|ARCH|1");
    row("pd_opensuse42", "1|opensuse|42.1|ARCH|1");
    row("wd_opensuse-leap_15.6", "1|opensuse|15.6|ARCH|1");
    row("ans_openeuler_20.03", "1|openeuler|20.03 (lts)|ARCH|1");
    row("doc_openeuler_22.03", "1|openeuler|22.03 lts|ARCH|1");
    row("doc_euleros_2.0_sp8", "1|euleros|2.0 (sp8)|ARCH|1");
    row("doc_anolis_8.8", "1|anolis|8.8|ARCH|1");
    // The file looked for is "debian-version", which Debian does not have.
    row("ans_debian10", "0|debian||ARCH|1");
    row("pd_debiantesting", "0|debian||ARCH|1");
    row("ans_deepin_20.4", "1|deepin|20.4|ARCH|1");
    row("wd_sled_15.5", "1|sled|15.5|ARCH|1");
    row("pd_oracle7", "1|ol|7.5|ARCH|1");
    row("wd_rocky_9.5", "1|rocky|9.5|ARCH|1");
    row("chef_hce_2.0", "1|hce|2.0|ARCH|1");
    row("ans_tencentos3.1", "1|tencentos|3.1|ARCH|1");
    // os-release holds only the text of a symbolic link: no ID.
    row("pd_rocky", "0|||ARCH|1");
}

void TstProbeRealTrees::knownTrees()
{
    QFETCH(QString, tree);
    QFETCH(QByteArray, line);
    QCOMPARE(probeLine(releaseFilesDir() + QLatin1Char('/') + tree), withArch(line));
}

void TstProbeRealTrees::withoutOsRelease_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QByteArray>("line");
    auto row = [](char const* tree, char const* line) {
        QTest::newRow(tree) << QString::fromLatin1(tree) << QByteArray(line);
    };
    row("pd_rocky", "1|rocky|8.4|ARCH|1");
    row("ans_sles12sp1", "1|suse|12|ARCH|1");
    row("pd_sles12", "1|suse|12.1|ARCH|1");
    row("pd_opensuse42", "0|opensuse||ARCH|1");
    row("ans_centos8.1", "1|centos|8.1.1911|ARCH|1");
    row("ans_rhel7.7", "1|redhat|7.7|ARCH|1");
    // centos-release there holds an os-release text; 3.1 is in its PRETTY_NAME.
    row("ans_tencentos3.1", "1|centos|3.1|ARCH|1");
    // neokylin-release comes before redhat-release.
    row("doc_neokylin_v7u5_aarch64", "1|neokylin|v7|ARCH|1");
    // Without os-release, kylin-release means KylinSec; rpm knows nothing here.
    row("doc_kylin_server_v10_sp3_lance", "0|kylinsecos||ARCH|1");
    row("pd_oracle7", "1|ol|7.5|ARCH|1");
    row("ans_uos_server20_uelc20", "1|redhat|20|ARCH|1");
    row("ans_ubuntu18.04", "0|||ARCH|1");
}

void TstProbeRealTrees::withoutOsRelease()
{
    QFETCH(QString, tree);
    QFETCH(QByteArray, line);
    QTemporaryDir root;
    QVERIFY(copyTree(releaseFilesDir() + QLatin1Char('/') + tree, root.path(), {QStringLiteral("etc/os-release")}));
    QCOMPARE(probeLine(root.path()), withArch(line));
}

void TstProbeRealTrees::everyTree_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<bool>("dropOsRelease");
    QDir const dir(releaseFilesDir());
    for (QString const& tree : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        QTest::newRow(qPrintable(tree)) << tree << false;
        QTest::newRow(qPrintable(tree + QStringLiteral(" without os-release"))) << tree << true;
    }
}

void TstProbeRealTrees::everyTree()
{
    QFETCH(QString, tree);
    QFETCH(bool, dropOsRelease);
    QTemporaryDir copy;
    QVERIFY(copyTree(releaseFilesDir() + QLatin1Char('/') + tree, copy.path(),
                     dropOsRelease ? QStringList{QStringLiteral("etc/os-release")} : QStringList{}));

    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, copy.path().toUtf8().constData());
    QVERIFY(result == 0 || result == 1);
    QVERIFY(info.os_type == 0 || info.os_type == 1);
    QCOMPARE(info.os_arch, CProbeSysInfo::getArch());
    if (result == 1) {
        QVERIFY(!info.os_name.empty());
        QVERIFY(!info.os_version.empty());
    }
    QByteArray const line = lineOf(result, info);
    QCOMPARE(line.count('|'), 4);
    QVERIFY(!line.contains('\n') && !line.contains('\r'));
    QCOMPARE(QByteArray::fromStdString(info.os_name), QByteArray::fromStdString(info.os_name).toLower());
    if (cacheFileIsOurs("/tmp/.csysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), line + '\n');
}

QTEST_GUILESS_MAIN(TstProbeRealTrees)
#include "tst_probe_realtrees.moc"
