#include "clogdebug.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <vector>

namespace {

char const* levelName(int level)
{
    switch (level) {
    case BFLOG_DEBUG: return "DEBUG";
    case BFLOG_INFO: return "INFO";
    case BFLOG_WARN: return "WARN";
    case BFLOG_ERROR: return "ERROR";
    default: return "LOG";
    }
}

int levelFromEnvironment()
{
    char const* text = std::getenv("QUORIX_LOG_LEVEL");
    if (!text || !*text)
        return BFLOG_INFO;
    char* end = nullptr;
    long value = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || value < BFLOG_DEBUG || value > BFLOG_ERROR)
        return BFLOG_INFO;
    return static_cast<int>(value);
}

std::string defaultLogPath()
{
    if (char const* path = std::getenv("QUORIX_LOG_FILE"))
        return path;
    std::string base;
    if (char const* state = std::getenv("XDG_STATE_HOME"); state && *state == '/')
        base = state;
    else if (char const* home = std::getenv("HOME"); home && *home)
        base = std::string(home) + "/.local/state";
    else
        return std::string();
    return base + "/quorix/quorix-gui.log";
}

// mkdir -p for the folder that holds `path`.
void makeParentDirs(std::string const& path)
{
    for (size_t pos = path.find('/', 1); pos != std::string::npos; pos = path.find('/', pos + 1))
        ::mkdir(path.substr(0, pos).c_str(), 0755);
}

// Control characters other than tab would break the one-record-one-line rule.
void flattenLineBreaks(std::string& text)
{
    for (char& c : text) {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
}

} // namespace

CLogDebug* CLogDebug::singleInstance()
{
    // Never destroyed: records may still be written from static destructors.
    static CLogDebug* instance = new CLogDebug;
    return instance;
}

CLogDebug::CLogDebug()
    : m_minLevel(levelFromEnvironment())
{
    char const* toStderr = std::getenv("QUORIX_LOG_STDERR");
    m_stderr = !(toStderr && std::strcmp(toStderr, "0") == 0);
    std::lock_guard<std::mutex> lock(m_mutex);
    openFileLocked(defaultLogPath());
}

CLogDebug::~CLogDebug()
{
    closeFileLocked();
}

void CLogDebug::setMinimumLevel(int level)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_minLevel = level;
}

std::string CLogDebug::filePath() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_path;
}

void CLogDebug::setFilePath(std::string const& path)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    openFileLocked(path);
}

void CLogDebug::setStderrEnabled(bool enabled)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_stderr = enabled;
}

void CLogDebug::setRotation(std::uint64_t maxBytes, int keptFiles)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_maxFileBytes = maxBytes;
    m_keptFiles = keptFiles < 1 ? 1 : (keptFiles > 9 ? 9 : keptFiles);
}

void CLogDebug::openFileLocked(std::string const& path)
{
    closeFileLocked();
    m_path = path;
    if (path.empty())
        return;
    makeParentDirs(path);
    m_file = std::fopen(path.c_str(), "ae");
    if (!m_file) {
        if (m_stderr)
            std::fprintf(stderr, "[CLogDebug] cannot open log file %s: %s\n", path.c_str(), std::strerror(errno));
        return;
    }
    // Unbuffered: one write() per record, and O_APPEND keeps the records of
    // processes sharing the file whole.
    std::setvbuf(m_file, nullptr, _IONBF, 0);
    struct stat info {};
    if (::fstat(fileno(m_file), &info) == 0) {
        m_device = info.st_dev;
        m_inode = info.st_ino;
    }
}

void CLogDebug::closeFileLocked()
{
    if (m_file)
        std::fclose(m_file);
    m_file = nullptr;
    m_device = 0;
    m_inode = 0;
}

// Before each record: if it would take the file past the limit, the file is
// rotated (unless another process did that already) and the new one opened.
void CLogDebug::makeRoomLocked(std::size_t recordSize)
{
    struct stat info {};
    if (m_maxFileBytes == 0 || ::fstat(fileno(m_file), &info) != 0 || info.st_size <= 0
        || static_cast<std::uint64_t>(info.st_size) + recordSize <= m_maxFileBytes)
        return;
    if (isCurrentFileLocked())
        rotateLocked();
    openFileLocked(m_path);
}

bool CLogDebug::isCurrentFileLocked() const
{
    struct stat info {};
    return ::stat(m_path.c_str(), &info) == 0 && info.st_dev == m_device && info.st_ino == m_inode;
}

// Under an exclusive lock on the full file, so that of several processes that
// find it full only the first one moves it; the others, once they hold the
// lock, see that the name has moved on and only reopen.
void CLogDebug::rotateLocked()
{
    int const fd = fileno(m_file);
    if (::flock(fd, LOCK_EX) != 0)
        return;
    if (isCurrentFileLocked()) {
        // rename() replaces the target, so the oldest file drops out of the chain.
        for (int i = m_keptFiles; i >= 1; --i) {
            std::string const from = i == 1 ? m_path : m_path + '.' + std::to_string(i - 1);
            std::string const to = m_path + '.' + std::to_string(i);
            if (::rename(from.c_str(), to.c_str()) != 0 && errno != ENOENT && m_stderr)
                std::fprintf(stderr, "[CLogDebug] cannot rotate %s: %s\n", from.c_str(), std::strerror(errno));
        }
    }
    ::flock(fd, LOCK_UN);
}

void CLogDebug::write(int level, char const* module, char const* function, int line, char const* message)
{
    if (level < m_minLevel)
        return;
    struct timeval tv {};
    ::gettimeofday(&tv, nullptr);
    struct tm local {};
    ::localtime_r(&tv.tv_sec, &local);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &local);

    std::string text = message ? message : "";
    flattenLineBreaks(text);
    char prefix[96];
    std::snprintf(prefix, sizeof prefix, "%s.%03ld %-5s ", stamp, static_cast<long>(tv.tv_usec / 1000), levelName(level));
    std::string record = prefix;
    record += module ? module : "-";
    record += ' ';
    record += function ? function : "-";
    record += ':';
    record += std::to_string(line);
    record += ' ';
    record += text;
    record += '\n';

    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_file)
        makeRoomLocked(record.size());
    if (m_file)
        std::fwrite(record.data(), 1, record.size(), m_file);
    if (m_stderr)
        std::fwrite(record.data(), 1, record.size(), stderr);
}

void CLogDebug::vprint(int level, char const* module, char const* function, int line, char const* format, va_list args)
{
    if (level < m_minLevel || !format)
        return;
    char small[512];
    va_list copy;
    va_copy(copy, args);
    int needed = std::vsnprintf(small, sizeof small, format, copy);
    va_end(copy);
    if (needed < 0)
        return;
    if (static_cast<size_t>(needed) < sizeof small) {
        write(level, module, function, line, small);
        return;
    }
    std::vector<char> big(static_cast<size_t>(needed) + 1);
    std::vsnprintf(big.data(), big.size(), format, args);
    write(level, module, function, line, big.data());
}

void BFLogPrintX(int level, char const* module, char const* function, int line, char const* format, ...)
{
    va_list args;
    va_start(args, format);
    CLogDebug::singleInstance()->vprint(level, module, function, line, format, args);
    va_end(args);
}
