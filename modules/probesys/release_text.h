#pragma once

#include <string>
#include <vector>

// The text rules of the release-file readers, over text already in memory.
// CProbeSysInfo reads the files and logs; these functions only decide, so they
// can be tested and fuzzed without a file system. Each bool function returns
// true when it produced a version.
class CReleaseText
{
public:
    // A value read from a properties file as the probe compares it: double
    // quotes stripped at both ends, lower case.
    static std::string cleanValue(std::string const& value);

    // The first white-space separated token whose first character is a digit.
    static bool firstNumericToken(std::string const& text, std::string& version);
    // The first white-space separated token of the text, lower case.
    static std::string firstWordLower(std::string const& text);

    // SuSE-release lines: name from the "opensuse"/"suse" line, version from
    // "VERSION = x" and "PATCHLEVEL = y" (x.y, or x when y is empty or 0).
    static bool suseRelease(std::vector<std::string> const& lines, std::string& name, std::string& version);

    // .productinfo lines: the first "release ..." line, up to '/', letters and digits only.
    static bool productInfoVersion(std::vector<std::string> const& lines, std::string& version);

    // neokylin-release text: "Desktop"/"Server" tokens set the type, the first
    // 6 or 7 (as a number or after v/V) decides the version.
    static bool neokylinVersion(std::string const& text, std::string& version, int& type);

    // system-release-cpe text: the field that starts with "10".
    static bool cpeVersion(std::string const& text, std::string& version);

    // Kylin desktop: the version of a known PRETTY_NAME, else "".
    static std::string kylinDesktopVersion(std::string const& prettyName);
    // Kylin server: the version of the first known code name in PRETTY_NAME, else "".
    static std::string kylinServerVersion(std::string const& prettyName);
    // Letters and digits from the last capital V of the text onward, else "".
    static std::string kylinCapitalVVersion(std::string const& prettyName);
    // What a KYLIN_RELEASE_ID adds to a desktop version ("" for nothing).
    static std::string kylinReleaseSuffix(std::string const& releaseId);

    // Answer of the rpm VERSION|RELEASE query.
    static bool kylinsecRpmVersion(std::string const& answer, std::string& version);

    // UOS os-version fields (already lower case).
    static bool uosOsVersion(std::string const& productType, std::string const& editionName,
                             std::string const& minorVersion, std::string& version, int& type);
    // "server" in the (lower-case) text gives type 1, else "desktop" gives 0.
    static bool typeFromText(std::string const& prettyName, int& type);

    // uname's machine field as the probe reports it.
    static std::string archFromMachine(std::string const& machine);
};
