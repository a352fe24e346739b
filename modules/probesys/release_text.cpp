#include "release_text.h"

#include "cstr.h"

namespace {

struct VersionRow
{
    char const* pattern;
    char const* version;
};

// Desktop PRETTY_NAME values, compared whole.
VersionRow const kKylinDesktop[] = {
    {"kylin v10", "v10"},
    {"kylin v10 sp1", "v10sp1"},
    {"kylin v10 sp2", "v10sp2"},
    {"kylin v10 sp3", "v10sp3"},
    {"kylin 4.0.2", "v4"},
};

// Server PRETTY_NAME substrings, first hit wins.
VersionRow const kKylinServer[] = {
    {"v10 (azalea)", "v10"},
    {"v10 (tercel)", "v10sp1"},
    {"v10 (sword)", "v10sp2"},
    {"v10 (lance)", "v10sp3"},
    {"v4 (tercel)", "v4sp1"},
    {"kylin 4.0.2", "v4sp1"},
};

char const* const kKylinReleaseFloor = "2403";
char const* const kKylinReleasePrefixes[] = {"2107", "2203", "2303"};
char const* const kUosServerEditions[] = {"a", "c", "d", "e"};

// The text after the first '=' of a line, trimmed ("" without one).
std::string afterEquals(std::string const& line)
{
    std::size_t const eq = line.find('=');
    return eq == std::string::npos ? std::string() : CStr::trimed(line.substr(eq + 1));
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

std::string CReleaseText::cleanValue(std::string const& value)
{
    return CStr::toLower(CStr::strip(value, '"'));
}

bool CReleaseText::firstNumericToken(std::string const& text, std::string& version)
{
    // Splitting on the whole white-space set rather than on ' ' alone keeps a
    // line end out of a version taken from the end of a line.
    for (std::string const& token : CStr::splitAny(text)) {
        if (isDigit(token[0])) {
            version = token;
            return true;
        }
    }
    return false;
}

std::string CReleaseText::firstWordLower(std::string const& text)
{
    std::vector<std::string> const words = CStr::splitAny(text);
    return words.empty() ? std::string() : CStr::toLower(words.front());
}

bool CReleaseText::suseRelease(std::vector<std::string> const& lines, std::string& name, std::string& version)
{
    std::string major;
    std::string patchLevel;
    for (std::string const& raw : lines) {
        std::string const line = CStr::toLower(CStr::trimed(raw));
        if (CStr::startsWith(line, "opensuse"))
            name = "opensuse";
        else if (CStr::startsWith(line, "suse"))
            name = "suse";
        else if (CStr::startsWith(line, "version"))
            major = afterEquals(line);
        else if (CStr::startsWith(line, "patchlevel"))
            patchLevel = afterEquals(line);
    }
    if (major.empty())
        return false;
    version = major;
    if (!patchLevel.empty() && patchLevel != "0")
        version += "." + patchLevel;
    return true;
}

bool CReleaseText::productInfoVersion(std::vector<std::string> const& lines, std::string& version)
{
    static std::string const marker = "release ";
    for (std::string const& raw : lines) {
        std::string const line = CStr::toLower(CStr::trimed(raw));
        if (!CStr::startsWith(line, marker))
            continue;
        std::string const head = line.substr(0, line.find('/'));
        std::string const found = CStr::keepAlnum(head.substr(marker.size()));
        if (found.empty())
            return false;
        version = found;
        return true;
    }
    return false;
}

bool CReleaseText::neokylinVersion(std::string const& text, std::string& version, int& type)
{
    for (std::string const& token : CStr::splitAny(text)) {
        if (CStr::startsWith(token, "Desktop")) {
            type = 0;
            continue;
        }
        if (CStr::startsWith(token, "Server")) {
            type = 1;
            continue;
        }
        char const first = token[0];
        if (isDigit(first)) {
            if (first != '6' && first != '7')
                return false;
            version = first == '6' ? "v6" : "v7";
            return true;
        }
        if ((first == 'v' || first == 'V') && token.size() > 1 && (token[1] == '6' || token[1] == '7')) {
            version = token[1] == '6' ? "v6" : "v7";
            return true;
        }
    }
    return false;
}

bool CReleaseText::cpeVersion(std::string const& text, std::string& version)
{
    std::size_t const mark = text.find(":10");
    if (mark == std::string::npos)
        return false;
    std::size_t const start = mark + 1;
    std::size_t const end = text.find(':', start);
    if (end == std::string::npos)
        return false;
    version = text.substr(start, end - start);
    return true;
}

std::string CReleaseText::kylinDesktopVersion(std::string const& prettyName)
{
    for (VersionRow const& row : kKylinDesktop) {
        if (CStr::equalsNoCase(prettyName, row.pattern))
            return row.version;
    }
    return std::string();
}

std::string CReleaseText::kylinServerVersion(std::string const& prettyName)
{
    for (VersionRow const& row : kKylinServer) {
        if (CStr::contains(prettyName, row.pattern))
            return row.version;
    }
    return std::string();
}

std::string CReleaseText::kylinCapitalVVersion(std::string const& prettyName)
{
    // The caller lower-cases the name first, so in ASCII text this finds
    // nothing and the version stays empty. That is the established behaviour
    // of the client and is kept on purpose.
    std::size_t const pos = prettyName.rfind('V');
    return pos == std::string::npos ? std::string() : CStr::keepAlnum(prettyName.substr(pos));
}

std::string CReleaseText::kylinReleaseSuffix(std::string const& releaseId)
{
    if (releaseId.empty())
        return std::string();
    // Plain byte order, so "V11" or "2503" sort above the floor too.
    if (releaseId.compare(kKylinReleaseFloor) >= 0)
        return kKylinReleaseFloor;
    for (char const* prefix : kKylinReleasePrefixes) {
        if (CStr::startsWith(releaseId, prefix))
            return releaseId;
    }
    return std::string();
}

bool CReleaseText::kylinsecRpmVersion(std::string const& answer, std::string& version)
{
    std::size_t const bar = answer.find('|');
    if (bar == std::string::npos || bar == 0)
        return false;
    std::string const rpmVersion = answer.substr(0, bar);
    std::string const rpmRelease = answer.substr(bar + 1);
    version = rpmVersion;
    if (CStr::split(rpmVersion, '.').size() != 3) {
        std::string const digits = CStr::leadingDigits(rpmRelease);
        if (!digits.empty())
            version += "-" + digits;
    }
    return true;
}

bool CReleaseText::uosOsVersion(std::string const& productType, std::string const& editionName,
                                std::string const& minorVersion, std::string& version, int& type)
{
    if (productType.empty() || editionName.empty() || minorVersion.empty())
        return false;
    if (productType == "server") {
        type = 1;
        for (char const* edition : kUosServerEditions) {
            if (editionName == edition) {
                version = minorVersion + editionName;
                return true;
            }
        }
        return false;
    }
    if (productType == "desktop") {
        type = 0;
        if (editionName != "professional")
            return false;
        version = minorVersion;
        return true;
    }
    return false;
}

bool CReleaseText::typeFromText(std::string const& prettyName, int& type)
{
    if (CStr::contains(prettyName, "server")) {
        type = 1;
        return true;
    }
    if (CStr::contains(prettyName, "desktop")) {
        type = 0;
        return true;
    }
    return false;
}

std::string CReleaseText::archFromMachine(std::string const& machine)
{
    return CStr::startsWith(machine, "mips64") ? std::string("mips64") : machine;
}
