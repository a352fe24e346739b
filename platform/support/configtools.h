#pragma once

#include "support_global.h"

#include <string>

// Reader of shell-style properties files such as /etc/os-release:
//
//   # comment
//   export NAME="Some Linux"
//   ID=some
//   VERSION_ID='1.0'
//
// One KEY=value assignment a line. Tolerated: a UTF-8 byte-order mark, CRLF
// line ends, a missing final line end, blank and comment lines, an "export "
// prefix, blanks around the key and the '='. A value in double quotes loses its
// quotes and its backslash escapes (\" \\ \$ \`), one in single quotes is taken
// literally, an unquoted one ends before a " #" comment. A quote that is never
// closed quotes the rest of the line. As in a shell, the last assignment of a
// key wins. Keys are compared exactly.
class SUPPORT_EXPORT ConfigTools
{
public:
    // Reads `key` from `file` (at most 1 MiB of it). Returns true when the key
    // was assigned, even to an empty value; `value` is left empty otherwise.
    static bool readProperties(std::string const& file, std::string const& key, std::string& value);

    // The same lookup over properties text already in memory.
    static bool parseProperties(std::string const& text, std::string const& key, std::string& value);

    // The value of one assignment's right-hand side, quotes resolved.
    static std::string propertyValue(std::string const& rhs);
};
