#include "desk/points/PointReport.h"

#include "base/Digest.h"
#include "base/NumberFormat.h"
#include "base/Text.h"
#include "desk/points/PointContent.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace metrisk {

namespace {

constexpr std::size_t mostOwnColumns = 8;
constexpr std::size_t mostShownFigures = 5;
constexpr int shownDigits = 6;

std::vector<std::size_t> columnsWithContent(const PointSheet& sheet, const std::vector<std::size_t>& rows) {
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < sheet.columns().size(); ++column)
        if (std::any_of(rows.begin(), rows.end(),
                        [&](std::size_t row) { return !sheet.cell(row, column).empty(); }))
            columns.push_back(column);
    return columns;
}

/// What names a row comes before what it was computed from, and that before what passes through.
int rankOf(const PointSheet& sheet, std::size_t column) {
    const std::string& name = sheet.columns()[column];
    if (column == 0 || equalCaseBlind(trimmedCell(name), "id")) return 0;
    return entryOfColumn(name) ? 1 : 2;
}

/// Those with the best ranks, as many as a page has room for, in the order of the sheet.
std::vector<std::size_t> columnsToPrint(const PointSheet& sheet, std::vector<std::size_t> columns) {
    std::ranges::stable_sort(columns, {}, [&sheet](std::size_t column) { return rankOf(sheet, column); });
    columns.resize(std::min(columns.size(), mostOwnColumns));
    std::ranges::sort(columns);
    return columns;
}

/// A reader must know that there is more than the page shows.
std::string namesLeftOut(const PointSheet& sheet, const std::vector<std::size_t>& columns,
                         const PointRules& rules, std::size_t figures) {
    std::string names;
    const auto add = [&names](const std::string& name) { names += (names.empty() ? "" : ", ") + name; };
    for (const std::size_t column : columns) add(sheet.columns()[column]);
    for (std::size_t i = figures + 1; i + 1 < rules.columns().size(); ++i) add(rules.columns()[i]);
    return names.empty() ? "" : "Not printed: " + names;
}

bool isRisk(std::string_view column) {
    return (column.find("FalseAccept") != column.npos || column.find("FalseReject") != column.npos) &&
           !column.ends_with("Bound");
}

/// A figure in the digits that a reader has use for, risks in percent; any other text as it is.
std::string shown(const std::string& column, const std::string& cell, NumberMarks marks,
                  const Regional& regional) {
    const auto number = plainNumberOf(cell, marks);
    if (!number) return cell;
    return isRisk(column) ? GeneralText(100 * *number, regional, shownDigits - 2) + " %"
                          : GeneralText(*number, regional, shownDigits);
}

} // namespace

TableReport pointReport(const PointSheet& sheet, const PointRules& rules,
                        const std::vector<std::size_t>& rows, const PointReportHead& head,
                        std::string_view results, const Regional& regional) {
    const std::vector<std::size_t> filled = columnsWithContent(sheet, rows);
    const std::vector<std::size_t> own = columnsToPrint(sheet, filled);
    std::vector<std::size_t> others;
    std::ranges::set_difference(filled, own, std::back_inserter(others));
    const std::size_t figures = std::min(rules.columns().size() - 2, mostShownFigures);
    TableReport report{.title = "Test Points",
                       .head = {head.table + ", " + longDate(head.now) + "; template: " + head.base},
                       .columns = {{"Row", 5}},
                       .rows = {},
                       .smallPrint = "SHA-256 of all rows with all figures as CSV: " + sha256(results)};
    std::istringstream totals(head.totals);
    for (std::string line; std::getline(totals, line);) report.head.push_back(line);
    if (const std::string text = namesLeftOut(sheet, others, rules, figures); !text.empty())
        report.head.push_back(text);
    for (const std::size_t column : own) report.columns.push_back({sheet.columns()[column], 10});
    report.columns.push_back({"status", 7});
    for (std::size_t i = 1; i <= figures; ++i) report.columns.push_back({rules.columns()[i], 10});
    report.columns.push_back({"message", 16});
    for (const std::size_t row : rows) {
        std::vector<std::string> cells{std::to_string(row + 1)};
        for (const std::size_t column : own) cells.push_back(sheet.cell(row, column));
        const PointAnswer* answer = answerOf(sheet, &rules, row);
        for (std::size_t i = 0; i <= figures; ++i)
            cells.push_back(
                answer ? shown(rules.columns()[i], rules.cell(*answer, i), rules.marks(), regional) : "");
        cells.push_back(answer ? rules.message(*answer) : sheet[row].record.empty() ? "" : "not computed");
        report.rows.push_back(std::move(cells));
    }
    return report;
}

} // namespace metrisk
