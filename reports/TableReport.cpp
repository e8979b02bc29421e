#include "reports/TableReport.h"

#include "reports/TableMarkup.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* pageNumber = "|- %d -|";
constexpr double headSize = 9, tableSize = 7, smallSize = 6;

std::string formOf(const TableReport& table, double width) {
    double shares = 0;
    for (const TableReportColumn& column : table.columns) shares += column.share;
    std::string form;
    for (const TableReportColumn& column : table.columns)
        form += (form.empty() ? "" : "|") + std::string(column.centred ? "^" : "<") +
                std::to_string(static_cast<int>(width * column.share / shares));
    return form + ";";
}

/// What the mark-up takes for its own is shown by its like.
std::string cellOf(const std::string& text) {
    std::string cell = oneLine(text);
    std::ranges::replace(cell, '|', '/');
    std::ranges::replace(cell, ';', ',');
    return cell;
}

template <class Cells, class Text>
std::string rowOf(const Cells& cells, Text text) {
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i) row += (i > 0 ? "|" : "") + cellOf(text(cells[i]));
    return row + ";";
}

} // namespace

PageSetup tablePage() {
    constexpr double margin = 720;
    PageSetup page = PageSetup::ofMillimetres(297, 210);
    page.left = page.right = page.top = page.bottom = margin;
    return page;
}

void composeTable(const TableReport& table, ReportDocument& document) {
    document.Header = "|" + cellOf(table.title) + "|";
    document.Footer = pageNumber;
    document.HdrFontBold = true;
    document.StartDoc();
    document.FontSize = headSize;
    for (const std::string& line : table.head) document.Text(line);
    document.CurrentY += 120;
    document.FontSize = tableSize;
    const std::string form = formOf(table, document.textWidth());
    document.FontBold = true;
    document.Table(form + rowOf(table.columns, [](const TableReportColumn& column) { return column.name; }));
    document.FontBold = false;
    std::string rows;
    for (const auto& row : table.rows) rows += rowOf(row, [](const std::string& text) { return text; });
    if (!rows.empty()) document.Table(form + rows);
    document.FontSize = smallSize;
    document.SmallPrint(table.smallPrint);
    document.EndDoc();
}

} // namespace metrisk
