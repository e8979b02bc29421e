#include "desk/points/PointSheet.h"

#include "rows/Cell.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>

namespace metrisk {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t mostKeptRows = 2'000'000; // of all steps back
constexpr std::string_view firstOutput = "status", lastOutput = "message";

std::string_view withoutLineEnd(std::string_view record) {
    if (record.ends_with('\n')) record.remove_suffix(1);
    if (record.ends_with('\r')) record.remove_suffix(1);
    return record;
}

std::string encoded(std::string_view text, char delimiter) {
    std::string cell;
    appendCell(cell, text, delimiter);
    return cell;
}

/// A semicolon or a tab without quotes would be taken for the delimiter of the whole table.
std::string encodedName(std::string_view name, char delimiter) {
    const std::string cell = encoded(name, delimiter);
    return cell == name && name.find_first_of(";\t") != name.npos ? '"' + cell + '"' : cell;
}

} // namespace

std::string_view bareName(std::string_view column) {
    return trimmedCell(column.substr(0, column.find('[')));
}

PointSheet::PointSheet(std::string_view header) : header_(header), rows_(1) {
    readHeader();
}

PointSheet PointSheet::ofText(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw std::runtime_error("It is UTF-16: save it as CSV UTF-8.");
    const bool marked = bytes.starts_with(byteOrderMark);
    if (marked) bytes.remove_prefix(byteOrderMark.size());
    const std::string_view line = bytes.substr(0, bytes.find('\n'));
    if (withoutLineEnd(line).empty()) throw std::runtime_error("Its first line names no columns.");
    if (line.find('\0') != line.npos) throw std::runtime_error("It is no table of texts.");
    CsvForm form{delimiterOf(line)};
    const std::string_view header = bytes.substr(0, recordSize(bytes, form, true));
    PointSheet sheet(withoutLineEnd(header));
    sheet.crlf_ = header.ends_with("\r\n");
    sheet.byteOrderMark_ = marked;
    sheet.rows_.clear();
    for (std::string_view rest = bytes.substr(header.size()); !rest.empty();) {
        const std::string_view record = rest.substr(0, recordSize(rest, sheet.form_, true));
        sheet.rows_.push_back({std::string(withoutLineEnd(record))});
        rest.remove_prefix(record.size());
    }
    // What `rows` has written before is computed again.
    const auto from = std::find(sheet.columns_.begin(), sheet.columns_.end(), firstOutput);
    if (from == sheet.columns_.begin() || from == sheet.columns_.end() || sheet.columns_.back() != lastOutput)
        return sheet;
    const auto kept = static_cast<std::size_t>(from - sheet.columns_.begin());
    std::vector<std::string> names = sheet.cellsOf(sheet.header_);
    names.resize(kept);
    sheet.rows_ = sheet.edited([kept](std::vector<std::string>& cells) { cells.resize(kept); });
    sheet.header_ = sheet.recordOf(names);
    sheet.readHeader();
    return sheet;
}

std::string PointSheet::text() const {
    const std::string_view end = crlf_ ? "\r\n" : "\n";
    std::string all(byteOrderMark_ ? byteOrderMark : "");
    all += header_;
    all += end;
    for (const PointRow& row : rows_) {
        all += row.record;
        all += end;
    }
    return all;
}

bool PointSheet::isBlank() const {
    return std::all_of(rows_.begin(), rows_.end(), [](const PointRow& row) { return row.record.empty(); });
}

void PointSheet::readHeader() {
    form_.delimiter = delimiterOf(header_);
    CsvRecord record;
    readRecord(header_, form_, record);
    columns_.clear();
    for (const CsvCell& cell : record.cells) columns_.emplace_back(trimmedCell(cell.text));
}

std::string PointSheet::cell(std::size_t row, std::size_t column) const {
    CsvRecord record;
    readRecord(rows_[row].record, form_, record);
    return column < record.cells.size() ? std::string(record.cells[column].text) : "";
}

std::vector<std::string> PointSheet::cellsOf(std::string_view bytes) const {
    CsvRecord record;
    readRecord(bytes, form_, record);
    std::vector<std::string> cells(columns_.size());
    // Behind a flaw there is nothing that could be told apart.
    for (std::size_t i = 0; i < std::min(cells.size(), record.cells.size()); ++i)
        cells[i] = record.cells[i].raw;
    return cells;
}

std::string PointSheet::recordOf(const std::vector<std::string>& cells) const {
    std::string record;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) record += form_.delimiter;
        record += cells[i];
    }
    return record;
}

template <class Edit>
std::vector<PointRow> PointSheet::edited(Edit edit) const {
    std::vector<PointRow> rows;
    rows.reserve(rows_.size());
    for (const PointRow& row : rows_) {
        if (row.record.empty()) {
            rows.push_back(row);
            continue;
        }
        std::vector<std::string> cells = cellsOf(row.record);
        edit(cells);
        rows.push_back({recordOf(cells)});
    }
    return rows;
}

std::size_t PointSheet::nextState() {
    static std::atomic<std::size_t> last = 0;
    return ++last;
}

PointSheet::Change PointSheet::apply(Change change) {
    // Rows that only change stay where they are; the rows behind them move if their number does.
    const std::size_t shared = std::min(change.count, change.rows.size());
    Change back{header_, change.at, change.rows.size(), {}, state_};
    const auto from = rows_.begin() + static_cast<std::ptrdiff_t>(change.at);
    const auto kept = from + static_cast<std::ptrdiff_t>(shared);
    const auto to = from + static_cast<std::ptrdiff_t>(change.count);
    back.rows.assign(std::make_move_iterator(from), std::make_move_iterator(to));
    const auto fresh = change.rows.begin() + static_cast<std::ptrdiff_t>(shared);
    std::move(change.rows.begin(), fresh, from);
    if (kept != to)
        rows_.erase(kept, to);
    else
        rows_.insert(kept, std::make_move_iterator(fresh), std::make_move_iterator(change.rows.end()));
    state_ = change.state;
    if (header_ != change.header) {
        header_ = std::move(change.header);
        readHeader();
    }
    return back;
}

void PointSheet::step(std::vector<Change>& from, std::vector<Change>& to) {
    if (from.empty()) return;
    Change next = std::move(from.back());
    from.pop_back();
    to.push_back(apply(std::move(next)));
}

void PointSheet::change(std::size_t at, std::size_t count, std::vector<PointRow> rows) {
    undo_.push_back(apply({header_, at, count, std::move(rows), nextState()}));
    redo_.clear();
    std::size_t kept = 0;
    for (auto each = undo_.rbegin(); each != undo_.rend(); ++each) {
        kept += each->rows.size();
        if (kept <= mostKeptRows || each == undo_.rbegin()) continue;
        undo_.erase(undo_.begin(), each.base());
        break;
    }
}

void PointSheet::change(std::string header, std::vector<PointRow> rows) {
    undo_.push_back(apply({std::move(header), 0, rows_.size(), std::move(rows), nextState()}));
    redo_.clear();
}

void PointSheet::put(std::size_t row, std::size_t column, const CellBlock& cells) {
    std::vector<std::size_t> places(cells.size());
    for (std::size_t i = 0; i < places.size(); ++i) places[i] = row + i;
    put(places, column, cells);
}

void PointSheet::put(const std::vector<std::size_t>& places, std::size_t column, const CellBlock& cells) {
    if (places.empty() || column >= columns_.size()) return;
    const std::size_t first = std::min(*std::min_element(places.begin(), places.end()), rows_.size());
    const std::size_t last = *std::max_element(places.begin(), places.end());
    std::vector<PointRow> rows(rows_.begin() + static_cast<std::ptrdiff_t>(first),
                               rows_.begin() + static_cast<std::ptrdiff_t>(std::min(last + 1, rows_.size())));
    const std::size_t replaced = rows.size();
    rows.resize(last + 1 - first);
    bool different = replaced < rows.size();
    for (std::size_t i = 0; i < std::min(places.size(), cells.size()); ++i) {
        PointRow& row = rows[places[i] - first];
        std::vector<std::string> changed = cellsOf(row.record);
        for (std::size_t j = 0; j < cells[i].size() && column + j < changed.size(); ++j)
            changed[column + j] = encoded(cells[i][j], form_.delimiter);
        const bool blank =
            std::all_of(changed.begin(), changed.end(), [](const auto& c) { return c.empty(); });
        std::string record = blank ? std::string() : recordOf(changed);
        if (record == row.record) continue;
        row = {std::move(record)};
        different = true;
    }
    if (different) change(first, replaced, std::move(rows));
}

void PointSheet::putTable(const CellBlock& cells) {
    std::string bytes;
    for (const auto& line : cells) {
        const bool isHeader = bytes.empty();
        const bool blank = std::all_of(line.begin(), line.end(), [](const auto& c) { return c.empty(); });
        for (std::size_t i = 0; i < line.size() && !blank; ++i) {
            if (i > 0) bytes += form_.delimiter;
            bytes += isHeader ? encodedName(line[i], form_.delimiter) : encoded(line[i], form_.delimiter);
        }
        bytes += '\n';
    }
    PointSheet read = ofText(bytes);
    change(std::move(read.header_), std::move(read.rows_));
}

void PointSheet::insertRows(std::size_t at, std::size_t count) {
    change(std::min(at, rows_.size()), 0, std::vector<PointRow>(count));
}

void PointSheet::removeRows(const std::vector<std::size_t>& rows) {
    if (rows.empty()) return;
    std::vector<PointRow> kept;
    auto next = rows.begin();
    for (std::size_t row = rows.front(); row <= rows.back(); ++row) {
        if (*next == row)
            ++next;
        else
            kept.push_back(rows_[row]);
    }
    change(rows.front(), rows.back() - rows.front() + 1, std::move(kept));
}

void PointSheet::duplicateRows(const std::vector<std::size_t>& rows) {
    if (rows.empty()) return;
    std::vector<PointRow> copies;
    copies.reserve(rows.size());
    for (const std::size_t row : rows) copies.push_back(rows_[row]);
    change(rows.back() + 1, 0, std::move(copies));
}

void PointSheet::reorder(const std::vector<std::size_t>& order) {
    std::vector<PointRow> rows;
    rows.reserve(order.size());
    for (const std::size_t row : order) rows.push_back(rows_[row]);
    change(0, rows_.size(), std::move(rows));
}

void PointSheet::insertColumn(std::size_t at, std::string_view name) {
    const auto place = static_cast<std::ptrdiff_t>(std::min(at, columns_.size()));
    const auto insert = [place](std::vector<std::string>& cells, std::string cell) {
        cells.insert(cells.begin() + place, std::move(cell));
    };
    std::vector<std::string> names = cellsOf(header_);
    insert(names, encodedName(name, form_.delimiter));
    change(recordOf(names), edited([&](std::vector<std::string>& cells) { insert(cells, ""); }));
}

void PointSheet::renameColumn(std::size_t column, std::string_view name) {
    if (column >= columns_.size() || columns_[column] == name) return;
    std::vector<std::string> names = cellsOf(header_);
    names[column] = encodedName(name, form_.delimiter);
    change(recordOf(names), edited([](std::vector<std::string>&) {}));
}

void PointSheet::removeColumn(std::size_t column) {
    if (column >= columns_.size() || columns_.size() < 2) return;
    const auto remove = [column](std::vector<std::string>& cells) {
        cells.erase(cells.begin() + static_cast<std::ptrdiff_t>(column));
    };
    std::vector<std::string> names = cellsOf(header_);
    remove(names);
    change(recordOf(names), edited(remove));
}

} // namespace metrisk
