#pragma once

#include "support_global.h"

#include <string>

// Reader of INI files as distributions and desktop tools write them:
//
//   [Section]
//   Key=Value
//
// Tolerated: a UTF-8 byte-order mark, CRLF line ends, a missing final line end,
// blanks around section names and keys ("[Version] " with a trailing blank is
// the section "Version"), comment lines starting with ';' or '#', and a value in
// matching single or double quotes (the quotes are removed). Names are compared
// exactly, so "ProductType" never matches "ProductType[zh_CN]". Keys before the
// first section belong to the section "". The first occurrence of a key in a
// matching section wins.
class SUPPORT_EXPORT CIniParser
{
public:
    // Reads `key` of `section` from `file` (at most 1 MiB of it) into `value`.
    // Returns true when the key was found; `value` is left empty otherwise.
    static bool IniFileGetItemValue(std::string const& file, std::string const& section, std::string const& key,
                                    std::string& value);

    // The same lookup over INI text already in memory.
    static bool parseItemValue(std::string const& text, std::string const& section, std::string const& key,
                               std::string& value);

    // A value without the one pair of matching quotes that may surround it.
    static std::string unquoted(std::string const& value);
};
