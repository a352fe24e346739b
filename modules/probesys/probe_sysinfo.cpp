#include "probe_sysinfo.h"

#include "cfile.h"
#include "ciniparser.h"
#include "clogdebug.h"
#include "configtools.h"
#include "cstr.h"
#include "release_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>
#include <vector>

namespace {

char const* const kHostCacheFile = "/tmp/.hsysinfo";
char const* const kTreeCacheFile = "/tmp/.csysinfo";
std::size_t const kMaxCommandOutput = CFile::kMaxReadSize;

// What the probe paths hand to a reader.
struct ProbeState
{
    std::string const& root;
    std::string osRelease; // root + "/etc/os-release"
    std::string found;     // the release file that decided (release-file path)
    std::string& name;
    std::string& version;
    int& type;
};

using Reader = int (*)(ProbeState&);

enum class IdMatch { Equals, BeginsWith, Anything };
enum class TypeRule { Server, ByReader, NfsKind };

struct OsReleaseRow
{
    char const* id;
    IdMatch match;
    char const* name; // nullptr: the reader names the system
    TypeRule type;
    Reader read;
};

// Order matters: the first matching row decides.
OsReleaseRow const kOsReleaseRows[] = {
    {"centos", IdMatch::Equals, "centos", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_centos(s.version, s.root); }},
    {"rhel", IdMatch::Equals, "redhat", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_redhat(s.version, s.root); }},
    {"ubuntu", IdMatch::Equals, "ubuntu", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_ubuntu(s.version, s.root); }},
    {"uos", IdMatch::Equals, "uos", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_uos(s.version, s.type, s.root); }},
    {"kylin", IdMatch::Equals, "kylin", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_kylin(s.version, s.type, s.root); }},
    {"neokylin", IdMatch::Equals, "neokylin", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_neokylin(s.version, s.type, s.root); }},
    {"alpine", IdMatch::Equals, "alpine", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_versionid(s.osRelease, s.version); }},
    {"bclinux", IdMatch::Equals, "bclinux", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_versionid(s.osRelease, s.version); }},
    {"nfs", IdMatch::BeginsWith, "nfs", TypeRule::NfsKind,
     [](ProbeState& s) { return CProbeSysInfo::get_nfs(s.version, s.type, s.root); }},
    {"sles", IdMatch::BeginsWith, "suse", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_suse(s.name, s.version, s.osRelease, true); }},
    {"opensuse", IdMatch::BeginsWith, "opensuse", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_versionid(s.osRelease, s.version); }},
    {"openeuler", IdMatch::Equals, "openeuler", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_openEuler(s.version, s.root); }},
    {"euleros", IdMatch::Equals, "euleros", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_euleros(s.version, s.root); }},
    {"anolis", IdMatch::Equals, "anolis", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_anolis(s.version, s.root); }},
    {"kylinsecos", IdMatch::BeginsWith, "kylinsecos", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_kylinsec(s.version, s.type, s.root); }},
    {"ctyunos", IdMatch::BeginsWith, "ctyunos", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_os_name_versionid(s.name, s.version, s.osRelease); }},
    {"debian", IdMatch::BeginsWith, "debian", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_debian(s.version, s.root); }},
    {"", IdMatch::Anything, nullptr, TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_name_versionid(s.name, s.version, s.osRelease); }},
};

struct ReleaseFileRow
{
    char const* files[2];
    char const* name;
    TypeRule type;
    Reader read;
};

ReleaseFileRow const kReleaseFileRows[] = {
    {{"/etc/oracle-release", nullptr}, "ol", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_version(s.found.c_str(), s.version); }},
    {{"/etc/rocky-release", nullptr}, "rocky", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_version(s.found.c_str(), s.version); }},
    {{"/etc/openEuler-release", nullptr}, "openeuler", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_openEuler(s.version, s.root); }},
    {{"/etc/euleros-release", nullptr}, "euleros", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_euleros(s.version, s.root); }},
    {{"/etc/anolis-release", nullptr}, "anolis", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_anolis(s.version, s.root); }},
    {{"/etc/SuSE-release", nullptr}, "suse", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_suse(s.name, s.version, s.found, false); }},
    {{"/etc/neokylin-release", nullptr}, "neokylin", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_neokylin(s.version, s.type, s.root); }},
    {{"/etc/centos-release", nullptr}, "centos", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_version(s.found.c_str(), s.version); }},
    {{"/etc/redhat-release", nullptr}, "redhat", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_name_version(s.found.c_str(), s.name, s.version); }},
    {{"/etc/ubuntu-release", nullptr}, "ubuntu", TypeRule::Server,
     [](ProbeState& s) { return CProbeSysInfo::get_os_version(s.found.c_str(), s.version); }},
    // Without an os-release file a kylin-release file means KylinSec, not Kylin.
    {{"/etc/kylin-release", "/etc/kylinsec-release"}, "kylinsecos", TypeRule::ByReader,
     [](ProbeState& s) { return CProbeSysInfo::get_kylinsec(s.version, s.type, s.root); }},
};

bool idMatches(OsReleaseRow const& row, std::string const& id)
{
    switch (row.match) {
    case IdMatch::Equals: return CStr::equalsNoCase(id, row.id);
    case IdMatch::BeginsWith: return CStr::startsWith(id, row.id);
    case IdMatch::Anything: return true;
    }
    return false;
}

void applyTypeRule(TypeRule rule, std::string const& id, int& type)
{
    switch (rule) {
    case TypeRule::Server: type = 1; break;
    case TypeRule::NfsKind: type = id == "nfsdesktop" ? 0 : 1; break;
    case TypeRule::ByReader: break;
    }
}

// Writes all of `data`, retrying short and interrupted writes.
bool writeAll(int fd, char const* data, std::size_t size)
{
    while (size > 0) {
        ssize_t const done = ::write(fd, data, size);
        if (done < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += done;
        size -= static_cast<std::size_t>(done);
    }
    return true;
}

} // namespace

int CProbeSysInfo::getPlatformSystemInfo(probe_sysinfo_s& info, char const* root)
{
    std::string name;
    std::string version;
    std::string arch;
    int type = 1;
    int const result = probe(name, arch, version, type, root, true);
    info.os_name = name;
    info.os_version = version;
    info.os_arch = arch;
    info.os_type = type;
    return result;
}

int CProbeSysInfo::getPlatformSystemInfo(std::string& name, std::string& arch, std::string& version, int& type,
                                         char const* root)
{
    return probe(name, arch, version, type, root, false);
}

int CProbeSysInfo::probe(std::string& name, std::string& arch, std::string& version, int& type, char const* root,
                         bool recordForm)
{
    name.clear();
    version.clear();
    arch = getArch();

    std::string rootText = root ? root : "";
    int const result = CFile::exists(rootText + "/etc/os-release")
                           ? getSystemInfoByOsRelease(rootText, name, arch, version, type)
                           : getSystemInfoBySystemRelease(rootText, name, arch, version, type);

    if (recordForm)
        BFLogPrintX(BFLOG_DEBUG, kLogModule, "getPlatformSystemInfo", __LINE__, "获取系统信息结果 %d|%s|%s|%s|%d",
                    result, name.c_str(), version.c_str(), arch.c_str(), type);
    else
        BFLogPrintX(BFLOG_DEBUG, kLogModule, "getPlatformSystemInfo", __LINE__, "%d|%s|%s|%s|%d", result,
                    name.c_str(), version.c_str(), arch.c_str(), type);

    writeCache(cacheFilePath(root), cacheLine(result, name, version, arch, type) + "\n");
    return result;
}

std::string CProbeSysInfo::getArch()
{
    struct utsname system {};
    if (::uname(&system) != 0) {
        BFLOG(BFLOG_WARN, kLogModule, "获取系统架构失败，指定为unknown");
        return "unknown";
    }
    return CReleaseText::archFromMachine(system.machine);
}

int CProbeSysInfo::getSystemInfoByOsRelease(std::string& root, std::string& name, std::string& /*arch*/,
                                            std::string& version, int& type)
{
    std::string const osRelease = root + "/etc/os-release";
    std::string id;
    if (!ConfigTools::readProperties(osRelease, "ID", id) || CReleaseText::cleanValue(id).empty()) {
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取ID字段失败", osRelease.c_str());
        return 0;
    }
    id = CReleaseText::cleanValue(id);
    BFLOG(BFLOG_DEBUG, kLogModule, "获取到系统名为%s", id.c_str());

    for (OsReleaseRow const& row : kOsReleaseRows) {
        if (!idMatches(row, id))
            continue;
        if (row.name)
            name = row.name;
        applyTypeRule(row.type, id, type);
        ProbeState state{root, osRelease, std::string(), name, version, type};
        return row.read(state) ? 1 : 0;
    }
    return 0;
}

int CProbeSysInfo::getSystemInfoBySystemRelease(std::string& root, std::string& name, std::string& /*arch*/,
                                                std::string& version, int& type)
{
    for (ReleaseFileRow const& row : kReleaseFileRows) {
        for (char const* file : row.files) {
            if (!file || !CFile::exists(root + file))
                continue;
            name = row.name;
            applyTypeRule(row.type, std::string(), type);
            ProbeState state{root, root + "/etc/os-release", root + file, name, version, type};
            return row.read(state) ? 1 : 0;
        }
    }
    name.clear();
    return 0;
}

std::string CProbeSysInfo::execCmd(std::string const& cmd)
{
    FILE* pipe = ::popen(cmd.c_str(), "re");
    if (!pipe)
        return std::string();
    std::string output;
    char buffer[4096];
    while (output.size() < kMaxCommandOutput) {
        std::size_t const want = std::min(sizeof buffer, kMaxCommandOutput - output.size());
        std::size_t const got = std::fread(buffer, 1, want, pipe);
        if (got == 0)
            break;
        output.append(buffer, got);
    }
    ::pclose(pipe);
    return output;
}

bool CProbeSysInfo::isGFBKylin()
{
    return isGFBKylin(std::string());
}

bool CProbeSysInfo::isGFBKylin(std::string const& root)
{
    std::string const kyinfo = root + "/etc/.kyinfo";
    if (!CFile::exists(kyinfo))
        return false;
    std::string distId;
    CIniParser::IniFileGetItemValue(kyinfo, "dist", "dist_id", distId);
    // Lower-cased before an upper-case pattern is sought, so ASCII values never
    // match. Established behaviour, kept on purpose; nothing depends on it.
    return CStr::contains(CStr::toLower(distId), "GFB");
}

std::string CProbeSysInfo::cacheLine(int result, std::string const& name, std::string const& version,
                                     std::string const& arch, int type)
{
    char const* const format = "%d|%s|%s|%s|%d";
    int const size = std::snprintf(nullptr, 0, format, result, name.c_str(), version.c_str(), arch.c_str(), type);
    if (size <= 0)
        return std::string();
    std::vector<char> buffer(static_cast<std::size_t>(size) + 1);
    std::snprintf(buffer.data(), buffer.size(), format, result, name.c_str(), version.c_str(), arch.c_str(), type);
    return std::string(buffer.data(), static_cast<std::size_t>(size));
}

char const* CProbeSysInfo::cacheFilePath(char const* root)
{
    return root ? kTreeCacheFile : kHostCacheFile;
}

// /tmp is shared with every other user. The cache is written into a private
// file that is then renamed into place, so a reader never sees it half
// written and nothing is ever written through what stands at the path. What
// stands there is replaced only if it is this user's own regular file with a
// single link; a link, another user's file or anything else is left alone.
void CProbeSysInfo::writeCache(char const* path, std::string const& line)
{
    struct stat st {};
    if (::lstat(path, &st) == 0) {
        if (!S_ISREG(st.st_mode) || st.st_uid != ::geteuid() || st.st_nlink != 1)
            return;
    } else if (errno != ENOENT) {
        return;
    }
    std::string temp = std::string(path) + ".XXXXXX";
    int const fd = ::mkostemp(&temp[0], O_CLOEXEC);
    if (fd < 0)
        return;
    bool const written = ::fchmod(fd, 0644) == 0 && writeAll(fd, line.data(), line.size());
    ::close(fd);
    if (!written || ::rename(temp.c_str(), path) != 0)
        ::unlink(temp.c_str());
}
