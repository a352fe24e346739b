// The whole probe over a system tree made from the input: the input is cut at
// each 0x1E byte and the pieces become, in order, the release files below
// (an empty piece leaves its file out, so both probe paths are reached).

#include "clogdebug.h"
#include "probe_sysinfo.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

char const* const kFiles[] = {
    "/etc/os-release",     "/etc/os-version",         "/etc/.kyinfo",        "/etc/neokylin-release",
    "/etc/SuSE-release",   "/etc/.productinfo",       "/etc/system-release-cpe", "/etc/debian-version",
    "/etc/centos-release", "/etc/redhat-release",     "/etc/oracle-release", "/etc/openEuler-release",
};

std::string g_root;

void writeFile(std::string const& path, std::string const& content)
{
    int const fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return;
    if (::write(fd, content.data(), content.size()) < 0)
        std::perror("write");
    ::close(fd);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    char pattern[] = "/tmp/fuzz_probe_tree.XXXXXX";
    if (!::mkdtemp(pattern))
        std::abort();
    g_root = pattern;
    ::mkdir((g_root + "/etc").c_str(), 0755);
    // Nothing to log to, and no rpm to find: KylinSec inputs must not run a
    // real query on every execution.
    CLogDebug::singleInstance()->setStderrEnabled(false);
    CLogDebug::singleInstance()->setFilePath(std::string());
    ::setenv("PATH", "/nonexistent", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, std::size_t size)
{
    std::string const input(reinterpret_cast<char const*>(data), size);
    std::size_t start = 0;
    for (char const* file : kFiles) {
        std::string const path = g_root + file;
        ::unlink(path.c_str());
        std::size_t const end = start <= input.size() ? input.find('\x1e', start) : std::string::npos;
        std::string const piece = start <= input.size() ? input.substr(start, end - start) : std::string();
        if (!piece.empty())
            writeFile(path, piece);
        start = end == std::string::npos ? input.size() + 1 : end + 1;
    }

    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, g_root.c_str());
    if (result != 0 && result != 1)
        __builtin_trap();
    if (result == 1 && (info.os_name.empty() || info.os_version.empty()))
        __builtin_trap();
    if (info.os_type != 0 && info.os_type != 1)
        __builtin_trap();
    return 0;
}
