// The mark-up of a report's tables: "<5200|^3600;" and then rows such as "Label:|value;".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct TableColumn {
    bool centred = false;
    double width = 0; // twips
    bool operator==(const TableColumn&) const = default;
};

struct TableMarkup {
    std::vector<TableColumn> columns;
    std::vector<std::vector<std::string>> rows; // each with a cell for each column

    double width() const;
    /// Its first column names the values of the second, the last.
    bool namesValues() const { return columns.size() == 2 && !columns[0].centred && !columns[1].centred; }
    /// The column is centred and holds figures in two rows at least, which stand by their decimal marks.
    bool standsByMarks(std::size_t column) const;
};

/// A figure in three: up to its decimal mark, from there, and the stars that point to a remark.
struct FigureParts {
    std::string before, after, stars;
};
/// None for a text that does not begin with a digit.
std::optional<FigureParts> figureParts(std::string_view text);

/// "<" begins a column whose texts stand left, "^" one with centred texts. Cells are parted by "|", rows end
/// in ";". A row with too few cells is filled up; one with too many keeps the rest as further lines of its
/// last cell, since a text that holds "|" must not get lost.
TableMarkup readTable(std::string_view markup);

/// A cell text whose line ends are blanks.
std::string oneLine(std::string_view text);

/// The fields of a running header or footer, with the page number in place of each "%d".
struct RunningFields {
    std::string left, centre, right;
};
RunningFields runningFields(std::string_view text, std::string_view pageNumber);

} // namespace metrisk
