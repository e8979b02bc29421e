#include "links/Programs.h"

#include "base/AtomicFile.h"
#include "links/DesktopEntry.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestEntry = std::size_t{1} * 1024 * 1024;

std::optional<DesktopEntry> entryAt(const std::string& path) {
    if (fs::path(path).extension() != ".desktop") return std::nullopt;
    const auto text = readWholeFile(path, largestEntry);
    return text ? readDesktopEntry(*text) : std::nullopt;
}

std::string folderOf(const std::string& path) {
    return fs::path(path).parent_path().string();
}

} // namespace

bool isExecutable(const std::string& path) {
    std::error_code none;
    return fs::is_regular_file(path, none) && ::access(path.c_str(), X_OK) == 0;
}

std::string findProgram(const std::string& name) {
    if (name.empty()) return "";
    if (name.find('/') != name.npos) return isExecutable(name) ? name : "";
    const char* variable = std::getenv("PATH");
    const std::string_view folders = variable ? variable : "/usr/local/bin:/usr/bin:/bin";
    for (std::size_t at = 0; at <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', at), folders.size());
        const fs::path path = fs::path(folders.substr(at, end - at)) / name;
        at = end + 1;
        // A folder named relatively would depend on where this program runs.
        if (path.is_absolute() && isExecutable(path.string())) return path.string();
    }
    return "";
}

std::optional<Launch> launchOf(const std::string& program, const std::string& document) {
    std::vector<std::string> words{program};
    if (!document.empty()) words.push_back(document);
    std::string folder;
    if (const auto entry = entryAt(program)) {
        auto expanded = expandExec(*entry, program, document);
        if (!expanded || entry->Terminal) return std::nullopt;
        words = std::move(*expanded);
        folder = entry->Path;
    }
    Launch launch{.program = findProgram(words.front()), .folder = std::move(folder)};
    if (launch.program.empty()) return std::nullopt;
    launch.arguments.assign(words.begin() + 1, words.end());
    if (launch.folder.empty()) launch.folder = folderOf(launch.program);
    return launch;
}

std::string programOfEntry(const std::string& path) {
    const auto launch = launchOf(path);
    const auto entry = entryAt(path);
    if (!launch || !entry) return "";
    return isPlainExec(*entry) ? launch->program : path;
}

} // namespace metrisk
