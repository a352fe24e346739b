// The probe over system trees built in temporary folders: the os-release
// table, the release-file table, each distribution reader's rules, one log
// text of each kind of failure, messy files and the cache file; and the text
// rules of the readers over text in memory.

#include "clogdebug.h"
#include "probe_sysinfo.h"
#include "probetree.h"
#include "release_text.h"

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
    void probe_data();
    void probe();
    void fieldFormKeepsCallerType();
    void cacheFileIsReplacedWithMode0644();
    void releaseText_data();
    void releaseText();

private:
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

void TstProbeSysInfo::probe_data()
{
    QTest::addColumn<ProbeTree>("tree");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("log");
    auto row = [](char const* name, ProbeTree const& tree, char const* line, char const* log = "") {
        QTest::newRow(name) << tree << QByteArray(line) << QByteArray(log);
    };
    QString const os = etc("os-release");
    // The os-release table, in its order.
    row("centos first digit token", {{os, "ID=\"centos\"\n"}, {etc("centos-release"), "CentOS 7.9.2009 (Core) 8\n"}},
        "1|centos|7.9.2009|ARCH|1");
    row("centos no digits", {{os, "ID=centos\n"}, {etc("centos-release"), "CentOS Stream\n"}}, "0|centos||ARCH|1");
    row("centos no file", {{os, "ID=centos\n"}}, "0|centos||ARCH|1",
        "读取ROOT/etc/centos-release文件失败，获取centos系统版本失败");
    row("ubuntu crlf quoted", {{os, "ID=ubuntu\r\nVERSION_ID=\"22.04\"\r\n"}}, "1|ubuntu|22.04|ARCH|1");
    row("ubuntu no VERSION_ID", {{os, "ID=ubuntu\n"}, {etc("ubuntu-release"), "Ubuntu 9.10\n"}}, "0|ubuntu||ARCH|1",
        "从ROOT/etc/os-release获取VERSION_ID字段失败");
    // UOS: os-version, else system-release-cpe, else os-release.
    QByteArray const uosDesktop = "ID=uos\nPRETTY_NAME=\"UOS Desktop 20\"\nVERSION_ID=\"20\"\n";
    row("uos os-version first",
        {{os, uosDesktop}, {etc("system-release-cpe"), "cpe:/o:u:u:1050:x"},
         {etc("os-version"), "[Version] \r\nProductType=Server\r\nEditionName=A\r\nMinorVersion=1060"}},
        "1|uos|1060a|ARCH|1");
    row("uos home edition",
        {{os, uosDesktop}, {etc("system-release-cpe"), "cpe:/o:u:u:1050:x"},
         {etc("os-version"), "[Version]\nProductType=Desktop\nEditionName=Home\nMinorVersion=1060\n"}},
        "0|uos||ARCH|0");
    row("uos cpe keeps type", {{os, uosDesktop}, {etc("system-release-cpe"), "cpe:/o:uos:uos:1050:server\n"}},
        "1|uos|1050|ARCH|1");
    row("uos os-release desktop", {{os, "ID=UOS\nPRETTY_NAME=\"UOS Desktop 20 Pro\"\nVERSION_ID=\"20 SP1\"\n"}},
        "1|uos|20sp1|ARCH|0");
    row("uos os-release no kind", {{os, "ID=uos\nPRETTY_NAME=\"UOS 20\"\nVERSION_ID=20\n"}}, "0|uos||ARCH|1");
    // Kylin: desktop names, server code names, .productinfo; KYLIN_RELEASE_ID only on the desktop.
    row("kylin quoted, 2107", {{os, "ID=\"Kylin\"\nPRETTY_NAME=\"Kylin V10 SP1\"\nKYLIN_RELEASE_ID=\"2107\"\n"}},
        "1|kylin|v10sp12107|ARCH|0");
    row("kylin server lance",
        {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Lance)\"\nKYLIN_RELEASE_ID=2403\n"}},
        "1|kylin|v10sp3|ARCH|1");
    row("kylin server productinfo",
        {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Halberd)\"\n"},
         {etc(".productinfo"), "Kylin Linux Advanced Server\r\nrelease V10 SP1/(Halberd)-x86_64\r\n"}},
        "1|kylin|v10sp1|ARCH|1");
    row("kylin server unknown", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin Linux Advanced Server V10 (Halberd)\"\n"}},
        "0|kylin||ARCH|1", "ROOT/etc/.productinfo文件不存在");
    row("kylin codename", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin V11\"\nPROJECT_CODENAME=\"V11-Edu\"\n"
                                "KYLIN_RELEASE_ID=2503\n"}},
        "1|kylin|v11-edu2403|ARCH|0");
    row("kylin nothing known", {{os, "ID=kylin\nPRETTY_NAME=\"Kylin V11\"\nKYLIN_RELEASE_ID=\"V11\"\n"}},
        "0|kylin||ARCH|0", "从ROOT/etc/os-release获取系统版本失败");
    row("neokylin desktop", {{os, "ID=neokylin\n"}, {etc("neokylin-release"), "NeoKylin Linux Desktop release 7.0"}},
        "1|neokylin|v7|ARCH|0");
    row("alpine", {{os, "ID=alpine\nVERSION_ID=3.19.8"}}, "1|alpine|3.19.8|ARCH|1");
    row("nfsdesktop", {{os, "ID=nfsdesktop\nVERSION=\"4.0 (Desktop)\"\n"}}, "1|nfs|4.0 (desktop)|ARCH|0");
    row("nfs no VERSION", {{os, "ID=nfs\nVERSION_ID=3.0\n"}}, "0|nfs||ARCH|1",
        "从ROOT/etc/os-release获取VERSION字段失败");
    row("sles_sap", {{os, "ID=\"sles_sap\"\nVERSION_ID=\"15.4\"\n"}}, "1|suse|15.4|ARCH|1");
    row("mysles is not sles", {{os, "ID=mysles\nVERSION_ID=1.0\n"}}, "1|mysles|1.0|ARCH|1");
    row("opensuse-tumbleweed", {{os, "ID=\"opensuse-tumbleweed\"\nVERSION_ID=\"20240101\"\n"}},
        "1|opensuse|20240101|ARCH|1");
    row("anolis", {{os, "ID=anolis\nVERSION=\"8.8 x\"\nVERSION_ID=\"8.8\"\n"}}, "1|anolis|8.8|ARCH|1");
    row("kylinsecos desktop", {{os, "ID=kylinsecos\nVERSION_ID=\"3.4\"\n"},
                               {etc(".kyinfo"), "[dist]\nname=KylinSec OS Desktop\n"}},
        "1|kylinsecos|3.4|ARCH|0", "获取kylinsec的kylin-release信息失败");
    row("kylinsecos dist_id", {{os, "ID=kylinsecos\nVERSION_ID=3.4\n"},
                               {etc(".kyinfo"), "[dist]\nname=KylinSec\ndist_id=KYLINSEC-SERVER-3.4\n"}},
        "1|kylinsecos|3.4|ARCH|1");
    QByteArray const kylinsecServer = "ID=kylinsecos-server\nVERSION_ID=3.4\n";
    row("kylinsecos rpm first", {{os, kylinsecServer}, {"$FAKE_RPM_KYLINSEC_RELEASE", "4.0|12.ky3\n"},
                                 {"$FAKE_RPM_KYLIN_RELEASE", "3.3|9.ky3\n"}},
        "1|kylinsecos|4.0-12|ARCH|1");
    row("kylinsecos rpm kylin-release next",
        {{os, kylinsecServer}, {"$FAKE_RPM_KYLINSEC_RELEASE", "package kylinsec-release is not installed\n"},
         {"$FAKE_RPM_KYLIN_RELEASE", "3.3|9.ky3\n"}},
        "1|kylinsecos|3.3-9|ARCH|1");
    row("ctyunos", {{os, "ID=\"ctyunos\"\nVERSION_ID=\"2.0.1\"\n"}}, "1|ctyunos|2.0.1|ARCH|1");
    row("debian", {{os, "ID=debian\n"}, {etc("debian-version"), "Bookworm/SID \r\nx\n"}},
        "1|debian|bookworm/sid|ARCH|1");
    row("unknown ID", {{os, "ID=\"Hce\" # comment\nVERSION_ID=2.0"}}, "1|hce|2.0|ARCH|1");
    row("no ID", {{os, "NAME=x\n"}}, "0|||ARCH|1", "从ROOT/etc/os-release获取ID字段失败");
    row("empty ID", {{os, "ID=\"\"\nVERSION_ID=1\n"}}, "0|||ARCH|1");
    row("binary", {{os, QByteArray("\x7f" "ELF\0\x02\x01\nID=bin\0ary\n\xff\xfe", 21)}}, "0|bin||ARCH|1");
    // Without os-release: the release-file table, in its order.
    row("oracle before centos", {{etc("oracle-release"), "Oracle Linux Server release 8.7\n"},
                                 {etc("centos-release"), "CentOS Linux release 8.1.1911 (Core)\n"}},
        "1|ol|8.7|ARCH|1");
    row("rocky before redhat", {{etc("rocky-release"), "Rocky Linux release 9.5 (Blue Onyx)\n"},
                                {etc("redhat-release"), "Red Hat Enterprise Linux release 9.4\n"}},
        "1|rocky|9.5|ARCH|1");
    row("openEuler file", {{etc("openEuler-release"), "openEuler release 22.03 (LTS-SP1)\n"}},
        "1|openeuler|22.03|ARCH|1");
    row("anolis no digits", {{etc("anolis-release"), "Anolis OS\n"}}, "0|anolis||ARCH|1");
    row("sles 11 sp4", {{etc("SuSE-release"), "SUSE Linux Enterprise Server 11\nVERSION = 11\nPATCHLEVEL = 4\n"}},
        "1|suse|11.4|ARCH|1");
    row("neokylin before redhat", {{etc("neokylin-release"), "NeoKylin Linux Server release V7Update6\n"},
                                   {etc("redhat-release"), "Red Hat Enterprise Linux release 7.6\n"}},
        "1|neokylin|v7|ARCH|1");
    row("centos crlf", {{etc("centos-release"), "CentOS release 6.10 (Final)\r\n"}}, "1|centos|6.10|ARCH|1");
    row("redhat file of centos", {{etc("redhat-release"), "CentOS Linux release 7.9.2009 (Core)\n"}},
        "1|centos|7.9.2009|ARCH|1");
    row("redhat", {{etc("redhat-release"), "Red Hat Enterprise Linux Server release 7.7 (Maipo)\n"}},
        "1|redhat|7.7|ARCH|1");
    row("ubuntu", {{etc("ubuntu-release"), "Ubuntu 9.10"}}, "1|ubuntu|9.10|ARCH|1");
    row("kylin-release means kylinsec", {{etc("kylin-release"), "Kylin Linux Desktop release V10\n"},
                                         {etc(".kyinfo"), "[dist]\nname=Kylin Desktop\n"}},
        "0|kylinsecos||ARCH|0");
    row("kylinsec-release", {{etc("kylinsec-release"), "KylinSec release 3.4\n"}}, "0|kylinsecos||ARCH|1");
    row("kylinsec-release, rpm", {{etc("kylinsec-release"), "KylinSec\n"}, {"$FAKE_RPM_KYLINSEC_RELEASE", "3.4.1|5"}},
        "1|kylinsecos|3.4.1|ARCH|1");
    // Messy files.
    QByteArray const pad = QByteArray("# padding line\n").repeated(80000); // 1.2 MB
    // Still an os-release (read, no ID) without blocking; a dangling link is none.
    QByteArray const oracle = "Oracle Linux Server release 7.9\n";
    row("os-release is a FIFO", {{os, "<fifo>"}, {etc("oracle-release"), oracle}}, "0|||ARCH|1");
    row("os-release is a folder", {{os, "<folder>"}, {etc("oracle-release"), oracle}}, "0|||ARCH|1");
    row("dangling os-release link", {{os, "-> ../usr/lib/os-release"}, {etc("oracle-release"), oracle}},
        "1|ol|7.9|ARCH|1");
    row("relative os-release link",
        {{os, "-> ../usr/lib/os-release"}, {"usr/lib/os-release", "ID=alpine\nVERSION_ID=3.22.1\n"}},
        "1|alpine|3.22.1|ARCH|1");
    row("key after the first MiB is not seen", {{os, "ID=alpine\n" + pad + "VERSION_ID=3.0\n"}}, "0|alpine||ARCH|1");
    row("huge release file", {{etc("centos-release"), QByteArray(3 << 20, 'x') + " 7.0\n"}}, "0|centos||ARCH|1");
}

// Tree entries beyond plain files: "$VAR" sets a variable for the fake rpm,
// "<fifo>" and "<folder>" make those, "-> target" a symbolic link. The log must
// hold the result record and (unless empty) a record ending with `log`, where
// "ROOT" stands for the root.
void TstProbeSysInfo::probe()
{
    QFETCH(ProbeTree, tree);
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, log);
    QTemporaryDir root;
    for (auto it = tree.cbegin(); it != tree.cend(); ++it) {
        QString const path = root.filePath(it.key());
        QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
        if (it.key().startsWith(QLatin1Char('$')))
            qputenv(it.key().mid(1).toLatin1().constData(), it.value());
        else if (it.value() == "<fifo>")
            QCOMPARE(::mkfifo(path.toLocal8Bit().constData(), 0644), 0);
        else if (it.value() == "<folder>")
            QVERIFY(QDir().mkpath(path));
        else if (it.value().startsWith("-> "))
            QVERIFY(QFile::link(QString::fromLatin1(it.value().mid(3)), path));
        else
            QVERIFY(writeFile(path, it.value()));
    }
    QString const rpmLog = root.filePath(QStringLiteral("rpm.log"));
    qputenv("FAKE_RPM_LOG", rpmLog.toLocal8Bit());
    newLogLines();

    QByteArray const got = probeLine(root.path());
    QCOMPARE(got, withArch(line));
    if (cacheFileIsOurs(QStringLiteral("/tmp/.csysinfo")))
        QCOMPARE(readFile(QStringLiteral("/tmp/.csysinfo")), got + '\n');
    QByteArrayList const records = newLogLines();
    auto logged = [&](QByteArray const& tail) {
        return std::any_of(records.cbegin(), records.cend(), [&](QByteArray const& record) {
            return record.endsWith(" " + tail) && record.contains(" modules/probesys/probe_sysinfo ");
        });
    };
    QVERIFY(logged("获取系统信息结果 " + got));
    log.replace("ROOT", root.path().toUtf8());
    QVERIFY2(log.isEmpty() || logged(log), (log + "\nin:\n" + records.join('\n')).constData());
    // rpm is only ever asked the fixed queries, in the C locale, kylinsec-release first.
    QByteArrayList const calls = readFile(rpmLog).split('\n');
    QByteArray const query = "C -q --queryformat %{VERSION}|%{RELEASE}\\n ";
    QVERIFY(calls.first().isEmpty() || calls.first() == query + "kylinsec-release");
    for (QByteArray const& call : calls)
        QVERIFY2(call.isEmpty() || call == query + "kylinsec-release" || call == query + "kylin-release", call);
}

// The field form leaves the caller's type alone unless the reader sets it.
void TstProbeSysInfo::fieldFormKeepsCallerType()
{
    QTemporaryDir root;
    for (QByteArray const& expected : {QByteArray("0|||ARCH|7"), QByteArray("1|kylin|v10|ARCH|0")}) {
        std::string name = "stale";
        std::string version = "stale";
        std::string arch;
        int type = 7;
        int const result =
            CProbeSysInfo::getPlatformSystemInfo(name, arch, version, type, root.path().toUtf8().constData());
        std::string const line = CProbeSysInfo::cacheLine(result, name, version, arch, type);
        QCOMPARE(QByteArray::fromStdString(line), withArch(expected));
        QVERIFY(writeFile(root.filePath(etc("os-release")), "ID=kylin\nPRETTY_NAME=\"Kylin V10\"\n"));
    }
}

void TstProbeSysInfo::cacheFileIsReplacedWithMode0644()
{
    char const* const cache = "/tmp/.csysinfo";
    if (!cacheFileIsOurs(cache))
        QSKIP("/tmp/.csysinfo belongs to another user");
    QTemporaryDir longTree;
    QTemporaryDir shortTree;
    QVERIFY(writeFile(longTree.filePath(etc("os-release")), "ID=averyveryverylongname\nVERSION_ID=1.2.3.4.5.6.7\n"));
    mode_t const previous = ::umask(077);
    probeLine(longTree.path());
    QByteArray const line = probeLine(shortTree.path());
    ::umask(previous);

    QCOMPARE(readFile(QString::fromLatin1(cache)), line + '\n');
    struct stat st {};
    QCOMPARE(::lstat(cache, &st), 0);
    QVERIFY(S_ISREG(st.st_mode));
    QCOMPARE(st.st_mode & 07777, mode_t(0644));
}

void TstProbeSysInfo::releaseText_data()
{
    QTest::addColumn<QByteArray>("reader");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("expected"); // "version" or "version|type-or-name-or-server"
    auto row = [](char const* reader, char const* name, QByteArray const& input, QByteArray const& expected) {
        QTest::newRow((QByteArray(reader) + ": " + name).constData()) << QByteArray(reader) << input << expected;
    };
    // Type -1: left as it was.
    row("neokylin", "6 without kind", "NeoKylin release 6", "v6|-1");
    row("neokylin", "other number fails", "NeoKylin Desktop release 5.0 7.0", "|0");
    row("neokylin", "V8 skipped", "NeoKylin V8 Server", "|1");
    row("neokylin", "lower-case kind is no kind", "desktop release 7", "v7|-1");
    row("neokylin", "DesktopEdition", "DesktopEdition V7", "v7|0");
    // The name starts as "unset".
    row("suse", "patchlevel 0", "SUSE Linux Enterprise Server 12\nVERSION = 12\nPATCHLEVEL = 0\n# c", "12|suse");
    row("suse", "empty patchlevel", "VERSION=15\nPATCHLEVEL=", "15|unset");
    row("suse", "no version", "openSUSE 42.1 (x86_64)", "|opensuse");
    row("suse", "indented crlf", "  SUSE Linux\r\n  version = 11 \r\n patchlevel = 3\r", "11.3|suse");
    row("productinfo", "neokylin", "NeoKylin\n  release V7Update6/(Chromium)-x86_64\r\nb4.lic", "v7update6");
    row("productinfo", "no slash", "RELEASE V4 (Juniper)", "v4juniper");
    row("productinfo", "first release line decides", "release /x\nrelease V10/y", "");
    row("productinfo", "needs the blank", "releaseV10/x", "");
    row("cpe", "first :10", "cpe:/o:a:b:1050:10x:", "1050");
    row("cpe", "no closing colon", "cpe:/o:uos:uos:1060\n", "");
    // Desktop version|server version of a lower-case PRETTY_NAME.
    row("kylin", "v10 sp3", "kylin v10 sp3", "v10sp3|");
    row("kylin", "4.0.2", "kylin 4.0.2", "v4|v4sp1");
    row("kylin", "desktop compares whole", "kylin v10 sp1 edu", "|");
    row("kylin", "unknown code name", "kylin linux advanced server v10 (halberd)", "|");
    row("suffix", "letters sort above", "v11", "2403");
    row("suffix", "2303", "2303", "2303");
    row("suffix", "2309 unknown", "2309", "");
    row("rpm", "release without digits", "4.0|ky3\n", "4.0");
    row("rpm", "four parts", "3.4.1.2|7\n", "3.4.1.2-7");
    row("rpm", "not installed", "package kylinsec-release is not installed\n", "");
    // ProductType|EditionName|MinorVersion.
    row("uos", "server b", "server|b|1060", "|1");
    row("uos", "other product", "embedded|a|1", "|-1");
    row("arch", "mips64el", "mips64el", "mips64");
    row("arch", "x86_64", "x86_64", "x86_64");
}

void TstProbeSysInfo::releaseText()
{
    QFETCH(QByteArray, reader);
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, expected);
    std::string const text = input.toStdString();
    std::vector<std::string> lines;
    for (QByteArray const& line : input.split('\n'))
        lines.push_back(line.toStdString());
    QByteArrayList const fields = input.split('|');
    std::string version;
    std::string extra;
    int type = -1;
    bool produced = true;
    if (reader == "neokylin") {
        produced = CReleaseText::neokylinVersion(text, version, type);
        extra = std::to_string(type);
    } else if (reader == "suse") {
        extra = "unset";
        produced = CReleaseText::suseRelease(lines, extra, version);
    } else if (reader == "productinfo") {
        produced = CReleaseText::productInfoVersion(lines, version);
    } else if (reader == "cpe") {
        produced = CReleaseText::cpeVersion(text, version);
    } else if (reader == "kylin") {
        version = CReleaseText::kylinDesktopVersion(text);
        extra = CReleaseText::kylinServerVersion(text);
        produced = !version.empty();
        // Only a capital V is sought, and the name is lower case by now.
        QCOMPARE(CReleaseText::kylinCapitalVVersion(text), std::string());
    } else if (reader == "suffix") {
        version = CReleaseText::kylinReleaseSuffix(text);
        produced = !version.empty();
    } else if (reader == "rpm") {
        produced = CReleaseText::kylinsecRpmVersion(text, version);
    } else if (reader == "uos") {
        produced = CReleaseText::uosOsVersion(fields.value(0).toStdString(), fields.value(1).toStdString(),
                                              fields.value(2).toStdString(), version, type);
        extra = std::to_string(type);
    } else {
        version = CReleaseText::archFromMachine(text);
    }
    QCOMPARE(produced, !version.empty());
    QByteArray const got = QByteArray::fromStdString(version) + (expected.contains('|') ? "|" : "")
                           + QByteArray::fromStdString(extra);
    QCOMPARE(got, expected);
}

QTEST_GUILESS_MAIN(TstProbeSysInfo)
#include "tst_probe_sysinfo.moc"
