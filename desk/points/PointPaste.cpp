#include "desk/points/PointPaste.h"

#include "desk/points/PointSheet.h"
#include "rows/Cell.h"
#include "rows/Entries.h"

#include <algorithm>

namespace metrisk {

namespace {

/// A near miss is a name as well: the header's fault then says what was meant.
bool namesEntry(const std::string& cell) {
    const std::string_view name = bareName(cell);
    return entryNamed(name) || entryNearly(name);
}

bool isNoName(const std::string& cell) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20; };
    return plainNumberOf(cell) || std::any_of(cell.begin(), cell.end(), isControl);
}

bool isStatus(std::string_view text) {
    return wordOf(pointStatusOf(text)) == text;
}

/// Without blank cells at the end.
std::size_t widthOf(const std::vector<std::string>& line) {
    const auto last = std::find_if(line.rbegin(), line.rend(),
                                   [](const std::string& cell) { return !trimmedCell(cell).empty(); });
    return static_cast<std::size_t>(line.rend() - last);
}

} // namespace

bool beginsWithHeader(const CellBlock& cells) {
    if (cells.empty()) return false;
    const auto& line = cells.front();
    return std::any_of(line.begin(), line.end(), namesEntry) &&
           std::none_of(line.begin(), line.end(), isNoName);
}

std::size_t columnsWithoutPlace(const CellBlock& cells, std::size_t places, std::size_t figures) {
    std::size_t without = 0;
    for (const auto& line : cells) {
        const std::size_t width = widthOf(line);
        if (width <= places) continue;
        const bool copied = places > 0 && line.size() == places + figures && isStatus(line[places]);
        if (!copied) without = std::max(without, width - places);
    }
    return without;
}

} // namespace metrisk
