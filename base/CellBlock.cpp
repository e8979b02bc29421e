#include "base/CellBlock.h"

namespace metrisk {

namespace {

std::string withoutQuotesAround(std::string_view cell) {
    if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') cell = cell.substr(1, cell.size() - 2);
    return std::string(cell);
}

std::vector<std::string> readLine(std::string_view line) {
    std::vector<std::string> cells;
    for (;;) {
        const std::size_t tab = line.find('\t');
        cells.push_back(withoutQuotesAround(line.substr(0, tab)));
        if (tab == line.npos) return cells;
        line.remove_prefix(tab + 1);
    }
}

} // namespace

CellBlock readCells(std::string_view text) {
    CellBlock cells;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        cells.push_back(readLine(text.substr(0, end)));
        if (end == text.npos) break;
        const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
        text.remove_prefix(end + (pair ? 2 : 1));
    }
    return cells;
}

std::string writeCells(const CellBlock& cells) {
    std::string text;
    for (const auto& line : cells) {
        for (std::size_t i = 0; i < line.size(); ++i) text.append(i ? "\t" : "").append(line[i]);
        text += '\n';
    }
    return text;
}

} // namespace metrisk
