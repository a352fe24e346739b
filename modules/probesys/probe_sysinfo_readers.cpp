// The release-file readers of CProbeSysInfo: each turns one distribution's
// files into a version (and, for some, the installation kind). The text rules
// themselves live in CReleaseText; this file reads, decides which file counts
// and logs.

#include "probe_sysinfo.h"

#include "cfile.h"
#include "ciniparser.h"
#include "clogdebug.h"
#include "configtools.h"
#include "cstr.h"
#include "release_text.h"

#include <vector>

namespace {

struct FieldText
{
    char const* key;
    char const* missing;
};

FieldText const kFieldTexts[] = {
    {"ID", "从%s获取ID字段失败"},
    {"VERSION", "从%s获取VERSION字段失败"},
    {"VERSION_ID", "从%s获取VERSION_ID字段失败"},
};

char const* missingFieldText(char const* key)
{
    for (FieldText const& row : kFieldTexts) {
        if (std::string(row.key) == key)
            return row.missing;
    }
    return "从%s获取系统版本失败";
}

// The rpm queries are fixed strings: nothing read from a file reaches a shell.
char const* const kRpmKylinsecRelease =
    "LC_ALL=C rpm -q --queryformat '%{VERSION}|%{RELEASE}\\n' kylinsec-release 2>/dev/null";
char const* const kRpmKylinRelease =
    "LC_ALL=C rpm -q --queryformat '%{VERSION}|%{RELEASE}\\n' kylin-release 2>/dev/null";

// A properties value from text already read, as the probe compares it.
std::string cleanProperty(std::string const& text, char const* key)
{
    std::string value;
    ConfigTools::parseProperties(text, key, value);
    return CReleaseText::cleanValue(value);
}

std::string iniValueLower(std::string const& text, char const* section, char const* key)
{
    std::string value;
    CIniParser::parseItemValue(text, section, key, value);
    return CStr::toLower(value);
}

// The first numeric token of a whole release file.
int versionFromReleaseFile(char const* path, std::string& version, char const* readFailure, char const* caller)
{
    std::string text;
    if (!path || !CFile::readAll(path, text)) {
        BFLogPrintX(BFLOG_WARN, CProbeSysInfo::kLogModule, caller, __LINE__, readFailure, path ? path : "");
        return 0;
    }
    if (!CReleaseText::firstNumericToken(text, version)) {
        BFLogPrintX(BFLOG_WARN, CProbeSysInfo::kLogModule, caller, __LINE__, "从%s获取系统版本失败", path);
        return 0;
    }
    return 1;
}

// Runs `parse` over the lines of a release file, logging the two ways that can fail.
template <typename Parse>
int versionFromReleaseLines(std::string const& path, char const* caller, Parse parse)
{
    std::vector<std::string> lines;
    if (!CFile::readLines(path, lines)) {
        BFLogPrintX(BFLOG_WARN, CProbeSysInfo::kLogModule, caller, __LINE__, "读取%s文件失败", path.c_str());
        return 0;
    }
    if (!parse(lines)) {
        BFLogPrintX(BFLOG_WARN, CProbeSysInfo::kLogModule, caller, __LINE__, "从%s获取系统版本失败", path.c_str());
        return 0;
    }
    return 1;
}

} // namespace

bool CProbeSysInfo::readField(std::string const& path, char const* key, std::string& value, char const* caller)
{
    if (ConfigTools::readProperties(path, key, value)) {
        value = CReleaseText::cleanValue(value);
        if (!value.empty())
            return true;
    }
    value.clear();
    BFLogPrintX(BFLOG_WARN, kLogModule, caller, __LINE__, missingFieldText(key), path.c_str());
    return false;
}

int CProbeSysInfo::get_os_version(char const* path, std::string& version)
{
    return versionFromReleaseFile(path, version, "读取%s文件失败", __FUNCTION__);
}

int CProbeSysInfo::get_os_name_version(char const* path, std::string& name, std::string& version)
{
    std::string text;
    if (path && CFile::readAll(path, text) && CReleaseText::firstWordLower(text) == "centos")
        name = "centos";
    return versionFromReleaseFile(path, version, "读取%s文件失败", __FUNCTION__);
}

int CProbeSysInfo::get_os_name_version(std::string& name, std::string& version, std::string& path)
{
    if (!readField(path, "ID", name, __FUNCTION__))
        return 0;
    return readField(path, "VERSION", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::get_os_name_versionid(std::string& name, std::string& version, std::string& path)
{
    if (!readField(path, "ID", name, __FUNCTION__))
        return 0;
    return readField(path, "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::get_os_versionid(std::string& path, std::string& version)
{
    return readField(path, "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::get_centos(std::string& version, std::string const& root)
{
    std::string const path = root + "/etc/centos-release";
    return versionFromReleaseFile(path.c_str(), version, "读取%s文件失败，获取centos系统版本失败", __FUNCTION__);
}

int CProbeSysInfo::get_redhat(std::string& version, std::string const& root)
{
    std::string const path = root + "/etc/redhat-release";
    return versionFromReleaseFile(path.c_str(), version, "读取%s文件失败，获取redhat系统版本失败", __FUNCTION__);
}

int CProbeSysInfo::get_ubuntu(std::string& version, std::string const& root)
{
    std::string const osRelease = root + "/etc/os-release";
    if (CFile::exists(osRelease))
        return readField(osRelease, "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
    std::string const releaseFile = root + "/etc/ubuntu-release";
    if (CFile::exists(releaseFile))
        return get_os_version(releaseFile.c_str(), version);
    BFLOG(BFLOG_WARN, kLogModule, "从%s获取Ubuntu系统版本失败", releaseFile.c_str());
    return 0;
}

int CProbeSysInfo::get_alpine(std::string& version, std::string const& root)
{
    return readField(root + "/etc/os-release", "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::get_bclinux(std::string& version, std::string const& root)
{
    return readField(root + "/etc/os-release", "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::get_nfs(std::string& version, int& /*type*/, std::string const& root)
{
    // The installation kind comes from the ID, which the caller has already seen.
    return readField(root + "/etc/os-release", "VERSION", version, __FUNCTION__) ? 1 : 0;
}

int CProbeSysInfo::versionFromOsReleaseOrFile(std::string& version, std::string const& root, char const* releaseFile,
                                              char const* key, char const* caller)
{
    std::string const osRelease = root + "/etc/os-release";
    if (CFile::exists(osRelease))
        return readField(osRelease, key, version, caller) ? 1 : 0;
    std::string const path = root + releaseFile;
    if (CFile::exists(path))
        return get_os_version(path.c_str(), version);
    BFLogPrintX(BFLOG_WARN, kLogModule, caller, __LINE__, "%s文件不存在", path.c_str());
    return 0;
}

int CProbeSysInfo::get_openEuler(std::string& version, std::string const& root)
{
    return versionFromOsReleaseOrFile(version, root, "/etc/openEuler-release", "VERSION", __FUNCTION__);
}

int CProbeSysInfo::get_euleros(std::string& version, std::string const& root)
{
    return versionFromOsReleaseOrFile(version, root, "/etc/euleros-release", "VERSION", __FUNCTION__);
}

int CProbeSysInfo::get_anolis(std::string& version, std::string const& root)
{
    return versionFromOsReleaseOrFile(version, root, "/etc/anolis-release", "VERSION_ID", __FUNCTION__);
}

int CProbeSysInfo::get_debian(std::string& version, std::string const& root)
{
    // "debian-version" with a dash, not Debian's own debian_version: the name
    // the client has always looked for, kept as it is.
    std::string const path = root + "/etc/debian-version";
    if (!CFile::exists(path)) {
        BFLOG(BFLOG_WARN, kLogModule, "%s文件不存在", path.c_str());
        return 0;
    }
    return versionFromReleaseLines(path, __FUNCTION__, [&version](std::vector<std::string> const& lines) {
        std::string const first = lines.empty() ? std::string() : CStr::toLower(CStr::trimed(lines.front()));
        if (first.empty())
            return false;
        version = first;
        return true;
    });
}

int CProbeSysInfo::get_suse(std::string& name, std::string& version, std::string const& path, bool fromOsRelease)
{
    if (fromOsRelease) {
        name = "suse";
        return readField(path, "VERSION_ID", version, __FUNCTION__) ? 1 : 0;
    }
    return versionFromReleaseLines(path, __FUNCTION__, [&name, &version](std::vector<std::string> const& lines) {
        return CReleaseText::suseRelease(lines, name, version);
    });
}

int CProbeSysInfo::get_kylin(std::string& version, int& type, std::string const& root)
{
    std::string const osRelease = root + "/etc/os-release";
    std::string text;
    CFile::readAll(osRelease, text);
    std::string const prettyName = cleanProperty(text, "PRETTY_NAME");
    std::string const releaseId = cleanProperty(text, "KYLIN_RELEASE_ID");

    version.clear();
    if (!CStr::contains(prettyName, "server")) {
        type = 0;
        version = CReleaseText::kylinDesktopVersion(prettyName);
        if (version.empty()) {
            std::string const codename = cleanProperty(text, "PROJECT_CODENAME");
            version = codename.empty() ? CReleaseText::kylinCapitalVVersion(prettyName) : codename;
        }
        if (!version.empty())
            version += CReleaseText::kylinReleaseSuffix(releaseId);
    } else {
        type = 1;
        version = CReleaseText::kylinServerVersion(prettyName);
        if (version.empty())
            get_kylin_productinfo(version, root + "/etc/.productinfo");
    }
    if (version.empty()) {
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取系统版本失败", osRelease.c_str());
        return 0;
    }
    return 1;
}

int CProbeSysInfo::get_kylin_productinfo(std::string& version, std::string const& path)
{
    if (!CFile::exists(path)) {
        BFLOG(BFLOG_WARN, kLogModule, "%s文件不存在", path.c_str());
        return 0;
    }
    return versionFromReleaseLines(path, __FUNCTION__, [&version](std::vector<std::string> const& lines) {
        return CReleaseText::productInfoVersion(lines, version);
    });
}

int CProbeSysInfo::get_neokylin(std::string& version, int& type, std::string const& root)
{
    std::string const path = root + "/etc/neokylin-release";
    std::string text;
    if (!CFile::readAll(path, text)) {
        BFLOG(BFLOG_WARN, kLogModule, "读取%s文件失败，获取neokylin系统版本失败", path.c_str());
        return 0;
    }
    if (!CReleaseText::neokylinVersion(text, version, type)) {
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取系统版本失败", path.c_str());
        return 0;
    }
    return 1;
}

int CProbeSysInfo::get_kylinsec(std::string& version, int& type, std::string const& root)
{
    std::string kyinfo;
    CFile::readAll(root + "/etc/.kyinfo", kyinfo);
    std::string const name = iniValueLower(kyinfo, "dist", "name");
    BFLOG(BFLOG_DEBUG, kLogModule, "获取kylinsec的name为%s", name.c_str());
    if (!CReleaseText::typeFromText(name, type)) {
        std::string const distId = iniValueLower(kyinfo, "dist", "dist_id");
        BFLOG(BFLOG_DEBUG, kLogModule, "获取kylinsec的dist_id为%s", distId.c_str());
        CReleaseText::typeFromText(distId, type);
    }

    if (CReleaseText::kylinsecRpmVersion(execCmd(kRpmKylinsecRelease), version))
        return 1;
    BFLOG(BFLOG_WARN, kLogModule, "获取kylinsec的kylinsec-release信息失败");
    if (CReleaseText::kylinsecRpmVersion(execCmd(kRpmKylinRelease), version))
        return 1;
    BFLOG(BFLOG_WARN, kLogModule, "获取kylinsec的kylin-release信息失败");
    std::string osRelease = root + "/etc/os-release";
    return get_os_versionid(osRelease, version);
}

int CProbeSysInfo::get_uos(std::string& version, int& type, std::string const& root)
{
    std::string const osVersion = root + "/etc/os-version";
    if (CFile::exists(osVersion)) {
        std::string text;
        CFile::readAll(osVersion, text);
        if (CReleaseText::uosOsVersion(iniValueLower(text, "Version", "ProductType"),
                                       iniValueLower(text, "Version", "EditionName"),
                                       iniValueLower(text, "Version", "MinorVersion"), version, type))
            return 1;
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取系统版本失败", osVersion.c_str());
        return 0;
    }

    std::string const cpe = root + "/etc/system-release-cpe";
    if (CFile::exists(cpe)) {
        std::string text;
        if (!CFile::readAll(cpe, text)) {
            BFLOG(BFLOG_WARN, kLogModule, "read %s failed!!!", cpe.c_str());
            return 0;
        }
        if (CReleaseText::cpeVersion(text, version))
            return 1;
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取系统版本失败", cpe.c_str());
        return 0;
    }

    std::string const osRelease = root + "/etc/os-release";
    if (!CFile::exists(osRelease)) {
        BFLOG(BFLOG_WARN, kLogModule, "%s文件不存在", osRelease.c_str());
        return 0;
    }
    std::string versionId;
    std::string prettyName;
    if (!readField(osRelease, "VERSION_ID", versionId, __FUNCTION__)
        || !readField(osRelease, "PRETTY_NAME", prettyName, __FUNCTION__))
        return 0;
    std::string const compact = CStr::removeAll(versionId, ' ');
    if (!CReleaseText::typeFromText(prettyName, type) || compact.empty()) {
        BFLOG(BFLOG_WARN, kLogModule, "从%s获取系统版本失败", osRelease.c_str());
        return 0;
    }
    version = compact;
    return 1;
}
