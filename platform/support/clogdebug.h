#pragma once

#include "support_global.h"

#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>
#include <sys/types.h>

// Levels of a log record: 1 debug, 2 information, 3 warning, 4 error.
enum BFLogLevel { BFLOG_DEBUG = 1, BFLOG_INFO = 2, BFLOG_WARN = 3, BFLOG_ERROR = 4 };

// Process-wide sink of log records. Each record is one line:
//   <date time.ms> <LEVEL> <module> <function>:<line> <message>
// The message ends the line exactly as the caller formatted it, so scripts and
// tests can match the system's own texts at the end of a line.
//
// QUORIX_LOG_FILE names the file (else $XDG_STATE_HOME/quorix/quorix-gui.log,
// else ~/.local/state/quorix/quorix-gui.log); QUORIX_LOG_LEVEL sets the minimum
// level (default 2). Records also go to standard error unless QUORIX_LOG_STDERR=0.
//
// The file does not grow past its size limit (5 MiB): before a record would
// cross it, quorix-gui.log becomes quorix-gui.log.1, older files move up to
// .3 and the oldest is dropped. Processes may share the file: records are
// appended whole, one process rotates at a time (a file lock on the log), and
// a process whose file was rotated away by another one reopens the new file
// instead of writing on into the old. With several writers a file can pass
// the limit by the records the others append between a check and a write.
class SUPPORT_EXPORT CLogDebug
{
public:
    static constexpr std::uint64_t kDefaultMaxFileBytes = 5u * 1024u * 1024u;
    static constexpr int kDefaultKeptFiles = 3;

    static CLogDebug* singleInstance();

    int minimumLevel() const { return m_minLevel; }
    void setMinimumLevel(int level);
    std::string filePath() const;
    // Reopens the sink at another path ("" closes the file sink).
    void setFilePath(std::string const& path);
    void setStderrEnabled(bool enabled);
    // `maxBytes` 0 never rotates; `keptFiles` is clamped to 1..9.
    void setRotation(std::uint64_t maxBytes, int keptFiles);

    void write(int level, char const* module, char const* function, int line, char const* message);
    void vprint(int level, char const* module, char const* function, int line, char const* format, va_list args);

private:
    CLogDebug();
    ~CLogDebug();
    CLogDebug(CLogDebug const&) = delete;
    CLogDebug& operator=(CLogDebug const&) = delete;

    void openFileLocked(std::string const& path);
    void closeFileLocked();
    void makeRoomLocked(std::size_t recordSize);
    bool isCurrentFileLocked() const;
    void rotateLocked();

    mutable std::mutex m_mutex;
    FILE* m_file = nullptr;
    std::string m_path;
    // The file m_file has open, to tell when another process rotated it away.
    dev_t m_device = 0;
    ino_t m_inode = 0;
    std::uint64_t m_maxFileBytes = kDefaultMaxFileBytes;
    int m_keptFiles = kDefaultKeptFiles;
    int m_minLevel = BFLOG_INFO;
    bool m_stderr = true;
};

// printf-style entry used throughout the client.
SUPPORT_EXPORT void BFLogPrintX(int level, char const* module, char const* function, int line, char const* format, ...)
    __attribute__((format(printf, 5, 6)));

// Shorthand that fills in the function and line of the call site.
#define BFLOG(level, module, ...) BFLogPrintX((level), (module), __FUNCTION__, __LINE__, __VA_ARGS__)
