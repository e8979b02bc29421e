// Tables on pages: rows that stay whole, headings that are repeated.
#include "reports/PagedDocument.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr double rowPitch = 26.2;   // of a row with one line, for each point of the font
constexpr double leastPadding = 10; // above and below the lines of a row
constexpr double cellGap = 80;      // between the texts of columns
constexpr double leastTable = 1440;
constexpr double leastCell = 200;
constexpr Colour labelColour{90, 96, 104}; // of rows that name a value

} // namespace

/// The texts of the rows as lines in the present font.
std::vector<PagedDocument::Row> PagedDocument::laidOut(const TableMarkup& table) const {
    std::vector<Row> rows;
    for (const auto& texts : table.rows) {
        Row row;
        for (std::size_t column = 0; column < texts.size(); ++column) {
            row.cells.push_back(
                wrapped(texts[column], std::max(table.columns[column].width - cellGap, leastCell)));
            row.lines = std::max(row.lines, row.cells.back().size());
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

double PagedDocument::cellPadding() const {
    return std::max((FontSize * rowPitch - lineHeight()) / 2, leastPadding);
}

double PagedDocument::heightOf(const Row& row) const {
    return static_cast<double>(row.lines) * lineHeight() + 2 * cellPadding();
}

std::optional<double> PagedDocument::markOf(const TableMarkup& table, const std::vector<Row>& rows,
                                            std::size_t column) const {
    if (!table.columns[column].centred || rows.size() < 2) return {};
    double before = 0, after = 0;
    int figures = 0;
    for (const Row& row : rows) {
        const auto& lines = row.cells[column];
        const auto parts = lines.size() == 1 ? figureParts(lines.front()) : std::nullopt;
        if (!parts) continue;
        ++figures;
        before = std::max(before, measure(parts->before, font()));
        after = std::max(after, measure(parts->after, font()));
    }
    if (figures < 2) return {};
    return (table.columns[column].width - cellGap - before - after) / 2 + before;
}

void PagedDocument::placeRow(const TableMarkup& table, const Row& row, double x,
                             const std::vector<std::optional<double>>& marks) {
    const TextFont itsFont = font();
    const double height = lineHeight();
    CurrentY += cellPadding();
    for (std::size_t line = 0; line < row.lines; ++line, CurrentY += height) {
        double left = x;
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            const double width = table.columns[column].width;
            if (line < row.cells[column].size()) {
                const std::string& text = row.cells[column][line];
                const double room = width - cellGap - measure(text, itsFont);
                double begin = table.columns[column].centred ? room / 2 : 0;
                if (const auto parts = figureParts(text);
                    parts && row.cells[column].size() == 1 && column < marks.size() && marks[column])
                    begin = *marks[column] - measure(parts->before, itsFont);
                const bool label = column == 0 && !FontBold && table.namesValues();
                place(left + begin, CurrentY, text, itsFont, label ? labelColour : black);
            }
            left += width;
        }
    }
    CurrentY += cellPadding();
}

/// A row taller than a page goes onto pages by pieces; the rest of it stays in `row`.
void PagedDocument::placeTallRow(const TableMarkup& table, Row& row, double x) {
    while (CurrentY + heightOf(row) > bodyBottom()) {
        const double room = (bodyBottom() - CurrentY - 2 * cellPadding()) / lineHeight();
        const auto fit = static_cast<std::size_t>(std::max(1.0, room));
        if (fit >= row.lines) return;
        Row piece;
        piece.lines = fit;
        for (auto& lines : row.cells) {
            const auto end = lines.begin() + static_cast<std::ptrdiff_t>(std::min(fit, lines.size()));
            piece.cells.emplace_back(lines.begin(), end);
            lines.erase(lines.begin(), end);
        }
        row.lines -= fit;
        placeRow(table, piece, x);
        placeRunningTexts();
        beginPage();
    }
}

void PagedDocument::placeHeading(const TableMarkup& table, double x) {
    for (const Row& row : laidOut(table)) placeRow(table, row, x);
    report_.pages.back().push_back(PlacedRule{x, CurrentY, x + table.width(), CurrentY});
    CurrentY += cellPadding();
}

void PagedDocument::Table(std::string_view markup) {
    TableMarkup table = readTable(markup);
    const double x = MarginLeft + IndentLeft;
    const double most = std::max(PageWidth - MarginRight - x, leastTable);
    if (table.width() > most)
        for (const double share = most / table.width(); TableColumn & column : table.columns)
            column.width *= share;
    std::vector<Row> rows = laidOut(table);
    const bool caption = table.columns.size() == 1 && rows.size() == 1;
    if (caption || FontBold) {
        double whole = 0;
        for (const Row& row : rows) whole += heightOf(row);
        need(whole);
        keepWithNext();
        tableHeading_.reset();
        if (caption) {
            bookmark(table.rows[0][0], 0);
            placeRow(table, rows[0], x);
        } else {
            placeHeading(table, x);
            tableHeading_ = TableHeading{table, CurrentY};
        }
    } else {
        std::vector<std::optional<double>> marks;
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            marks.push_back(markOf(table, rows, column));
        std::optional<TableHeading> heading;
        heading.swap(tableHeading_);
        if (heading && (heading->table.columns != table.columns || heading->below != CurrentY))
            heading.reset();
        for (Row& row : rows) {
            const std::size_t pages = report_.pages.size();
            const bool headingCameAlong = heading_.has_value();
            need(heightOf(row));
            if (heading && !headingCameAlong && report_.pages.size() > pages) {
                FontBold = true;
                placeHeading(heading->table, x);
                FontBold = false;
            }
            contentPlaced();
            placeTallRow(table, row, x);
            placeRow(table, row, x, marks);
        }
    }
    CurrentX = lineStart_ = MarginLeft + IndentLeft;
}

} // namespace metrisk
