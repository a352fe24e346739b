// probesys: shows what the client believes about a machine.
//
// Runs the same distribution probe as the tray and prints its cache line on
// standard output, nothing else. Logs go to the log file and standard error.

#include "probe_sysinfo.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

int const kExitFound = 0;
int const kExitNotFound = 1;
int const kExitUsage = 2;

void printUsage(FILE* out)
{
    std::fputs("Usage: probesys [--root DIR]\n"
               "\n"
               "Identifies the Linux distribution, its version, the processor architecture\n"
               "and the installation kind exactly as the Quorix client does, and prints one\n"
               "line on standard output:\n"
               "\n"
               "  result|os_name|os_version|os_arch|os_type\n"
               "\n"
               "result is 1 when the distribution was identified, else 0; os_type is 0 for\n"
               "a desktop, 1 for a server or an unknown kind. The same line is written to\n"
               "/tmp/.hsysinfo (running system) or /tmp/.csysinfo (with --root).\n"
               "\n"
               "Options:\n"
               "  --root DIR   probe the system tree under DIR (e.g. a mounted image)\n"
               "               instead of the running system; only files are read, the\n"
               "               rpm database queried for KylinSec is always the host's.\n"
               "  -h, --help   show this help\n"
               "\n"
               "Exit status: 0 when the distribution was identified, 1 when not, 2 for a\n"
               "usage error. Log records go to $QUORIX_LOG_FILE (default\n"
               "~/.local/state/quorix/quorix-gui.log) and to standard error\n"
               "(QUORIX_LOG_LEVEL=1 shows every step, QUORIX_LOG_STDERR=0 silences it).\n",
               out);
}

int usageError(char const* message, char const* argument)
{
    std::fprintf(stderr, "probesys: %s%s\n", message, argument);
    printUsage(stderr);
    return kExitUsage;
}

} // namespace

int main(int argc, char** argv)
{
    char const* root = nullptr;
    for (int i = 1; i < argc; ++i) {
        char const* arg = argv[i];
        if (std::strcmp(arg, "-h") == 0 || std::strcmp(arg, "--help") == 0) {
            printUsage(stdout);
            return kExitFound;
        }
        if (std::strcmp(arg, "--root") == 0) {
            if (i + 1 >= argc)
                return usageError("missing directory after ", arg);
            root = argv[++i];
        } else if (std::strncmp(arg, "--root=", 7) == 0) {
            root = arg + 7;
        } else {
            return usageError("unknown argument ", arg);
        }
    }

    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, root);
    std::string const line =
        CProbeSysInfo::cacheLine(result, info.os_name, info.os_version, info.os_arch, info.os_type) + "\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
    if (std::fflush(stdout) != 0)
        return kExitNotFound;
    return result == 1 ? kExitFound : kExitNotFound;
}
