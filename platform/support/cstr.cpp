#include "cstr.h"

namespace {

inline bool isAsciiDigit(char c)
{
    return c >= '0' && c <= '9';
}

inline bool isAsciiAlpha(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

inline char asciiLower(char c)
{
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

char const* const CStr::kWhiteSpace = " \t\f\v\n\r";

std::string CStr::strip(std::string const& s, char c)
{
    size_t const first = s.find_first_not_of(c);
    if (first == std::string::npos)
        return std::string();
    size_t const last = s.find_last_not_of(c);
    return s.substr(first, last - first + 1);
}

std::string CStr::trimed(std::string const& s)
{
    size_t const first = s.find_first_not_of(kWhiteSpace);
    if (first == std::string::npos)
        return std::string();
    size_t const last = s.find_last_not_of(kWhiteSpace);
    return s.substr(first, last - first + 1);
}

std::string CStr::toLower(std::string const& s)
{
    std::string out(s);
    for (char& c : out)
        c = asciiLower(c);
    return out;
}

bool CStr::equalsNoCase(std::string const& a, std::string const& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (asciiLower(a[i]) != asciiLower(b[i]))
            return false;
    }
    return true;
}

bool CStr::startsWith(std::string const& s, std::string const& prefix)
{
    return s.size() >= prefix.size() && s.compare(0, prefix.size(), prefix) == 0;
}

bool CStr::contains(std::string const& s, std::string const& needle)
{
    return s.find(needle) != std::string::npos;
}

bool CStr::isNum(std::string const& s)
{
    if (s.empty())
        return false;
    for (char c : s) {
        if (!isAsciiDigit(c))
            return false;
    }
    return true;
}

std::vector<std::string> CStr::split(std::string const& s, char sep, bool skipEmpty)
{
    std::vector<std::string> pieces;
    size_t start = 0;
    while (true) {
        size_t const end = s.find(sep, start);
        std::string piece = s.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!skipEmpty || !piece.empty())
            pieces.push_back(std::move(piece));
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return pieces;
}

std::vector<std::string> CStr::splitAny(std::string const& s, char const* seps)
{
    std::vector<std::string> pieces;
    size_t start = s.find_first_not_of(seps);
    while (start != std::string::npos) {
        size_t const end = s.find_first_of(seps, start);
        pieces.push_back(s.substr(start, end == std::string::npos ? std::string::npos : end - start));
        start = end == std::string::npos ? end : s.find_first_not_of(seps, end);
    }
    return pieces;
}

std::string CStr::keepAlnum(std::string const& s)
{
    std::string out;
    out.reserve(s.size());
    for (char c : s) {
        if (isAsciiAlpha(c) || isAsciiDigit(c))
            out += c;
    }
    return out;
}

std::string CStr::leadingDigits(std::string const& s)
{
    size_t n = 0;
    while (n < s.size() && isAsciiDigit(s[n]))
        ++n;
    return s.substr(0, n);
}

std::string CStr::removeAll(std::string const& s, char c)
{
    std::string out;
    out.reserve(s.size());
    for (char ch : s) {
        if (ch != c)
            out += ch;
    }
    return out;
}

void CStr::dropBom(std::string& text)
{
    static char const bom[] = "\xEF\xBB\xBF";
    if (text.compare(0, 3, bom) == 0)
        text.erase(0, 3);
}
