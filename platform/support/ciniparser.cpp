#include "ciniparser.h"

#include "cfile.h"
#include "cstr.h"

namespace {

bool isCommentOrBlank(std::string const& line)
{
    return line.empty() || line[0] == ';' || line[0] == '#';
}

// Returns true and fills `name` when `line` (already trimmed) is a section header.
bool sectionHeader(std::string const& line, std::string& name)
{
    if (line[0] != '[')
        return false;
    std::size_t const close = line.find(']');
    if (close == std::string::npos)
        return false;
    name = CStr::trimed(line.substr(1, close - 1));
    return true;
}

} // namespace

bool CIniParser::IniFileGetItemValue(std::string const& file, std::string const& section, std::string const& key,
                                     std::string& value)
{
    value.clear();
    std::string text;
    if (!CFile::readAll(file, text))
        return false;
    return parseItemValue(text, section, key, value);
}

bool CIniParser::parseItemValue(std::string const& text, std::string const& section, std::string const& key,
                                std::string& value)
{
    value.clear();
    std::string body(text);
    CStr::dropBom(body);

    std::string current;
    std::string const wantedKey = CStr::trimed(key);
    std::string const wantedSection = CStr::trimed(section);
    for (std::string const& raw : CFile::splitLines(body)) {
        std::string const line = CStr::trimed(raw);
        if (isCommentOrBlank(line))
            continue;
        std::string name;
        if (sectionHeader(line, name)) {
            current = name;
            continue;
        }
        if (current != wantedSection)
            continue;
        std::size_t const eq = line.find('=');
        if (eq == std::string::npos || CStr::trimed(line.substr(0, eq)) != wantedKey)
            continue;
        value = unquoted(CStr::trimed(line.substr(eq + 1)));
        return true;
    }
    return false;
}

std::string CIniParser::unquoted(std::string const& value)
{
    if (value.size() >= 2) {
        char const first = value.front();
        if ((first == '"' || first == '\'') && value.back() == first)
            return value.substr(1, value.size() - 2);
    }
    return value;
}
