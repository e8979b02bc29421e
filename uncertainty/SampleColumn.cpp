#include "uncertainty/SampleColumn.h"

#include "base/CellBlock.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "record/WorksheetGroups.h"
#include "uncertainty/ErrorCell.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A comma behind a leading zero, or before any but three digits.
bool commaCannotGroup(std::string_view cell) {
    const std::size_t comma = cell.find(',');
    if (comma == cell.npos) return false;
    const std::string_view behind = cell.substr(comma + 1);
    const auto digits =
        static_cast<std::size_t>(std::find_if_not(behind.begin(), behind.end(), isDigit) - behind.begin());
    const std::size_t first = cell.find_first_of("0123456789,");
    return digits != 3 || cell[first] == '0' || cell[first] == ',';
}

int numbersOf(const std::vector<std::string>& line, const Regional& marks) {
    int numbers = 0;
    for (const std::string& cells : line)
        for (std::size_t from = 0; from <= cells.size();) {
            const std::size_t end = std::min(cells.find(';', from), cells.size());
            if (sampleValue(std::string_view(cells).substr(from, end - from), marks)) ++numbers;
            from = end + 1;
        }
    return numbers;
}

} // namespace

std::optional<double> sampleValue(std::string_view cell, const Regional& regional) {
    if (withoutOuterBlanks(cell).empty() || !isNumeric(cell, regional)) return {};
    const double value = ParseValue(cell, regional);
    const bool lost = value == 0 && significantDigits(std::string(cell), regional) > 0;
    if (lost || !std::isfinite(value)) return {};
    return value;
}

Regional marksOfColumn(const std::vector<std::string>& cells, const Regional& regional) {
    const auto hasPeriod = [](const std::string& cell) { return cell.find('.') != cell.npos; };
    Regional marks = regional;
    if (std::none_of(cells.begin(), cells.end(), hasPeriod) &&
        std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return commaCannotGroup(cell); })) {
        marks.DecimalSymbol = ",";
        marks.ThousandSeparator = ".";
    }
    return marks;
}

SampleColumn readSampleColumn(std::string_view text, const Regional& regional) {
    const CellBlock lines = readCells(withoutByteOrderMark(text));
    std::vector<std::string> cells;
    for (const auto& line : lines)
        if (const std::string cell = line.front().substr(0, line.front().find(';'));
            !withoutOuterBlanks(cell).empty())
            cells.push_back(cell);
    const Regional marks = marksOfColumn(cells, regional);
    SampleColumn column;
    const auto isRow = [&](const auto& line) { return numbersOf(line, marks) > 1; };
    if (const auto row = std::ranges::find_if(lines, isRow); row != lines.end())
        column.firstRow = static_cast<int>(row - lines.begin()) + 1;
    column.given = static_cast<int>(cells.size());
    for (const std::string& cell : cells) {
        const auto value = sampleValue(cell, marks);
        if (!value) continue;
        if (column.values.size() == maxSampleSize) break;
        column.values.push_back(*value);
        column.decimals = std::max(column.decimals, DigitsForEntry(cell, marks));
    }
    return column;
}

std::string takenText(std::size_t taken, std::size_t given) {
    return std::to_string(taken) + " of " + std::to_string(given) + " taken";
}

} // namespace metrisk
