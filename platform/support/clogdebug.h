#pragma once

#include "support_global.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>

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
class SUPPORT_EXPORT CLogDebug
{
public:
    static CLogDebug* singleInstance();

    int minimumLevel() const { return m_minLevel; }
    void setMinimumLevel(int level);
    std::string filePath() const;
    // Reopens the sink at another path ("" closes the file sink).
    void setFilePath(std::string const& path);
    void setStderrEnabled(bool enabled);

    void write(int level, char const* module, char const* function, int line, char const* message);
    void vprint(int level, char const* module, char const* function, int line, char const* format, va_list args);

private:
    CLogDebug();
    ~CLogDebug();
    CLogDebug(CLogDebug const&) = delete;
    CLogDebug& operator=(CLogDebug const&) = delete;

    void openFileLocked(std::string const& path);

    mutable std::mutex m_mutex;
    FILE* m_file = nullptr;
    std::string m_path;
    int m_minLevel = BFLOG_INFO;
    bool m_stderr = true;
};

// printf-style entry used throughout the client.
SUPPORT_EXPORT void BFLogPrintX(int level, char const* module, char const* function, int line, char const* format, ...)
    __attribute__((format(printf, 5, 6)));

// Shorthand that fills in the function and line of the call site.
#define BFLOG(level, module, ...) BFLogPrintX((level), (module), __FUNCTION__, __LINE__, __VA_ARGS__)
