#pragma once

#include "support_global.h"

#include <string>
#include <vector>

// Byte-string helpers shared by the configuration readers and the system probe.
// Everything works on bytes: only ASCII letters change case and only ASCII
// letters and digits count as such, so UTF-8 text passes through untouched.
class SUPPORT_EXPORT CStr
{
public:
    // The white-space set used to trim plain text.
    static char const* const kWhiteSpace;

    // `s` without every leading and trailing occurrence of `c`.
    static std::string strip(std::string const& s, char c);
    // `s` without leading and trailing white space (kWhiteSpace).
    static std::string trimed(std::string const& s);
    static std::string toLower(std::string const& s);
    static bool equalsNoCase(std::string const& a, std::string const& b);

    static bool startsWith(std::string const& s, std::string const& prefix);
    static bool contains(std::string const& s, std::string const& needle);
    // True for a non-empty text of ASCII digits only.
    static bool isNum(std::string const& s);

    // Splits on every `sep`; empty pieces are kept unless `skipEmpty`.
    static std::vector<std::string> split(std::string const& s, char sep, bool skipEmpty = false);
    // Splits on runs of any character of `seps`; never yields an empty piece.
    static std::vector<std::string> splitAny(std::string const& s, char const* seps = kWhiteSpace);

    // Only the ASCII letters and digits of `s`, in order.
    static std::string keepAlnum(std::string const& s);
    // The run of ASCII digits at the start of `s` ("12.ky3" gives "12").
    static std::string leadingDigits(std::string const& s);
    static std::string removeAll(std::string const& s, char c);

    // Drops a UTF-8 byte-order mark at the start of `text`.
    static void dropBom(std::string& text);
};
