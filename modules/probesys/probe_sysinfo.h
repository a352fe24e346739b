#pragma once

#include <cstdint>
#include <string>

// Result of one distribution probe.
struct probe_sysinfo_s
{
    std::string os_name;    // distribution key, lower case ("kylin", "uos", ...)
    std::string os_version; // as the distribution's reader produced it
    std::string os_arch;    // uname machine, "mips64" for every mips64 variant
    int32_t os_type;        // 0 desktop, 1 server or not known to be a desktop

    probe_sysinfo_s()
        : os_type(1)
    {
    }
};

// Identifies the Linux distribution, its version, installation kind and the
// processor architecture from the release files under a root prefix, and
// leaves the answer in a one-line cache file under /tmp. Stateless; every
// operation is static and never throws. Readers return 1 on success, 0 on
// failure, and log their failures.
class CProbeSysInfo
{
public:
    // Source module of the probe's log records.
    static constexpr char const kLogModule[] = "modules/probesys/probe_sysinfo";

    // The probe. `root` is put in front of every probed path; nullptr probes
    // the running system and writes /tmp/.hsysinfo, any other value writes
    // /tmp/.csysinfo. The record is filled even when the result is 0.
    static int getPlatformSystemInfo(probe_sysinfo_s& info, char const* root);
    // The same probe field by field; `type` keeps the caller's value where no
    // reader sets it.
    static int getPlatformSystemInfo(std::string& name, std::string& arch, std::string& version, int& type,
                                     char const* root);

    static std::string getArch();

    static int getSystemInfoByOsRelease(std::string& root, std::string& name, std::string& arch,
                                        std::string& version, int& type);
    static int getSystemInfoBySystemRelease(std::string& root, std::string& name, std::string& arch,
                                            std::string& version, int& type);

    // Everything `cmd` prints on standard output (at most 1 MiB), "" when it cannot run.
    static std::string execCmd(std::string const& cmd);

    static bool isGFBKylin();
    // isGFBKylin for the system tree under `root`.
    static bool isGFBKylin(std::string const& root);

    // The cache line "result|name|version|arch|type", without its line end.
    static std::string cacheLine(int result, std::string const& name, std::string const& version,
                                 std::string const& arch, int type);
    static char const* cacheFilePath(char const* root);

    // Readers of general use.
    static int get_os_version(char const* path, std::string& version);
    static int get_os_name_version(char const* path, std::string& name, std::string& version);
    static int get_os_name_version(std::string& name, std::string& version, std::string& path);
    static int get_os_name_versionid(std::string& name, std::string& version, std::string& path);
    static int get_os_versionid(std::string& path, std::string& version);

    // Distribution readers; `root` is the probe's root prefix.
    static int get_centos(std::string& version, std::string const& root);
    static int get_redhat(std::string& version, std::string const& root);
    static int get_ubuntu(std::string& version, std::string const& root);
    static int get_alpine(std::string& version, std::string const& root);
    static int get_bclinux(std::string& version, std::string const& root);
    static int get_nfs(std::string& version, int& type, std::string const& root);
    static int get_openEuler(std::string& version, std::string const& root);
    static int get_euleros(std::string& version, std::string const& root);
    static int get_anolis(std::string& version, std::string const& root);
    static int get_debian(std::string& version, std::string const& root);
    static int get_suse(std::string& name, std::string& version, std::string const& path, bool fromOsRelease);
    static int get_kylin(std::string& version, int& type, std::string const& root);
    static int get_kylin_productinfo(std::string& version, std::string const& path);
    static int get_neokylin(std::string& version, int& type, std::string const& root);
    static int get_kylinsec(std::string& version, int& type, std::string const& root);
    static int get_uos(std::string& version, int& type, std::string const& root);

private:
    static int probe(std::string& name, std::string& arch, std::string& version, int& type, char const* root,
                     bool recordForm);
    static void writeCache(char const* path, std::string const& line);
    // Reads `key` of a properties file, quotes stripped and lower-cased; logs
    // the missing field on behalf of `caller` when it is absent or empty.
    static bool readField(std::string const& path, char const* key, std::string& value, char const* caller);
    // The os-release file if present, else the distribution's release file.
    static int versionFromOsReleaseOrFile(std::string& version, std::string const& root, char const* releaseFile,
                                          char const* key, char const* caller);
};
