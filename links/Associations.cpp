#include "links/Associations.h"

#include "base/AtomicFile.h"
#include "links/DesktopEntry.h"
#include "links/Programs.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <set>
#include <string_view>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestList = std::size_t{4} * 1024 * 1024;

std::vector<std::string> split(std::string_view text, char mark) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(mark, at), text.size());
        if (end > at) parts.emplace_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

std::string variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

/// The entry of that name, in which a "-" may stand for a folder.
std::string entryPath(std::string id, const AssociationPlaces& places) {
    if (id.find('/') != id.npos) return "";
    for (std::size_t dash = 0;; ++dash) {
        for (const fs::path& folder : places.applicationFolders) {
            const fs::path path = folder / id;
            const auto text = readWholeFile(path, largestList);
            if (!text) continue;
            const auto entry = readDesktopEntry(*text);
            const bool usable =
                entry && !entry->Hidden && (entry->TryExec.empty() || !findProgram(entry->TryExec).empty());
            return usable ? path.string() : ""; // a hidden one hides those behind it
        }
        dash = id.find('-', dash);
        if (dash == id.npos) return "";
        id[dash] = '/';
    }
}

/// The programs that a list names for that type.
std::vector<std::string> named(const KeyFile& list, std::string_view group, std::string_view type) {
    return split(list.find(group, type).value_or(""), ';');
}

std::vector<KeyFile> readLists(const AssociationPlaces& places) {
    std::vector<KeyFile> lists;
    const auto add = [&](const fs::path& path) {
        if (const auto text = readWholeFile(path, largestList)) lists.emplace_back(*text);
    };
    for (const auto* folders : {&places.configFolders, &places.applicationFolders})
        for (const fs::path& folder : *folders) {
            for (const std::string& desktop : places.desktops) add(folder / (desktop + "-mimeapps.list"));
            add(folder / "mimeapps.list");
        }
    return lists;
}

std::string firstEntry(const std::vector<std::string>& ids, const std::set<std::string>& removed,
                       const AssociationPlaces& places) {
    for (const std::string& id : ids) {
        if (removed.contains(id)) continue;
        if (std::string path = entryPath(id, places); !path.empty()) return path;
    }
    return "";
}

std::string entryOf(const std::string& type, const std::vector<KeyFile>& lists,
                    const std::vector<KeyFile>& caches, const AssociationPlaces& places) {
    for (const KeyFile& list : lists) {
        const auto ids = named(list, "Default Applications", type);
        if (std::string path = firstEntry(ids, {}, places); !path.empty()) return path;
    }
    std::set<std::string> removed;
    for (const KeyFile& list : lists) {
        const auto added = named(list, "Added Associations", type);
        if (std::string path = firstEntry(added, removed, places); !path.empty()) return path;
        for (std::string& id : named(list, "Removed Associations", type)) removed.insert(std::move(id));
    }
    for (const KeyFile& cache : caches) {
        const auto ids = named(cache, "MIME Cache", type);
        if (std::string path = firstEntry(ids, removed, places); !path.empty()) return path;
    }
    return "";
}

} // namespace

AssociationPlaces AssociationPlaces::ofUser() {
    const std::string home = variable("HOME", "/");
    const auto folders = [](const std::string& first, const std::string& others, const char* below) {
        std::vector<fs::path> all;
        for (const std::string& folder : split(first + ':' + others, ':'))
            if (folder.starts_with('/')) all.push_back(fs::path(folder) / below);
        return all;
    };
    AssociationPlaces places;
    places.configFolders =
        folders(variable("XDG_CONFIG_HOME", home + "/.config"), variable("XDG_CONFIG_DIRS", "/etc/xdg"), "");
    places.applicationFolders =
        folders(variable("XDG_DATA_HOME", home + "/.local/share"),
                variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"), "applications");
    places.desktops = split(variable("XDG_CURRENT_DESKTOP", ""), ':');
    for (std::string& desktop : places.desktops)
        std::ranges::transform(desktop, desktop.begin(),
                               [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return places;
}

Association findAssociation(std::span<const std::string> types, const AssociationPlaces& places) {
    const std::vector<KeyFile> lists = readLists(places);
    std::vector<KeyFile> caches;
    for (const fs::path& folder : places.applicationFolders)
        if (const auto text = readWholeFile(folder / "mimeinfo.cache", largestList))
            caches.emplace_back(*text);
    for (const std::string& type : types)
        if (std::string entry = entryOf(type, lists, caches, places); !entry.empty())
            return {std::move(entry), type};
    return {};
}

} // namespace metrisk
