#include "desk/uncertainty/SampleGrid.h"

#include "base/DecimalForm.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "record/WorksheetGroups.h"
#include "uncertainty/SampleColumn.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

bool isBlank(const std::string& text) {
    return withoutOuterBlanks(text).empty();
}

} // namespace

SampleGrid::SampleGrid(double mode, double factor, const Regional& regional)
    : mode_(mode), factor_(factor), regional_(regional), cells_(maxSampleSize) {}

SampleGrid::Cell SampleGrid::cellOf(const std::string& text) const {
    if (isBlank(text)) return {};
    return {text, sampleValue(text, regional_), measured_};
}

void SampleGrid::fill(const std::vector<double>& values, const std::string& picture) {
    const int decimals = PictureDecimals(picture);
    for (std::size_t i = 0; i < cells_.size() && i < values.size(); ++i) {
        const double value = values[i];
        const bool shows =
            GeneralText(roundedToDecimals(value, decimals), regional_) == GeneralText(value, regional_);
        cells_[i] = {shows ? FormatNumber(value, PictureForDecimals(decimals), regional_)
                           : GeneralText(value, regional_),
                     value, measured_};
    }
}

void SampleGrid::set(int row, const std::string& text) {
    cells_.at(static_cast<std::size_t>(row)) = cellOf(text);
}

SampleGrid::Taken SampleGrid::put(int row, const CellBlock& block) {
    std::vector<std::string> column;
    for (const auto& line : block) column.push_back(line.empty() ? "" : line.front());
    const Regional marks = marksOfColumn(column, regional_);
    Taken result;
    for (std::size_t i = 0; i < column.size(); ++i) {
        const bool blank = isBlank(column[i]);
        result.given += blank ? 0 : 1;
        const std::size_t at = static_cast<std::size_t>(row) + i;
        if (at >= cells_.size()) continue;
        const auto value = sampleValue(column[i], marks);
        result.taken += value ? 1 : 0;
        const bool foreign = value && marks.DecimalSymbol != regional_.DecimalSymbol;
        cells_[at] =
            foreign
                ? Cell{FormatNumber(*value, PictureForDecimals(DigitsForEntry(column[i], marks)), regional_),
                       value, measured_}
                : cellOf(column[i]);
    }
    return result;
}

bool SampleGrid::insertRows(int row, int count) {
    const auto holds = [](const Cell& cell) { return !cell.text.empty(); };
    if (std::any_of(cells_.end() - std::min(count, rows() - row), cells_.end(), holds)) return false;
    std::rotate(cells_.begin() + row, cells_.end() - std::min(count, rows() - row), cells_.end());
    return true;
}

void SampleGrid::deleteRows(int row, int count) {
    count = std::min(count, rows() - row);
    std::fill_n(cells_.begin() + row, count, Cell{});
    std::rotate(cells_.begin() + row, cells_.begin() + row + count, cells_.end());
}

double SampleGrid::shownValue(const Cell& cell) const {
    if (cell.measured == measured_) return *cell.value;
    return measured_ ? mode_ + *cell.value / factor_ : (*cell.value - mode_) * factor_;
}

std::string SampleGrid::text(int row) const {
    const Cell& cell = cells_.at(static_cast<std::size_t>(row));
    if (!cell.value || cell.measured == measured_) return cell.text;
    const double value = shownValue(cell);
    if (measured_) return GeneralText(value, regional_);
    // A difference of two values has no more digits than they have behind the point.
    const double rounding = 4 * std::numeric_limits<double>::epsilon() *
                            std::max(std::fabs(mode_), std::fabs(*cell.value)) * factor_;
    const int decimals = rounding > 0 ? static_cast<int>(std::floor(-std::log10(rounding))) : 15;
    return GeneralText(roundedToDecimals(value, decimals), regional_);
}

bool SampleGrid::isRefused(int row) const {
    const Cell& cell = cells_.at(static_cast<std::size_t>(row));
    return !cell.text.empty() && !cell.value;
}

std::vector<double> SampleGrid::values() const {
    std::vector<double> all;
    for (const Cell& cell : cells_)
        if (cell.value) all.push_back(shownValue(cell));
    return all;
}

int SampleGrid::decimals() const {
    int most = 0;
    for (int row = 0; row < rows(); ++row)
        if (cells_[static_cast<std::size_t>(row)].value)
            most = std::max(most, DigitsForEntry(text(row), regional_));
    return most;
}

} // namespace metrisk
