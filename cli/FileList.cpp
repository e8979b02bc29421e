#include "cli/FileList.h"

#include "unattended/Input.h"

#include <algorithm>

namespace metrisk::cli {

namespace {

constexpr std::size_t largestList = std::size_t{1} << 30; // bytes

} // namespace

void FileList::addTo(const Arguments& command, const char* about) {
    command.texts("FILE", files, about).shownAs("...").isPath();
    const Argument list =
        command.text("--files-from", from, "Further names, one a line; - for the standard input")
            .shownAs("LIST")
            .isPath();
    command.flag("--null", null, "With --files-from: a NUL behind each name, as find -print0 gives")
        .needs(list);
}

void FileList::check() const {
    if (files.empty() && from.empty()) throw WrongUsage("FILE is required");
    if (from == standardStream && std::ranges::find(files, standardStream) != files.end())
        throw WrongUsage("FILE - and --files-from - both take the standard input");
}

void FileList::read() {
    if (from.empty()) return;
    const std::string list = readInput(from, largestList);
    const char end = null ? '\0' : '\n';
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t next = std::min(list.find(end, at), list.size());
        if (next > at) files.push_back(list.substr(at, next - at));
        at = next + 1;
    }
}

} // namespace metrisk::cli
