#include "configtools.h"

#include "cfile.h"
#include "cstr.h"

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Strips "export" and the blanks after it when the line starts with it.
std::string withoutExport(std::string const& line)
{
    static std::string const word = "export";
    if (line.size() > word.size() && CStr::startsWith(line, word) && isBlank(line[word.size()]))
        return CStr::trimed(line.substr(word.size()));
    return line;
}

// Inside double quotes a backslash only escapes these; elsewhere it stays.
bool escapableInDoubleQuotes(char c)
{
    return c == '"' || c == '\\' || c == '$' || c == '`';
}

std::string doubleQuoted(std::string const& rhs)
{
    std::string out;
    for (std::size_t i = 1; i < rhs.size(); ++i) {
        char const c = rhs[i];
        if (c == '"')
            return out;
        if (c == '\\' && i + 1 < rhs.size() && escapableInDoubleQuotes(rhs[i + 1]))
            out += rhs[++i];
        else
            out += c;
    }
    // Never closed: the rest of the line is the value.
    return CStr::trimed(out);
}

std::string singleQuoted(std::string const& rhs)
{
    std::size_t const close = rhs.find('\'', 1);
    if (close == std::string::npos)
        return CStr::trimed(rhs.substr(1));
    return rhs.substr(1, close - 1);
}

std::string unquoted(std::string const& rhs)
{
    for (std::size_t i = 1; i < rhs.size(); ++i) {
        if (rhs[i] == '#' && isBlank(rhs[i - 1]))
            return CStr::trimed(rhs.substr(0, i));
    }
    return rhs;
}

} // namespace

bool ConfigTools::readProperties(std::string const& file, std::string const& key, std::string& value)
{
    value.clear();
    std::string text;
    if (!CFile::readAll(file, text))
        return false;
    return parseProperties(text, key, value);
}

bool ConfigTools::parseProperties(std::string const& text, std::string const& key, std::string& value)
{
    value.clear();
    std::string const wanted = CStr::trimed(key);
    if (wanted.empty())
        return false;
    std::string body(text);
    CStr::dropBom(body);

    bool found = false;
    for (std::string const& raw : CFile::splitLines(body)) {
        std::string const line = withoutExport(CStr::trimed(raw));
        if (line.empty() || line[0] == '#')
            continue;
        std::size_t const eq = line.find('=');
        if (eq == std::string::npos || CStr::trimed(line.substr(0, eq)) != wanted)
            continue;
        value = propertyValue(line.substr(eq + 1));
        found = true;
    }
    return found;
}

std::string ConfigTools::propertyValue(std::string const& rhs)
{
    std::string const text = CStr::trimed(rhs);
    if (text.empty())
        return text;
    if (text[0] == '"')
        return doubleQuoted(text);
    if (text[0] == '\'')
        return singleQuoted(text);
    return unquoted(text);
}
