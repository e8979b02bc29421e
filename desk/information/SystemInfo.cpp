#include "desk/information/SystemInfo.h"

#include "base/AtomicFile.h"
#include "base/NumberFormat.h"
#include "desk/information/MemoryStatus.h"
#include "desk/kit/Session.h"

#include <array>
#include <glib.h>
#include <pwd.h>
#include <sched.h>
#include <sqlite3.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace metrisk {

namespace {

std::string userName() {
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return "";
    return found->pw_name;
}

unsigned usableCores() {
    cpu_set_t cores;
    if (::sched_getaffinity(0, sizeof cores, &cores) != 0) return 0;
    return static_cast<unsigned>(CPU_COUNT(&cores));
}

SystemFact memory(const char* name, double bytes, const Regional& regional) {
    constexpr double mebibyte = 1024.0 * 1024;
    if (bytes == 0) return {name, ""};
    return {name, FormatNumber(bytes / mebibyte, "#,##0.0", regional) + " MiB", bytes};
}

} // namespace

std::string distributionName(std::string_view osRelease) {
    constexpr std::string_view key = "PRETTY_NAME=";
    for (std::size_t at = osRelease.find(key); at != osRelease.npos; at = osRelease.find(key, at + 1)) {
        if (at != 0 && osRelease[at - 1] != '\n') continue;
        std::string_view name = osRelease.substr(at + key.size());
        name = name.substr(0, name.find('\n'));
        if (name.size() >= 2 && (name.front() == '"' || name.front() == '\'') && name.back() == name.front())
            name = name.substr(1, name.size() - 2);
        return std::string(name);
    }
    return "";
}

SystemInfo SystemInfo::now() {
    constexpr std::size_t largest = std::size_t{64} * 1024;
    SystemInfo info;
    for (const char* path : {"/etc/os-release", "/usr/lib/os-release"})
        if (const auto text = readWholeFile(path, largest); text && info.system.empty())
            info.system = distributionName(*text);
    utsname kernel{};
    if (::uname(&kernel) == 0) {
        info.kernel = std::string(kernel.sysname) + " " + kernel.release + " " + kernel.machine;
        info.computer = kernel.nodename;
    }
    info.user = userName();
    info.cores = usableCores();
    return info;
}

std::vector<SystemFact> systemFacts(const Session& session, const std::string& toolkit) {
    const SystemInfo info = SystemInfo::now();
    const MemoryStatus status = MemoryStatus::now();
    const Regional& regional = session.regional;
    const std::string glib = std::to_string(glib_major_version) + "." + std::to_string(glib_minor_version) +
                             "." + std::to_string(glib_micro_version);
    std::vector<SystemFact> facts = {
        {"Program", "Metrisk " METRISK_VERSION},
        {"Compiler", METRISK_COMPILER},
        {"Toolkit", toolkit},
        {"Libraries", std::string("SQLite ") + sqlite3_libversion() + ", GLib " + glib},
        {"System", info.system},
        {"Kernel", info.kernel},
        {"Computer", info.computer},
        {"User", info.user},
        {"Cores", std::to_string(info.cores), info.cores},
        memory("Memory", status.total, regional),
        memory("Available Memory", status.available, regional),
        memory("Swap", status.swapTotal, regional),
        memory("Free Swap", status.swapFree, regional),
        memory("Memory of Program", status.program, regional),
        {"Home Directory", session.places.HomeDirectory},
        {"Settings", session.places.SettingsPath},
        {"Units Database", session.places.UnitsDatabasePath}};
    std::erase_if(facts, [](const SystemFact& fact) { return fact.text.empty(); });
    return facts;
}

std::string factsText(const std::vector<SystemFact>& facts) {
    std::string text;
    for (const SystemFact& fact : facts) text += fact.name + ": " + fact.text + "\n";
    return text;
}

} // namespace metrisk
