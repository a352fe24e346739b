// Arbitrary bytes into every text rule the probe applies to release files:
// the key=value reader, the INI reader and the release-line rules. Besides
// the sanitizers, a few properties of the results are checked.

#include "ciniparser.h"
#include "cfile.h"
#include "configtools.h"
#include "cstr.h"
#include "release_text.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#define FUZZ_CHECK(condition)                                                                                        \
    do {                                                                                                             \
        if (!(condition))                                                                                            \
            __builtin_trap();                                                                                        \
    } while (0)

namespace {

char const* const kPropertyKeys[] = {"ID", "VERSION", "VERSION_ID", "PRETTY_NAME", "KYLIN_RELEASE_ID",
                                     "PROJECT_CODENAME"};

struct IniKey
{
    char const* section;
    char const* key;
};

IniKey const kIniKeys[] = {{"Version", "ProductType"}, {"Version", "EditionName"}, {"Version", "MinorVersion"},
                           {"dist", "name"},           {"dist", "dist_id"},        {"", "ID"}};

bool hasWhiteSpace(std::string const& text)
{
    return text.find_first_of(CStr::kWhiteSpace) != std::string::npos;
}

void fuzzProperties(std::string const& text, std::string const& ownKey)
{
    std::string value;
    for (char const* key : kPropertyKeys) {
        if (ConfigTools::parseProperties(text, key, value))
            CReleaseText::cleanValue(value);
        else
            FUZZ_CHECK(value.empty());
    }
    ConfigTools::parseProperties(text, ownKey, value);
    ConfigTools::propertyValue(text);
}

void fuzzIni(std::string const& text, std::string const& ownKey)
{
    std::string value;
    for (IniKey const& item : kIniKeys) {
        if (!CIniParser::parseItemValue(text, item.section, item.key, value))
            FUZZ_CHECK(value.empty());
    }
    CIniParser::parseItemValue(text, ownKey, ownKey, value);
    CIniParser::unquoted(text);
}

void fuzzReleaseText(std::string const& text)
{
    std::vector<std::string> const lines = CFile::splitLines(text);
    std::string name;
    std::string version;
    int type = -1;

    if (CReleaseText::firstNumericToken(text, version)) {
        FUZZ_CHECK(!version.empty() && version[0] >= '0' && version[0] <= '9');
        FUZZ_CHECK(!hasWhiteSpace(version));
    }
    CReleaseText::firstWordLower(text);
    if (CReleaseText::suseRelease(lines, name, version))
        FUZZ_CHECK(!version.empty());
    if (CReleaseText::productInfoVersion(lines, version))
        FUZZ_CHECK(!version.empty() && CStr::keepAlnum(version) == version);
    if (CReleaseText::neokylinVersion(text, version, type))
        FUZZ_CHECK(version == "v6" || version == "v7");
    FUZZ_CHECK(type >= -1 && type <= 1);
    if (CReleaseText::cpeVersion(text, version))
        FUZZ_CHECK(CStr::startsWith(version, "10") && version.find(':') == std::string::npos);
    if (CReleaseText::kylinsecRpmVersion(text, version))
        FUZZ_CHECK(!version.empty());

    std::string const lower = CStr::toLower(text);
    CReleaseText::kylinDesktopVersion(lower);
    CReleaseText::kylinServerVersion(lower);
    FUZZ_CHECK(CReleaseText::kylinCapitalVVersion(lower).empty());
    CReleaseText::kylinReleaseSuffix(text);
    CReleaseText::typeFromText(lower, type);
    CReleaseText::archFromMachine(text);

    std::vector<std::string> const fields = CStr::split(lower, '|');
    if (fields.size() >= 3)
        CReleaseText::uosOsVersion(fields[0], fields[1], fields[2], version, type);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size)
{
    std::string const text(reinterpret_cast<char const*>(data), size);
    // The first line doubles as a key and section name of the fuzzer's choosing.
    std::string const ownKey = text.substr(0, text.find('\n'));
    fuzzProperties(text, ownKey);
    fuzzIni(text, ownKey);
    fuzzReleaseText(text);
    return 0;
}
