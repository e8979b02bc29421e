#include "base/CellBlock.h"

#include <optional>

namespace metrisk {

namespace {

constexpr std::string_view cellEnds = "\t\r\n";

/// Takes a cell in quotes away from the text, and leaves the text where it begins with none.
std::optional<std::string> takeQuoted(std::string_view& text) {
    if (!text.starts_with('"')) return std::nullopt;
    std::string cell;
    for (std::size_t from = 1;;) {
        const std::size_t quote = text.find('"', from);
        if (quote == text.npos) return std::nullopt;
        cell += text.substr(from, quote - from);
        from = quote + 1;
        const bool ends = from == text.size() || cellEnds.find(text[from]) != cellEnds.npos;
        if (ends) {
            text.remove_prefix(from);
            return cell;
        }
        if (text[from] != '"') return std::nullopt;
        cell += '"';
        ++from;
    }
}

std::string takeCell(std::string_view& text) {
    if (auto quoted = takeQuoted(text)) return *std::move(quoted);
    const std::string_view cell = text.substr(0, text.find_first_of(cellEnds));
    text.remove_prefix(cell.size());
    return std::string(cell);
}

void appendCell(std::string& text, std::string_view cell) {
    if (!cell.starts_with('"') && cell.find_first_of(cellEnds) == cell.npos) {
        text += cell;
        return;
    }
    text += '"';
    for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
    text += '"';
}

} // namespace

CellBlock readCells(std::string_view text) {
    CellBlock cells;
    while (!text.empty()) {
        auto& line = cells.emplace_back();
        line.push_back(takeCell(text));
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            line.push_back(takeCell(text));
        }
        if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    }
    return cells;
}

std::string writeCells(const CellBlock& cells) {
    std::string text;
    for (const auto& line : cells) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) text += '\t';
            appendCell(text, line[i]);
        }
        text += '\n';
    }
    return text;
}

} // namespace metrisk
