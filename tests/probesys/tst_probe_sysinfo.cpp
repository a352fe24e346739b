// The probe over system trees built in temporary folders: the os-release
// table, the release-file table, each distribution reader's rules, the log
// texts of the failures, messy files and the cache file.

#include "clogdebug.h"
#include "probe_sysinfo.h"
#include "probetree.h"

#include <QtTest>

#include <algorithm>
#include <sys/stat.h>

using namespace probetest;

class TstProbeSysInfo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void osReleasePath_data();
    void osReleasePath();
    void releaseFilePath_data();
    void releaseFilePath();
    void kylinsecRpm_data();
    void kylinsecRpm();
    void messyFiles_data();
    void messyFiles();
    void fieldFormKeepsCallerType_data();
    void fieldFormKeepsCallerType();
    void readersOutsideTheTables();
    void isGFBKylin_data();
    void isGFBKylin();
    void cacheFileIsReplacedWithMode0644();
    void hostProbeWritesHostCache();

private:
    void runProbe(QString const& root, QByteArray const& expectedLine, QByteArray const& expectedLog);
    QByteArrayList newLogLines();

    QTemporaryDir m_work;
    QString m_logPath;
    qint64 m_logMark = 0;
};

void TstProbeSysInfo::initTestCase()
{
    QVERIFY(m_work.isValid());
    m_logPath = m_work.filePath(QStringLiteral("probe.log"));
    CLogDebug::singleInstance()->setStderrEnabled(false);
    CLogDebug::singleInstance()->setMinimumLevel(BFLOG_DEBUG);
    CLogDebug::singleInstance()->setFilePath(m_logPath.toStdString());
    QVERIFY(installFakeRpm(m_work.path()));
}

void TstProbeSysInfo::init()
{
    qunsetenv("FAKE_RPM_KYLINSEC_RELEASE");
    qunsetenv("FAKE_RPM_KYLIN_RELEASE");
    qunsetenv("FAKE_RPM_LOG");
}

QByteArrayList TstProbeSysInfo::newLogLines()
{
    QFile file(m_logPath);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(m_logMark))
        return {};
    QByteArray const text = file.readAll();
    m_logMark += text.size();
    return text.split('\n');
}

// Probes `root`, checks the line, the cache file and (unless empty) that one
// log record ends with `expectedLog`, where "ROOT" stands for the root.
void TstProbeSysInfo::runProbe(QString const& root, QByteArray const& expectedLine, QByteArray const& expectedLog)
{
    newLogLines();
    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, root.toUtf8().constData());
    QByteArray const line = lineOf(result, info);
    QCOMPARE(line, withArch(expectedLine));
    QCOMPARE(result, expectedLine.startsWith("1|") ? 1 : 0);
    if (cacheFileIsOurs("/tmp/.csysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), line + '\n');

    QByteArrayList const records = newLogLines();
    bool const debugRecord = std::any_of(records.cbegin(), records.cend(), [&](QByteArray const& record) {
        return record.endsWith(" 获取系统信息结果 " + line);
    });
    QVERIFY(debugRecord);
    if (expectedLog.isEmpty())
        return;
    QByteArray tail = expectedLog;
    tail.replace("ROOT", root.toUtf8());
    bool const logged = std::any_of(records.cbegin(), records.cend(), [&](QByteArray const& record) {
        return record.endsWith(" " + tail) && record.contains(" modules/probesys/probe_sysinfo ");
    });
    QVERIFY2(logged, (tail + "\nin:\n" + records.join('\n')).constData());
}

void TstProbeSysInfo::osReleasePath_data()
{
    QTest::addColumn<ProbeTree>("tree");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("log");
    QString const os = QStringLiteral("etc/os-release");

    auto row = [](char const* name, ProbeTree const& tree, char const* line, char const* log = "") {
        QTest::newRow(name) << tree << QByteArray(line) << QByteArray(log);
    };
    // Kylin
    row("kylin quoted, 2107", {{os, "ID=\"Kylin\"\nPRETTY_NAME=\"Kylin V10 SP1\"\nKYLIN_RELEASE_ID=\"2107\"\n"}},
        "1|kylin|v10sp12107|ARCH|0", "获取到系统名为kylin");
    row("kylin 2503 gives 2403", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin V10 SP1\"\nKYLIN_RELEASE_ID=2503\n"}},
        "1|kylin|v10sp12403|ARCH|0");
    row("kylin 4.0.2", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin 4.0.2\"\n"}}, "1|kylin|v4|ARCH|0");
    row("kylin server lance", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Lance)\"\n"
                                    "KYLIN_RELEASE_ID=2403\n"}},
        "1|kylin|v10sp3|ARCH|1");
    row("kylin server productinfo",
        {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Halberd)\"\n"},
         {QStringLiteral("etc/.productinfo"), "Kylin Linux Advanced Server\r\nrelease V10 SP1/(Halberd)-x86_64\r\n"}},
        "1|kylin|v10sp1|ARCH|1");
    row("kylin server unknown", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Halberd)\"\n"}},
        "0|kylin||ARCH|1", "ROOT/etc/.productinfo文件不存在");
    row("kylin codename", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin V11\"\nPROJECT_CODENAME=\"V11-Edu\"\n"
                                "KYLIN_RELEASE_ID=2503\n"}},
        "1|kylin|v11-edu2403|ARCH|0");
    row("kylin nothing known", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin V11\"\nKYLIN_RELEASE_ID=\"V11\"\n"}},
        "0|kylin||ARCH|0", "从ROOT/etc/os-release获取系统版本失败");
    // NeoKylin, UOS
    row("neokylin desktop", {{os, "ID=neokylin\n"}, {QStringLiteral("etc/neokylin-release"),
                                                     "NeoKylin Linux Desktop release 7.0"}},
        "1|neokylin|v7|ARCH|0");
    row("neokylin 5", {{os, "ID=neokylin\n"}, {QStringLiteral("etc/neokylin-release"), "NeoKylin Server release 5"}},
        "0|neokylin||ARCH|1", "从ROOT/etc/neokylin-release获取系统版本失败");
    row("neokylin no file", {{os, "ID=neokylin\n"}}, "0|neokylin||ARCH|1",
        "读取ROOT/etc/neokylin-release文件失败，获取neokylin系统版本失败");
    QByteArray const uosDesktop = "ID=uos\nPRETTY_NAME=\"UOS Desktop 20\"\nVERSION_ID=\"20\"\n";
    row("uos os-version first", {{os, uosDesktop}, {QStringLiteral("etc/system-release-cpe"), "cpe:/o:u:u:1050:x"},
                                 {QStringLiteral("etc/os-version"), "[Version] \r\nProductType=Server\r\n"
                                                                    "EditionName=A\r\nMinorVersion=1060"}},
        "1|uos|1060a|ARCH|1");
    row("uos home edition", {{os, uosDesktop}, {QStringLiteral("etc/os-version"),
                                                "[Version]\nProductType=Desktop\nEditionName=Home\nMinorVersion=1060\n"}},
        "0|uos||ARCH|0", "从ROOT/etc/os-version获取系统版本失败");
    row("uos os-version key missing", {{os, uosDesktop}, {QStringLiteral("etc/os-version"),
                                                          "[Version]\nProductType=Desktop\nMinorVersion=1060\n"}},
        "0|uos||ARCH|1", "从ROOT/etc/os-version获取系统版本失败");
    row("uos cpe keeps type", {{os, uosDesktop}, {QStringLiteral("etc/system-release-cpe"),
                                                  "cpe:/o:uos:uos:1050:server\n"}},
        "1|uos|1050|ARCH|1");
    row("uos cpe without field", {{os, uosDesktop}, {QStringLiteral("etc/system-release-cpe"), "cpe:/o:uos:uos:20\n"}},
        "0|uos||ARCH|1", "从ROOT/etc/system-release-cpe获取系统版本失败");
    row("uos os-release desktop", {{os, "ID=UOS\nPRETTY_NAME=\"UOS Desktop 20 Pro\"\nVERSION_ID=\"20 SP1\"\n"}},
        "1|uos|20sp1|ARCH|0");
    row("uos os-release no kind", {{os, "ID=uos\nPRETTY_NAME=\"UOS 20\"\nVERSION_ID=20\n"}}, "0|uos||ARCH|1",
        "从ROOT/etc/os-release获取系统版本失败");
    row("uos os-release no VERSION_ID", {{os, "ID=uos\nPRETTY_NAME=\"UOS Server 20\"\n"}}, "0|uos||ARCH|1",
        "从ROOT/etc/os-release获取VERSION_ID字段失败");
    // The rest of the table, in its order
    row("centos", {{os, "ID=\"centos\"\n"}, {QStringLiteral("etc/centos-release"),
                                             "CentOS Linux release 7.9.2009 (Core)\n"}},
        "1|centos|7.9.2009|ARCH|1");
    row("centos no digits", {{os, "ID=centos\n"}, {QStringLiteral("etc/centos-release"), "CentOS Stream\n"}},
        "0|centos||ARCH|1", "从ROOT/etc/centos-release获取系统版本失败");
    row("centos no file", {{os, "ID=centos\n"}}, "0|centos||ARCH|1",
        "读取ROOT/etc/centos-release文件失败，获取centos系统版本失败");
    row("rhel", {{os, "ID=rhel\n"}, {QStringLiteral("etc/redhat-release"), "Red Hat Enterprise Linux release 9.4 (Plow)"}},
        "1|redhat|9.4|ARCH|1");
    row("rhel no file", {{os, "ID=\"rhel\"\n"}}, "0|redhat||ARCH|1",
        "读取ROOT/etc/redhat-release文件失败，获取redhat系统版本失败");
    row("ubuntu crlf quoted", {{os, "ID=ubuntu\r\nVERSION_ID=\"22.04\"\r\n"}}, "1|ubuntu|22.04|ARCH|1");
    row("ubuntu no VERSION_ID", {{os, "ID=ubuntu\n"}, {QStringLiteral("etc/ubuntu-release"), "Ubuntu 9.10\n"}},
        "0|ubuntu||ARCH|1", "从ROOT/etc/os-release获取VERSION_ID字段失败");
    row("alpine", {{os, "ID=alpine\nVERSION_ID=3.19.8"}}, "1|alpine|3.19.8|ARCH|1");
    row("bclinux", {{os, "ID=\"bclinux\"\nVERSION_ID=\"21.10\"\n"}}, "1|bclinux|21.10|ARCH|1");
    row("nfsdesktop", {{os, "ID=nfsdesktop\nVERSION=\"4.0 (Desktop)\"\n"}}, "1|nfs|4.0 (desktop)|ARCH|0");
    row("nfsserver", {{os, "ID=nfsserver\nVERSION=3.0\n"}}, "1|nfs|3.0|ARCH|1");
    row("nfs no VERSION", {{os, "ID=nfs\nVERSION_ID=3.0\n"}}, "0|nfs||ARCH|1",
        "从ROOT/etc/os-release获取VERSION字段失败");
    row("sles_sap", {{os, "ID=\"sles_sap\"\nVERSION_ID=\"15.4\"\n"}}, "1|suse|15.4|ARCH|1");
    row("mysles is not sles", {{os, "ID=mysles\nVERSION_ID=1.0\n"}}, "1|mysles|1.0|ARCH|1");
    row("opensuse-tumbleweed", {{os, "ID=\"opensuse-tumbleweed\"\nVERSION_ID=\"20240101\"\n"}},
        "1|opensuse|20240101|ARCH|1");
    row("openEuler", {{os, "ID=openEuler\nVERSION=\"22.03 (LTS-SP1)\"\n"}}, "1|openeuler|22.03 (lts-sp1)|ARCH|1");
    row("openEuler no VERSION", {{os, "ID=openEuler\nVERSION_ID=22.03\n"}}, "0|openeuler||ARCH|1",
        "从ROOT/etc/os-release获取VERSION字段失败");
    row("euleros", {{os, "ID=euleros\nVERSION=\"2.0 (SP8)\"\n"}}, "1|euleros|2.0 (sp8)|ARCH|1");
    row("anolis", {{os, "ID=anolis\nVERSION=\"8.8\"\nVERSION_ID=\"8.8\"\n"}}, "1|anolis|8.8|ARCH|1");
    row("kylinsecos desktop", {{os, "ID=kylinsecos\nVERSION_ID=\"3.4\"\n"},
                               {QStringLiteral("etc/.kyinfo"), "[dist]\nname=KylinSec OS Desktop\n"}},
        "1|kylinsecos|3.4|ARCH|0", "获取kylinsec的kylin-release信息失败");
    row("kylinsecos dist_id", {{os, "ID=kylinsecos\nVERSION_ID=3.4\n"},
                               {QStringLiteral("etc/.kyinfo"), "[dist]\nname=KylinSec\ndist_id=KYLINSEC-SERVER-3.4\n"}},
        "1|kylinsecos|3.4|ARCH|1", "获取kylinsec的dist_id为kylinsec-server-3.4");
    row("ctyunos", {{os, "ID=\"ctyunos\"\nVERSION_ID=\"2.0.1\"\n"}}, "1|ctyunos|2.0.1|ARCH|1");
    row("debian", {{os, "ID=debian\n"}, {QStringLiteral("etc/debian-version"), "Bookworm/SID \r\nx\n"}},
        "1|debian|bookworm/sid|ARCH|1");
    row("debian_version is not read", {{os, "ID=debian\n"}, {QStringLiteral("etc/debian_version"), "12.5\n"}},
        "0|debian||ARCH|1", "ROOT/etc/debian-version文件不存在");
    row("debian empty line", {{os, "ID=debian\n"}, {QStringLiteral("etc/debian-version"), " \nfoo\n"}},
        "0|debian||ARCH|1", "从ROOT/etc/debian-version获取系统版本失败");
    row("unknown ID", {{os, "ID=\"Hce\" # comment\nVERSION_ID=2.0"}}, "1|hce|2.0|ARCH|1");
    row("unknown ID no VERSION_ID", {{os, "ID=tencentos\n"}}, "0|tencentos||ARCH|1",
        "从ROOT/etc/os-release获取VERSION_ID字段失败");
    // Broken os-release files
    row("no ID", {{os, "NAME=x\n"}}, "0|||ARCH|1", "从ROOT/etc/os-release获取ID字段失败");
    row("empty ID", {{os, "ID=\"\"\nVERSION_ID=1\n"}}, "0|||ARCH|1", "从ROOT/etc/os-release获取ID字段失败");
    row("empty file", {{os, ""}}, "0|||ARCH|1", "从ROOT/etc/os-release获取ID字段失败");
    row("binary", {{os, QByteArray("\x7f" "ELF\0\x02\x01\nID=bin\0ary\n\xff\xfe", 21)}}, "0|bin||ARCH|1");
}

void TstProbeSysInfo::osReleasePath()
{
    QFETCH(ProbeTree, tree);
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, log);
    QTemporaryDir root;
    QVERIFY(writeTree(root.path(), tree));
    runProbe(root.path(), line, log);
}

void TstProbeSysInfo::releaseFilePath_data()
{
    QTest::addColumn<ProbeTree>("tree");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("log");
    auto row = [](char const* name, ProbeTree const& tree, char const* line, char const* log = "") {
        QTest::newRow(name) << tree << QByteArray(line) << QByteArray(log);
    };
    row("nothing", {{QStringLiteral("etc/hostname"), "x\n"}}, "0|||ARCH|1");
    row("oracle", {{QStringLiteral("etc/oracle-release"), "Oracle Linux Server release 7.5"}}, "1|ol|7.5|ARCH|1");
    row("oracle before centos", {{QStringLiteral("etc/oracle-release"), "Oracle Linux Server release 8.7\n"},
                                 {QStringLiteral("etc/centos-release"), "CentOS Linux release 8.1.1911 (Core)\n"}},
        "1|ol|8.7|ARCH|1");
    row("rocky", {{QStringLiteral("etc/rocky-release"), "Rocky Linux release 9.5 (Blue Onyx)\n"},
                  {QStringLiteral("etc/redhat-release"), "Rocky Linux release 9.5 (Blue Onyx)\n"}},
        "1|rocky|9.5|ARCH|1");
    row("openEuler", {{QStringLiteral("etc/openEuler-release"), "openEuler release 22.03 (LTS-SP1)\n"}},
        "1|openeuler|22.03|ARCH|1");
    row("euleros", {{QStringLiteral("etc/euleros-release"), "EulerOS release 2.0 (SP8)\n"}},
        "1|euleros|2.0|ARCH|1");
    row("anolis", {{QStringLiteral("etc/anolis-release"), "Anolis OS release 8.8\n"}}, "1|anolis|8.8|ARCH|1");
    row("anolis no digits", {{QStringLiteral("etc/anolis-release"), "Anolis OS\n"}}, "0|anolis||ARCH|1",
        "从ROOT/etc/anolis-release获取系统版本失败");
    row("sles 11 sp4", {{QStringLiteral("etc/SuSE-release"),
                         "SUSE Linux Enterprise Server 11 (x86_64)\nVERSION = 11\nPATCHLEVEL = 4\n"}},
        "1|suse|11.4|ARCH|1");
    row("opensuse no VERSION", {{QStringLiteral("etc/SuSE-release"), "openSUSE 42.1 (x86_64)"}},
        "0|opensuse||ARCH|1", "从ROOT/etc/SuSE-release获取系统版本失败");
    row("neokylin server", {{QStringLiteral("etc/neokylin-release"), "NeoKylin Linux Server release V7Update6\n"},
                            {QStringLiteral("etc/redhat-release"), "Red Hat Enterprise Linux release 7.6\n"}},
        "1|neokylin|v7|ARCH|1");
    row("centos crlf", {{QStringLiteral("etc/centos-release"), "CentOS release 6.10 (Final)\r\n"}},
        "1|centos|6.10|ARCH|1");
    row("redhat file of centos", {{QStringLiteral("etc/redhat-release"), "CentOS Linux release 7.9.2009 (Core)\n"}},
        "1|centos|7.9.2009|ARCH|1");
    row("redhat", {{QStringLiteral("etc/redhat-release"), "Red Hat Enterprise Linux Server release 7.7 (Maipo)\n"}},
        "1|redhat|7.7|ARCH|1");
    row("redhat file of centos stream", {{QStringLiteral("etc/redhat-release"), "CentOS Stream release\n"}},
        "0|centos||ARCH|1", "从ROOT/etc/redhat-release获取系统版本失败");
    row("ubuntu", {{QStringLiteral("etc/ubuntu-release"), "Ubuntu 9.10"}}, "1|ubuntu|9.10|ARCH|1");
    row("kylin-release means kylinsec", {{QStringLiteral("etc/kylin-release"), "Kylin Linux Desktop release V10\n"},
                                         {QStringLiteral("etc/.kyinfo"), "[dist]\nname=Kylin Desktop\n"}},
        "0|kylinsecos||ARCH|0", "从ROOT/etc/os-release获取VERSION_ID字段失败");
    row("kylinsec-release", {{QStringLiteral("etc/kylinsec-release"), "KylinSec release 3.4\n"}},
        "0|kylinsecos||ARCH|1", "获取kylinsec的name为");
}

void TstProbeSysInfo::releaseFilePath()
{
    osReleasePath();
}

void TstProbeSysInfo::kylinsecRpm_data()
{
    QTest::addColumn<QByteArray>("kylinsecAnswer");
    QTest::addColumn<QByteArray>("kylinAnswer");
    QTest::addColumn<bool>("withOsRelease");
    QTest::addColumn<QByteArray>("line");
    QByteArray const notInstalled = "package kylinsec-release is not installed\n";
    QTest::newRow("two-part version") << QByteArray("4.0|12.ky3\n") << QByteArray() << false
                                      << QByteArray("1|kylinsecos|4.0-12|ARCH|1");
    QTest::newRow("three-part version") << QByteArray("3.4.1|5.ky3\n") << QByteArray() << false
                                        << QByteArray("1|kylinsecos|3.4.1|ARCH|1");
    QTest::newRow("kylin-release next") << notInstalled << QByteArray("3.3|9.ky3\n") << false
                                        << QByteArray("1|kylinsecos|3.3-9|ARCH|1");
    QTest::newRow("os-release last") << notInstalled << QByteArray("") << true
                                     << QByteArray("1|kylinsecos|3.4|ARCH|1");
    QTest::newRow("nothing") << notInstalled << notInstalled << false << QByteArray("0|kylinsecos||ARCH|1");
}

void TstProbeSysInfo::kylinsecRpm()
{
    QFETCH(QByteArray, kylinsecAnswer);
    QFETCH(QByteArray, kylinAnswer);
    QFETCH(bool, withOsRelease);
    QFETCH(QByteArray, line);
    QTemporaryDir root;
    ProbeTree tree{{QStringLiteral("etc/kylinsec-release"), "KylinSec release\n"},
                   {QStringLiteral("etc/.kyinfo"), "[dist]\nname=KylinSec OS Server\n"}};
    if (withOsRelease)
        tree.insert(QStringLiteral("etc/os-release"), "ID=kylinsecos-server\nVERSION_ID=\"3.4\"\n");
    QVERIFY(writeTree(root.path(), tree));
    QString const rpmLog = root.filePath(QStringLiteral("rpm.log"));
    qputenv("FAKE_RPM_KYLINSEC_RELEASE", kylinsecAnswer);
    qputenv("FAKE_RPM_KYLIN_RELEASE", kylinAnswer);
    qputenv("FAKE_RPM_LOG", rpmLog.toLocal8Bit());

    runProbe(root.path(), line, QByteArray());

    // The queries are the fixed commands, whatever the tree holds.
    QByteArrayList const calls = readFile(rpmLog).split('\n');
    QVERIFY(calls.size() >= 2);
    QCOMPARE(calls.at(0), QByteArray("C -q --queryformat %{VERSION}|%{RELEASE}\\n kylinsec-release"));
    if (!kylinsecAnswer.contains('|'))
        QCOMPARE(calls.at(1), QByteArray("C -q --queryformat %{VERSION}|%{RELEASE}\\n kylin-release"));
}

void TstProbeSysInfo::messyFiles_data()
{
    QTest::addColumn<QString>("special");
    QTest::addColumn<ProbeTree>("tree");
    QTest::addColumn<QByteArray>("line");
    QByteArray const pad = QByteArray("# padding line\n").repeated(80000); // 1.2 MB
    QTest::newRow("os-release is a FIFO") << "fifo" << ProbeTree() << QByteArray("0|||ARCH|1");
    QTest::newRow("os-release is a folder") << "folder" << ProbeTree() << QByteArray("0|||ARCH|1");
    QTest::newRow("dangling os-release link")
        << "link" << ProbeTree{{QStringLiteral("etc/oracle-release"), "Oracle Linux Server release 7.9\n"}}
        << QByteArray("1|ol|7.9|ARCH|1");
    QTest::newRow("relative os-release link")
        << "link" << ProbeTree{{QStringLiteral("usr/lib/os-release"), "ID=alpine\nVERSION_ID=3.22.1\n"}}
        << QByteArray("1|alpine|3.22.1|ARCH|1");
    QTest::newRow("key after the first MiB is not seen")
        << "" << ProbeTree{{QStringLiteral("etc/os-release"), "ID=alpine\n" + pad + "VERSION_ID=3.0\n"}}
        << QByteArray("0|alpine||ARCH|1");
    QTest::newRow("ID after the first MiB is not seen")
        << "" << ProbeTree{{QStringLiteral("etc/os-release"), pad + "ID=alpine\nVERSION_ID=3.0\n"}}
        << QByteArray("0|||ARCH|1");
    QTest::newRow("huge release file")
        << "" << ProbeTree{{QStringLiteral("etc/centos-release"), QByteArray(3 << 20, 'x') + " 7.0\n"}}
        << QByteArray("0|centos||ARCH|1");
}

void TstProbeSysInfo::messyFiles()
{
    QFETCH(QString, special);
    QFETCH(ProbeTree, tree);
    QFETCH(QByteArray, line);
    QTemporaryDir root;
    QVERIFY(writeTree(root.path(), tree));
    QVERIFY(QDir(root.path()).mkpath(QStringLiteral("etc")));
    QString const osRelease = root.filePath(QStringLiteral("etc/os-release"));
    if (special == QLatin1String("fifo"))
        QCOMPARE(::mkfifo(osRelease.toLocal8Bit().constData(), 0644), 0);
    else if (special == QLatin1String("folder"))
        QVERIFY(QDir().mkpath(osRelease));
    else if (special == QLatin1String("link"))
        QVERIFY(QFile::link(QStringLiteral("../usr/lib/os-release"), osRelease));
    runProbe(root.path(), line, QByteArray());
}

void TstProbeSysInfo::fieldFormKeepsCallerType_data()
{
    QTest::addColumn<ProbeTree>("tree");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("nothing found") << ProbeTree() << 0 << QByteArray() << 7;
    QTest::newRow("ctyunos leaves type") << ProbeTree{{QStringLiteral("etc/os-release"), "ID=ctyunos\nVERSION_ID=2\n"}}
                                         << 1 << QByteArray("ctyunos") << 7;
    QTest::newRow("kylin desktop sets 0")
        << ProbeTree{{QStringLiteral("etc/os-release"), "ID=kylin\nPRETTY_NAME=\"Kylin V10\"\n"}} << 1
        << QByteArray("kylin") << 0;
    QTest::newRow("alpine sets 1") << ProbeTree{{QStringLiteral("etc/os-release"), "ID=alpine\nVERSION_ID=3\n"}} << 1
                                   << QByteArray("alpine") << 1;
}

void TstProbeSysInfo::fieldFormKeepsCallerType()
{
    QFETCH(ProbeTree, tree);
    QFETCH(int, result);
    QFETCH(QByteArray, name);
    QFETCH(int, type);
    QTemporaryDir root;
    QVERIFY(writeTree(root.path(), tree));
    std::string gotName = "stale";
    std::string gotVersion = "stale";
    std::string gotArch;
    int gotType = 7;
    newLogLines();
    QCOMPARE(CProbeSysInfo::getPlatformSystemInfo(gotName, gotArch, gotVersion, gotType,
                                                  root.path().toUtf8().constData()),
             result);
    QCOMPARE(QByteArray::fromStdString(gotName), name);
    QCOMPARE(gotVersion.empty(), result == 0);
    QCOMPARE(gotArch, CProbeSysInfo::getArch());
    QCOMPARE(gotType, type);
    QByteArray const line =
        QByteArray::fromStdString(CProbeSysInfo::cacheLine(result, gotName, gotVersion, gotArch, gotType));
    QByteArrayList const records = newLogLines();
    // The field form logs the bare line, without the record form's words.
    QVERIFY(std::any_of(records.cbegin(), records.cend(), [&](QByteArray const& record) {
        return record.contains(" getPlatformSystemInfo:") && record.endsWith(" " + line)
               && !record.contains("获取系统信息结果");
    }));
}

void TstProbeSysInfo::readersOutsideTheTables()
{
    QTemporaryDir root;
    QVERIFY(writeTree(root.path(), {{QStringLiteral("etc/os-release"),
                                     "ID=\"Foo\"\nVERSION=\"1 (X)\"\nVERSION_ID=\"1.0\"\n"}}));
    std::string path = root.filePath(QStringLiteral("etc/os-release")).toStdString();
    std::string name;
    std::string version;
    QCOMPARE(CProbeSysInfo::get_os_name_version(name, version, path), 1);
    QCOMPARE(name, std::string("foo"));
    QCOMPARE(version, std::string("1 (x)"));
    QCOMPARE(CProbeSysInfo::get_alpine(version, root.path().toStdString()), 1);
    QCOMPARE(version, std::string("1.0"));
    QCOMPARE(CProbeSysInfo::get_bclinux(version, root.path().toStdString()), 1);
    QCOMPARE(version, std::string("1.0"));
    QCOMPARE(CProbeSysInfo::get_os_version(nullptr, version), 0);
    QCOMPARE(CProbeSysInfo::execCmd("printf 'a|b'"), std::string("a|b"));
    QCOMPARE(CProbeSysInfo::execCmd("exit 3"), std::string());
}

void TstProbeSysInfo::isGFBKylin_data()
{
    QTest::addColumn<ProbeTree>("tree");
    QTest::newRow("no kyinfo") << ProbeTree();
    QTest::newRow("GFB upper case") << ProbeTree{{QStringLiteral("etc/.kyinfo"), "[dist]\ndist_id=GFB-desktop\n"}};
    QTest::newRow("gfb lower case") << ProbeTree{{QStringLiteral("etc/.kyinfo"), "[dist]\ndist_id=gfb\n"}};
}

void TstProbeSysInfo::isGFBKylin()
{
    QFETCH(ProbeTree, tree);
    QTemporaryDir root;
    QVERIFY(writeTree(root.path(), tree));
    // Lower-cased before "GFB" is sought: never true, on purpose.
    QVERIFY(!CProbeSysInfo::isGFBKylin(root.path().toStdString()));
}

void TstProbeSysInfo::cacheFileIsReplacedWithMode0644()
{
    char const* const cache = "/tmp/.csysinfo";
    if (!cacheFileIsOurs(cache))
        QSKIP("/tmp/.csysinfo belongs to another user");
    QTemporaryDir longTree;
    QTemporaryDir shortTree;
    QVERIFY(writeTree(longTree.path(), {{QStringLiteral("etc/os-release"),
                                         "ID=averyveryverylongname\nVERSION_ID=1.2.3.4.5.6.7.8.9\n"}}));
    mode_t const previous = ::umask(077);
    probe_sysinfo_s info;
    CProbeSysInfo::getPlatformSystemInfo(info, longTree.path().toUtf8().constData());
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, shortTree.path().toUtf8().constData());
    ::umask(previous);

    QCOMPARE(readFile(QString::fromLatin1(cache)), lineOf(result, info) + '\n');
    struct stat st {};
    QCOMPARE(::lstat(cache, &st), 0);
    QVERIFY(S_ISREG(st.st_mode));
    QCOMPARE(st.st_mode & 07777, mode_t(0644));
}

void TstProbeSysInfo::hostProbeWritesHostCache()
{
    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, nullptr);
    QCOMPARE(info.os_arch, CProbeSysInfo::getArch());
    QVERIFY(info.os_type == 0 || info.os_type == 1);
    QCOMPARE(result == 1, !info.os_version.empty());
    if (cacheFileIsOurs("/tmp/.hsysinfo"))
        QCOMPARE(readFile(QStringLiteral("/tmp/.hsysinfo")), lineOf(result, info) + '\n');
}

QTEST_GUILESS_MAIN(TstProbeSysInfo)
#include "tst_probe_sysinfo.moc"
