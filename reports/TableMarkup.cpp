#include "reports/TableMarkup.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace metrisk {

namespace {

std::vector<std::string> split(std::string_view text, char mark) {
    std::vector<std::string> parts;
    for (std::size_t end; (end = text.find(mark)) != text.npos; text.remove_prefix(end + 1))
        parts.emplace_back(text.substr(0, end));
    parts.emplace_back(text);
    return parts;
}

TableColumn readColumn(std::string_view picture) {
    TableColumn column;
    if (!picture.empty() && (picture[0] == '<' || picture[0] == '^')) {
        column.centred = picture[0] == '^';
        picture.remove_prefix(1);
    }
    double width = 0;
    std::from_chars(picture.data(), picture.data() + picture.size(), width);
    if (std::isfinite(width)) column.width = std::max(0.0, width);
    return column;
}

} // namespace

double TableMarkup::width() const {
    double sum = 0;
    for (const TableColumn& column : columns) sum += column.width;
    return sum;
}

bool TableMarkup::standsByMarks(std::size_t column) const {
    return columns[column].centred && std::ranges::count_if(rows, [&](const auto& row) {
                                          return row[column].find('\n') == std::string::npos &&
                                                 figureParts(row[column]).has_value();
                                      }) > 1;
}

std::optional<FigureParts> figureParts(std::string_view text) {
    if (text.empty() || text[0] < '0' || text[0] > '9') return {};
    const std::size_t stars = std::min(text.find(" *"), text.size());
    const std::size_t end = std::min(text.find_first_not_of("0123456789.,"), stars);
    std::size_t mark = text.find_last_of(".,", end - 1);
    if (mark == text.npos) mark = end;
    return FigureParts{std::string(text.substr(0, mark)), std::string(text.substr(mark, stars - mark)),
                       std::string(text.substr(stars))};
}

TableMarkup readTable(std::string_view markup) {
    TableMarkup table;
    const std::size_t end = std::min(markup.find(';'), markup.size());
    for (const std::string& picture : split(markup.substr(0, end), '|'))
        table.columns.push_back(readColumn(picture));
    markup.remove_prefix(std::min(end + 1, markup.size()));
    std::vector<std::string> rows = split(markup, ';');
    if (rows.back().empty()) rows.pop_back();
    for (const std::string& row : rows) {
        std::vector<std::string> cells = split(row, '|');
        while (cells.size() > table.columns.size()) {
            const std::string rest = cells.back();
            cells.pop_back();
            cells.back() += "\n" + rest;
        }
        cells.resize(table.columns.size());
        table.rows.push_back(std::move(cells));
    }
    return table;
}

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return line;
}

RunningFields runningFields(std::string_view text, std::string_view pageNumber) {
    std::vector<std::string> fields = split(text, '|');
    fields.resize(3);
    for (std::string& field : fields)
        for (std::size_t at = 0; (at = field.find("%d", at)) != field.npos; at += pageNumber.size())
            field.replace(at, 2, pageNumber);
    return {fields[0], fields[1], fields[2]};
}

} // namespace metrisk
