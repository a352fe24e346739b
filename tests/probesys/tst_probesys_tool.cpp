// bin/probesys run as a process: its one line on standard output, its exit
// status, its help, the cache file it leaves, and a link planted at the cache
// path.

#include "probe_sysinfo.h"
#include "probetree.h"

#include <QtTest>

#include <sys/stat.h>

using namespace probetest;

namespace {

struct Run
{
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

} // namespace

class TstProbesysTool : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void probesTree_data();
    void probesTree();
    void arguments_data();
    void arguments();
    void probesRunningSystem();
    void linkAtCacheIsNotFollowed();

private:
    Run run(QStringList const& arguments);

    QString m_tool;
    QTemporaryDir m_work;
    QString m_logPath;
};

void TstProbesysTool::initTestCase()
{
    m_tool = qEnvironmentVariable("QUORIX_ROOT") + QStringLiteral("/bin/probesys");
    QVERIFY2(QFileInfo(m_tool).isExecutable(), qPrintable(m_tool));
    m_logPath = m_work.filePath(QStringLiteral("probesys.log"));
}

Run TstProbesysTool::run(QStringList const& arguments)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QUORIX_LOG_FILE"), m_logPath);
    env.insert(QStringLiteral("QUORIX_LOG_LEVEL"), QStringLiteral("1"));
    process.setProcessEnvironment(env);
    process.start(m_tool, arguments);
    Run result;
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit)
        return result;
    result.exitCode = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

void TstProbesysTool::probesTree_data()
{
    QTest::addColumn<QStringList>("arguments"); // "TREES" = the real release-file trees
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("kylin desktop") << QStringList{"--root", "TREES/doc_kylin_desktop_v10sp1_2403"}
                                   << QByteArray("1|kylin|v10sp12403|ARCH|0") << 0;
    QTest::newRow("uos desktop") << QStringList{"--root=TREES/doc_uos_desktop_20_pro_1060_arm64"}
                                 << QByteArray("1|uos|1060|ARCH|0") << 0;
    QTest::newRow("kylin v11 unknown") << QStringList{"--root", "TREES/dt_kylin_desktop_v11"}
                                       << QByteArray("0|kylin||ARCH|0") << 1;
    QTest::newRow("broken os-release") << QStringList{"--root", "TREES/pd_rocky"} << QByteArray("0|||ARCH|1") << 1;
    QTest::newRow("missing folder") << QStringList{"--root", "TREES/no-such-tree"} << QByteArray("0|||ARCH|1") << 1;
}

void TstProbesysTool::probesTree()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, line);
    QFETCH(int, exitCode);
    arguments.replaceInStrings(QStringLiteral("TREES"), releaseFilesDir());
    Run const result = run(arguments);
    QCOMPARE(result.exitCode, exitCode);
    QCOMPARE(result.out, withArch(line) + '\n');
    if (cacheFileIsOurs("/tmp/.csysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), result.out);
    // Debug records went to the log and to standard error, never to standard output.
    QByteArray const record = "获取系统信息结果 " + withArch(line) + '\n';
    QVERIFY(readFile(m_logPath).endsWith(" " + record));
    QVERIFY(result.err.contains(" " + record));
}

void TstProbesysTool::arguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    QTest::newRow("--help") << QStringList{"--help"} << 0 << QByteArray("Usage: probesys [--root DIR]") << QByteArray();
    QTest::newRow("-h") << QStringList{"-h"} << 0 << QByteArray("result|os_name|os_version|os_arch|os_type")
                        << QByteArray();
    QTest::newRow("unknown") << QStringList{"--bogus"} << 2 << QByteArray() << QByteArray("unknown argument --bogus");
    QTest::newRow("root without folder") << QStringList{"--root"} << 2 << QByteArray()
                                         << QByteArray("missing directory after --root");
}

void TstProbesysTool::arguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, out);
    QFETCH(QByteArray, err);
    Run const result = run(arguments);
    QCOMPARE(result.exitCode, exitCode);
    if (out.isEmpty())
        QVERIFY(result.out.isEmpty());
    else
        QVERIFY(result.out.contains(out));
    QVERIFY(result.err.contains(err));
}

void TstProbesysTool::probesRunningSystem()
{
    Run const result = run({});
    QVERIFY(result.out.endsWith('\n'));
    QCOMPARE(result.out.count('\n'), 1);
    QCOMPARE(result.out.split('|').size(), 5);
    QCOMPARE(result.exitCode, result.out.startsWith("1|") ? 0 : 1);
    if (cacheFileIsOurs("/tmp/.hsysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.hsysinfo")), result.out);
}

void TstProbesysTool::linkAtCacheIsNotFollowed()
{
    QString const cache = QStringLiteral("/tmp/.csysinfo");
    if (!cacheFileIsOurs("/tmp/.csysinfo"))
        QSKIP("/tmp/.csysinfo belongs to another user");
    QFile::remove(cache);
    QString const target = m_work.filePath(QStringLiteral("victim"));
    QVERIFY(writeFile(target, "precious\n"));
    QVERIFY(QFile::link(target, cache));

    Run const result = run({QStringLiteral("--root"), releaseFilesDir() + QStringLiteral("/dt_kylin_desktop_v10sp1")});
    bool const stillLink = QFileInfo(cache).isSymLink();
    QByteArray const victim = readFile(target);
    QFile::remove(cache);

    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, withArch("1|kylin|v10sp1|ARCH|0\n"));
    QVERIFY(stillLink);
    QCOMPARE(victim, QByteArray("precious\n"));
}

QTEST_GUILESS_MAIN(TstProbesysTool)
#include "tst_probesys_tool.moc"
