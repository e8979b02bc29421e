#include "cli/FileList.h"

#include "base/Text.h"
#include "cli/Output.h"
#include "unattended/Input.h"

#include <algorithm>
#include <cstdio>

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
    const std::string bytes = readInput(from, largestList);
    const std::string_view list = null ? std::string_view(bytes) : withoutByteOrderMark(bytes);
    const char end = null ? '\0' : '\n';
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t next = std::min(list.find(end, at), list.size());
        std::string_view name = list.substr(at, next - at);
        if (!null && name.ends_with('\r')) name.remove_suffix(1);
        if (!name.empty()) files.emplace_back(name);
        at = next + 1;
    }
    if (files.empty()) std::fputs(forDiagnostics(from + ": names no file\n").c_str(), stderr);
}

} // namespace metrisk::cli
