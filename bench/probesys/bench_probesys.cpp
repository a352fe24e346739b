// How long the distribution probe takes, against what it cannot beat.
//
//   1. In process: the record-form probe of a Kylin desktop tree, against the
//      floor of reading the same files (and calling uname) with plain read(),
//      and against that floor plus rewriting a one-line file as the cache is.
//   2. As a process: bin/probesys --root <tree>, against `cat /etc/os-release`
//      and `lsb_release -a`, each spawned the same number of times.
//
// Figures are medians; the ratios compare medians of one run.
//
//   bench_probesys [--tree NAME] [--runs N] [--spawns N]
// The trees come from $QUORIX_TESTDATA/release-files (else the build's copy).

#include "probe_sysinfo.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

struct Options
{
    std::string tree = "doc_kylin_desktop_v10sp1_2403";
    int runs = 5000;
    int spawns = 50;
};

double nowMicros()
{
    struct timespec ts {};
    ::clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<double>(ts.tv_sec) * 1e6 + static_cast<double>(ts.tv_nsec) / 1e3;
}

double median(std::vector<double> samples)
{
    if (samples.empty())
        return 0.0;
    std::sort(samples.begin(), samples.end());
    std::size_t const mid = samples.size() / 2;
    return samples.size() % 2 ? samples[mid] : (samples[mid - 1] + samples[mid]) / 2.0;
}

template <typename Work>
std::vector<double> timeRuns(int runs, Work work)
{
    std::vector<double> samples;
    samples.reserve(static_cast<std::size_t>(runs));
    for (int i = 0; i < runs; ++i) {
        double const start = nowMicros();
        work();
        samples.push_back(nowMicros() - start);
    }
    return samples;
}

// The probe's own input for a Kylin desktop tree: its os-release, and uname.
void readFloor(std::string const& osRelease)
{
    char buffer[16384];
    int const fd = ::open(osRelease.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        while (::read(fd, buffer, sizeof buffer) > 0) {
        }
        ::close(fd);
    }
    struct utsname system {};
    ::uname(&system);
}

// What any cache writer pays: truncate and rewrite one short line. On ext4 a
// truncate-and-rewrite also starts write-back at close, which dominates.
void writeFloor(std::string const& path, std::string const& line)
{
    int const fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return;
    if (::write(fd, line.data(), line.size()) < 0)
        std::perror("write");
    ::close(fd);
}

// Runs `argv` with standard output and error on /dev/null; false if it could not start.
bool spawnQuiet(std::vector<char const*> argv)
{
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int const rc = ::posix_spawnp(&pid, argv[0], &actions, nullptr, const_cast<char* const*>(argv.data()), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (rc != 0)
        return false;
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) != 127;
}

double spawnMedian(char const* label, std::vector<char const*> const& argv, int spawns)
{
    if (!spawnQuiet(argv)) { // warm-up, and a check that it runs at all
        std::printf("  %-44s not available\n", label);
        return 0.0;
    }
    double const value = median(timeRuns(spawns, [&] { spawnQuiet(argv); })) / 1000.0;
    std::printf("  %-44s median %8.3f ms  (%d spawns)\n", label, value, spawns);
    return value;
}

Options parseOptions(int argc, char** argv)
{
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--tree") == 0)
            options.tree = argv[i + 1];
        else if (std::strcmp(argv[i], "--runs") == 0)
            options.runs = std::max(1, std::atoi(argv[i + 1]));
        else if (std::strcmp(argv[i], "--spawns") == 0)
            options.spawns = std::max(1, std::atoi(argv[i + 1]));
    }
    return options;
}

} // namespace

int main(int argc, char** argv)
{
    Options const options = parseOptions(argc, argv);
    char const* testdata = std::getenv("QUORIX_TESTDATA");
    std::string const root =
        std::string(testdata && *testdata ? testdata : QUORIX_DEFAULT_TESTDATA) + "/release-files/" + options.tree;
    std::string const osRelease = root + "/etc/os-release";
    if (::access(osRelease.c_str(), R_OK) != 0) {
        std::fprintf(stderr, "bench_probesys: no tree at %s\n", root.c_str());
        return 1;
    }

    probe_sysinfo_s info;
    int const result = CProbeSysInfo::getPlatformSystemInfo(info, root.c_str());
    std::printf("tree %s -> %s\n\n", options.tree.c_str(),
                CProbeSysInfo::cacheLine(result, info.os_name, info.os_version, info.os_arch, info.os_type).c_str());

    std::printf("In process (%d runs each)\n", options.runs);
    double const probe = median(timeRuns(options.runs, [&] {
        probe_sysinfo_s sample;
        CProbeSysInfo::getPlatformSystemInfo(sample, root.c_str());
    }));
    double const floor = median(timeRuns(options.runs, [&] { readFloor(osRelease); }));
    char scratch[] = "/tmp/bench_probesys.XXXXXX";
    int const scratchFd = ::mkstemp(scratch);
    if (scratchFd >= 0)
        ::close(scratchFd);
    std::string const line = CProbeSysInfo::cacheLine(result, info.os_name, info.os_version, info.os_arch,
                                                      info.os_type) + "\n";
    double const floorWithWrite = median(timeRuns(options.runs, [&] {
        readFloor(osRelease);
        writeFloor(scratch, line);
    }));
    ::unlink(scratch);
    std::printf("  %-44s median %8.2f us\n", "probe (record form, writes /tmp/.csysinfo)", probe);
    std::printf("  %-44s median %8.2f us\n", "floor: read() of os-release + uname", floor);
    std::printf("  %-44s median %8.2f us\n", "floor + truncate-and-write of one line", floorWithWrite);
    std::printf("  ratio probe / read floor: %.1f\n", floor > 0 ? probe / floor : 0.0);
    std::printf("  ratio probe / read+write floor: %.2f\n\n", floorWithWrite > 0 ? probe / floorWithWrite : 0.0);

    std::printf("As a process\n");
    std::string const tool = QUORIX_PROBESYS_PATH;
    double const probesys =
        spawnMedian("probesys --root <tree>", {tool.c_str(), "--root", root.c_str()}, options.spawns);
    double const cat = spawnMedian("cat /etc/os-release", {"cat", "/etc/os-release"}, options.spawns);
    double const lsb = spawnMedian("lsb_release -a", {"lsb_release", "-a"}, options.spawns);
    if (probesys > 0 && cat > 0)
        std::printf("  ratio probesys / cat: %.2f\n", probesys / cat);
    if (probesys > 0 && lsb > 0)
        std::printf("  ratio lsb_release / probesys: %.1f\n", lsb / probesys);
    return 0;
}
