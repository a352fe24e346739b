#pragma once

#include "support_global.h"

#include <cstddef>
#include <string>
#include <vector>

// Small, bounded reads of configuration and release files.
//
// Files read here come from trees we do not control (a mounted image, a user's
// machine), so a read never takes more than `maxSize` bytes and never blocks:
// only regular files are read; a FIFO, device or socket planted at the path
// counts as unreadable.
class SUPPORT_EXPORT CFile
{
public:
    static constexpr std::size_t kMaxReadSize = 1024 * 1024;

    // True when the path exists (access F_OK; a dangling symbolic link does not).
    static bool exists(std::string const& path);

    // Reads at most `maxSize` bytes from the start of the file into `content`.
    // False when the file cannot be opened or is not a regular file.
    static bool readAll(std::string const& path, std::string& content, std::size_t maxSize = kMaxReadSize);

    // readAll, then splitLines.
    static bool readLines(std::string const& path, std::vector<std::string>& lines, std::size_t maxSize = kMaxReadSize);

    // Lines of `text`, split on '\n', each without a trailing '\r'. A final line
    // without a line end is kept; the empty piece after a final line end is not.
    static std::vector<std::string> splitLines(std::string const& text);
};
