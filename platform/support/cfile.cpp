#include "cfile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class FdCloser
{
public:
    explicit FdCloser(int fd) : m_fd(fd) {}
    ~FdCloser()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    FdCloser(FdCloser const&) = delete;
    FdCloser& operator=(FdCloser const&) = delete;

private:
    int m_fd;
};

} // namespace

bool CFile::exists(std::string const& path)
{
    return !path.empty() && ::access(path.c_str(), F_OK) == 0;
}

bool CFile::readAll(std::string const& path, std::string& content, std::size_t maxSize)
{
    content.clear();
    // O_NONBLOCK keeps open() itself from waiting on a FIFO without a writer.
    int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0)
        return false;
    FdCloser closer(fd);

    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))
        return false;

    // st_size is only a hint: /proc-like files report 0 and files may grow.
    std::size_t const hint = st.st_size > 0 ? static_cast<std::size_t>(st.st_size) : 4096;
    content.reserve(hint < maxSize ? hint : maxSize);

    char buffer[16384];
    while (content.size() < maxSize) {
        std::size_t const want = std::min(sizeof buffer, maxSize - content.size());
        ssize_t const got = ::read(fd, buffer, want);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            content.clear();
            return false;
        }
        if (got == 0)
            break;
        content.append(buffer, static_cast<std::size_t>(got));
    }
    return true;
}

bool CFile::readLines(std::string const& path, std::vector<std::string>& lines, std::size_t maxSize)
{
    lines.clear();
    std::string content;
    if (!readAll(path, content, maxSize))
        return false;
    lines = splitLines(content);
    return true;
}

std::vector<std::string> CFile::splitLines(std::string const& text)
{
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::size_t len = end - start;
        if (len > 0 && text[start + len - 1] == '\r')
            --len;
        lines.emplace_back(text, start, len);
        start = end + 1;
    }
    return lines;
}
