// The probe over real release files of many distributions (test data
// release-files/, one tree per folder), in process and through bin/probesys:
// its one line on standard output, its exit status, its help, the cache file it
// leaves, and a link planted at the cache path. The expected lines were worked
// out by hand from the identification rules, not by running the probe.

#include "clogdebug.h"
#include "probe_sysinfo.h"
#include "probetree.h"

#include <QtTest>

#include <unistd.h>

using namespace probetest;

class TstProbeRealTrees : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void knownTrees_data();
    void knownTrees();
    void everyTree_data();
    void everyTree();
    void tool_data();
    void tool();
    void toolProbesRunningSystem();
    void toolLeavesForeignCache_data();
    void toolLeavesForeignCache();

private:
    int exec(QStringList const& arguments);

    QByteArray m_out;
    QByteArray m_err;

    QTemporaryDir m_work;
    QString m_logPath;
};

void TstProbeRealTrees::initTestCase()
{
    if (!QFileInfo(releaseFilesDir()).isDir())
        QFAIL(qPrintable(QStringLiteral("no test data at %1 (QUORIX_TESTDATA)").arg(releaseFilesDir())));
    CLogDebug::singleInstance()->setStderrEnabled(false);
    CLogDebug::singleInstance()->setFilePath(m_work.filePath(QStringLiteral("probe.log")).toStdString());
    QVERIFY(installFakeRpm(m_work.path()));
    m_logPath = m_work.filePath(QStringLiteral("probesys.log"));
}

void TstProbeRealTrees::knownTrees_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<bool>("dropOsRelease");
    QTest::addColumn<QByteArray>("line");
    auto row = [](char const* tree, char const* line, bool dropOsRelease = false) {
        QTest::newRow(qPrintable(QString::fromLatin1(tree) + (dropOsRelease ? " without os-release" : "")))
            << QString::fromLatin1(tree) << dropOsRelease << QByteArray(line);
    };
    // Kylin desktop: PRETTY_NAME table, then KYLIN_RELEASE_ID (>= "2403" adds 2403).
    row("doc_kylin_desktop_v10sp1_2403", "1|kylin|v10sp12403|ARCH|0");
    row("dt_kylin_desktop_v10sp1", "1|kylin|v10sp1|ARCH|0");
    // "Kylin V11" is not in the table and has no PROJECT_CODENAME.
    row("dt_kylin_desktop_v11", "0|kylin||ARCH|0");
    // Kylin server: code name in PRETTY_NAME; no release-id suffix.
    row("ans_kylin_server_v10", "1|kylin|v10sp2|ARCH|1");
    row("doc_kylin_server_v10_sp3_lance", "1|kylin|v10sp3|ARCH|1");
    row("doc_neokylin_v7u6", "1|neokylin|v7|ARCH|1");
    // UOS: os-version ("[Version] " header) first, else os-release's PRETTY_NAME.
    row("doc_uos_desktop_20_pro_1060_arm64", "1|uos|1060|ARCH|0");
    row("ans_uos_server20_uelc20", "1|uos|20|ARCH|1");
    row("ans_centos8.1", "1|centos|8.1.1911|ARCH|1");
    row("wd_centos_9", "0|centos||ARCH|1");
    row("ans_rhel7.7", "1|redhat|7.7|ARCH|1");
    row("ans_sles12sp1", "1|suse|12.1|ARCH|1");
    row("ans_openeuler_20.03", "1|openeuler|20.03 (lts)|ARCH|1");
    // The file looked for is "debian-version", which Debian does not have.
    row("ans_debian10", "0|debian||ARCH|1");
    row("ans_deepin_20.4", "1|deepin|20.4|ARCH|1");
    row("pd_rocky", "1|rocky|8.4|ARCH|1");
    // The release-file table alone.
    row("pd_rocky", "1|rocky|8.4|ARCH|1", true);
    row("ans_sles12sp1", "1|suse|12|ARCH|1", true);
    // centos-release there holds an os-release text; 3.1 is in its PRETTY_NAME.
    row("ans_tencentos3.1", "1|centos|3.1|ARCH|1", true);
    row("doc_neokylin_v7u5_aarch64", "1|neokylin|v7|ARCH|1", true);
    // kylin-release means KylinSec; rpm knows nothing here.
    row("doc_kylin_server_v10_sp3_lance", "0|kylinsecos||ARCH|1", true);
    row("ans_uos_server20_uelc20", "1|redhat|20|ARCH|1", true);
    row("ans_ubuntu18.04", "0|||ARCH|1", true);
}

void TstProbeRealTrees::knownTrees()
{
    QFETCH(QString, tree);
    QFETCH(bool, dropOsRelease);
    QFETCH(QByteArray, line);
    QTemporaryDir root;
    QVERIFY(copyRealTree(tree, root.path(), !dropOsRelease));
    QCOMPARE(probeLine(root.path()), withArch(line));
}

void TstProbeRealTrees::everyTree_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<bool>("dropOsRelease");
    for (QString const& tree : QDir(releaseFilesDir()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        QTest::newRow(qPrintable(tree)) << tree << false;
        QTest::newRow(qPrintable(tree + QStringLiteral(" without os-release"))) << tree << true;
    }
}

// Whatever the tree, the probe does not crash and reports consistently.
void TstProbeRealTrees::everyTree()
{
    QFETCH(QString, tree);
    QFETCH(bool, dropOsRelease);
    QTemporaryDir copy;
    QVERIFY(copyRealTree(tree, copy.path(), !dropOsRelease));
    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, copy.path().toUtf8().constData());
    QVERIFY(result == 0 || result == 1);
    QVERIFY(info.os_type == 0 || info.os_type == 1);
    QCOMPARE(info.os_arch, CProbeSysInfo::getArch());
    QCOMPARE(result == 1, !info.os_name.empty() && !info.os_version.empty());
    QByteArray const line = lineOf(result, info);
    QVERIFY(line.count('|') == 4 && !line.contains('\n') && !line.contains('\r'));
    QCOMPARE(QByteArray::fromStdString(info.os_name), QByteArray::fromStdString(info.os_name).toLower());
    if (cacheFileIsOurs("/tmp/.csysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), line + '\n');
}

// The exit code, or -1 when the tool did not exit normally; its output in m_out and m_err.
int TstProbeRealTrees::exec(QStringList const& arguments)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_logPath);
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
    process.setProcessEnvironment(env);
    process.start(qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/bin/probesys"), arguments);
    bool const exited = process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit;
    m_out = process.readAllStandardOutput();
    m_err = process.readAllStandardError();
    return exited ? process.exitCode() : -1;
}

void TstProbeRealTrees::tool_data()
{
    QTest::addColumn<QStringList>("arguments"); // "TREES" = the real release-file trees
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("out");        // a probe's line, else a part of the help
    QTest::addColumn<QByteArray>("err");
    QTest::newRow("kylin desktop") << QStringList{"--root", "TREES/doc_kylin_desktop_v10sp1_2403"} << 0
                                   << QByteArray("1|kylin|v10sp12403|ARCH|0\n") << QByteArray();
    QTest::newRow("--root=") << QStringList{"--root=TREES/doc_uos_desktop_20_pro_1060_arm64"} << 0
                             << QByteArray("1|uos|1060|ARCH|0\n") << QByteArray();
    QTest::newRow("missing folder") << QStringList{"--root", "TREES/no-such-tree"} << 1
                                    << QByteArray("0|||ARCH|1\n") << QByteArray();
    QTest::newRow("--help") << QStringList{"--help"} << 0 << QByteArray("Usage: probesys [--root DIR]") << QByteArray();
    QTest::newRow("unknown") << QStringList{"--bogus"} << 2 << QByteArray() << QByteArray("unknown argument --bogus");
    QTest::newRow("root without folder") << QStringList{"--root"} << 2 << QByteArray()
                                         << QByteArray("missing directory after --root");
}

void TstProbeRealTrees::tool()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, err);
    arguments.replaceInStrings(QStringLiteral("TREES"), releaseFilesDir());
    QCOMPARE(exec(arguments), exitCode);
    QVERIFY2(m_err.contains(err), m_err.constData());
    if (!out.contains("|ARCH|")) {
        QVERIFY(out.isEmpty() ? m_out.isEmpty() : m_out.contains(out));
        return;
    }
    QCOMPARE(m_out, withArch(out));
    if (cacheFileIsOurs(QStringLiteral("/tmp/.csysinfo")))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), m_out);
    // Debug records went to the log and to standard error, never to standard output.
    QByteArray const record = " 获取系统信息结果 " + m_out;
    QVERIFY(readFile(m_logPath).endsWith(record) && m_err.contains(record));
}

void TstProbeRealTrees::toolProbesRunningSystem()
{
    int const exitCode = exec({});
    QCOMPARE(exitCode, m_out.startsWith("1|") ? 0 : 1);
    QVERIFY(m_out.endsWith('\n') && m_out.count('\n') == 1 && m_out.count('|') == 4);
    if (cacheFileIsOurs(QStringLiteral("/tmp/.hsysinfo")))
        QCOMPARE(readFile(QStringLiteral("/tmp/.hsysinfo")), m_out);
}

// Whatever another user (or a trick) put at the shared cache path is left
// as it is: a symbolic or hard link is not written through, another user's
// file is not taken over. The probe result is printed all the same.
void TstProbeRealTrees::toolLeavesForeignCache_data()
{
    QTest::addColumn<QString>("planted");
    QTest::newRow("symbolic link") << "symlink";
    QTest::newRow("hard link") << "hardlink";
    if (::geteuid() == 0)
        QTest::newRow("another user's file") << "foreign";
}

void TstProbeRealTrees::toolLeavesForeignCache()
{
    QFETCH(QString, planted);
    QString const cache = QStringLiteral("/tmp/.csysinfo");
    if (!cacheFileIsOurs(cache))
        QSKIP("/tmp/.csysinfo belongs to another user");
    QFile::remove(cache);
    QString const target = planted == QLatin1String("foreign") ? cache : m_work.filePath(QStringLiteral("victim"));
    QVERIFY(writeFile(target, "precious\n"));
    if (planted == QLatin1String("symlink"))
        QVERIFY(QFile::link(target, cache));
    else if (planted == QLatin1String("hardlink"))
        QCOMPARE(::link(qPrintable(target), qPrintable(cache)), 0);
    else
        QCOMPARE(::chown(qPrintable(cache), 65534, 65534), 0);

    int const exitCode =
        exec({QStringLiteral("--root"), releaseFilesDir() + QStringLiteral("/dt_kylin_desktop_v10sp1")});
    bool const stillLink = QFileInfo(cache).isSymLink();
    QByteArray const victim = readFile(target);
    QFileInfo const info(cache);
    uint const owner = info.ownerId();
    QFile::remove(cache);

    QCOMPARE(exitCode, 0);
    QCOMPARE(m_out, withArch("1|kylin|v10sp1|ARCH|0\n"));
    QCOMPARE(stillLink, planted == QLatin1String("symlink"));
    QCOMPARE(victim, QByteArray("precious\n"));
    if (planted == QLatin1String("foreign"))
        QCOMPARE(owner, 65534u);
}

QTEST_GUILESS_MAIN(TstProbeRealTrees)
#include "tst_probe_realtrees.moc"
