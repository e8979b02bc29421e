#include "links/AppsList.h"

#include "base/AtomicFile.h"
#include "base/Text.h"

#include <algorithm>
#include <set>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestList = std::size_t{1} * 1024 * 1024;

} // namespace

std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

std::optional<AppsList> readAppsText(std::string_view text) {
    if (!isValidUtf8(text) || text.find('\0') != text.npos) return std::nullopt;
    text = withoutByteOrderMark(text);
    AppsList list;
    std::set<std::string> names;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = text.substr(at, end - at);
        at = end + 1;
        if (line.ends_with('\r')) line.remove_suffix(1);
        const std::size_t first = line.find('\t');
        const std::size_t second = first == line.npos ? first : line.find('\t', first + 1);
        if (second == line.npos || line.find('\t', second + 1) != line.npos) return std::nullopt;
        Application row{std::string(line.substr(0, first)),
                        std::string(line.substr(first + 1, second - first - 1)),
                        std::string(line.substr(second + 1))};
        if (row.name.empty() || !names.insert(row.name).second) return std::nullopt;
        list.push_back(std::move(row));
    }
    return list;
}

std::string writeAppsText(const AppsList& list) {
    std::string text;
    for (const Application& row : list) text += row.name + '\t' + row.path + '\t' + row.extension + '\n';
    return text;
}

AppsList AppsFile::load() {
    mayWrite_ = true;
    held_.clear();
    std::error_code none;
    if (fs::symlink_status(path_, none).type() == fs::file_type::not_found) return {};
    const auto text = readWholeFile(path_, largestList);
    if (!text) {
        mayWrite_ = false;
        return {};
    }
    if (auto list = readAppsText(*text)) {
        held_ = *text;
        return std::move(*list);
    }
    fs::remove(path_, none);
    return {};
}

bool AppsFile::save(const AppsList& list) const {
    const std::string text = writeAppsText(list);
    if (text == held_) return true;
    if (!mayWrite_) return false;
    std::error_code none;
    fs::create_directories(path_.parent_path(), none);
    return replaceFile(path_, text);
}

} // namespace metrisk
