#include "desk/points/PointContent.h"

#include "rows/Cell.h"

namespace metrisk {

namespace {

std::string_view aboutFigure(std::string_view name) {
    for (const WantInfo& info : wantTable())
        for (const FigureColumn& figure : info.columns)
            if (figure.name == name) return figure.about;
    return "";
}

/// A message that is about a cell begins with the entry of its column.
bool isAbout(std::string_view message, std::string_view column) {
    const auto entry = entryOfColumn(column);
    return entry && message.starts_with("column " + std::string(infoOf(*entry).name) + ":");
}

} // namespace

std::optional<Entry> entryOfColumn(std::string_view column) {
    return entryNamed(bareName(column));
}

int PointContent::rowCount() const {
    return static_cast<int>(view_.rows.size());
}

int PointContent::columnCount() const {
    const std::size_t figures = view_.rules ? view_.rules->columns().size() : 0;
    return static_cast<int>(view_.sheet.columns().size() + figures);
}

std::string PointContent::heading(int column) const {
    const auto& own = view_.sheet.columns();
    const auto place = static_cast<std::size_t>(column);
    if (place < own.size()) return own[place];
    return view_.rules ? view_.rules->columns()[place - own.size()] : "";
}

std::string PointContent::headingTip(int column) const {
    const std::string name = heading(column);
    if (static_cast<std::size_t>(column) >= view_.sheet.columns().size())
        return std::string(aboutFigure(bareName(name)));
    const auto entry = entryOfColumn(name);
    return entry ? std::string(infoOf(*entry).about) : "Passed through";
}

std::string PointContent::rowName(int row) const {
    return std::to_string(sheetRow(row) + 1);
}

std::string PointContent::rowFault(int row) const {
    const PointAnswer* answer = view_.answer(sheetRow(row));
    return answer && answer->isFault() ? view_.rules->message(*answer) : "";
}

SheetCell PointContent::cell(int row, int column) const {
    const std::size_t at = sheetRow(row);
    if (at >= view_.sheet.size()) return {};
    const auto place = static_cast<std::size_t>(column);
    const std::size_t own = view_.sheet.columns().size();
    return place < own ? ownCell(at, place) : figure(at, place - own);
}

SheetCell PointContent::ownCell(std::size_t row, std::size_t column) const {
    SheetCell cell{.text = view_.sheet.cell(row, column)};
    const PointAnswer* answer = view_.answer(row);
    if (!answer || !answer->isFault()) return cell;
    const std::string message = view_.rules->message(*answer);
    if (!isAbout(message, view_.sheet.columns()[column])) return cell;
    cell.look = SheetCell::Look::Fault;
    cell.tip = message;
    return cell;
}

SheetCell PointContent::figure(std::size_t row, std::size_t column) const {
    SheetCell cell{.look = SheetCell::Look::Result, .locked = true};
    const PointAnswer* answer = view_.answer(row);
    if (!answer) return cell;
    cell.text = view_.rules->cell(*answer, column);
    cell.isFigure = plainNumberOf(cell.text, view_.rules->marks()).has_value();
    if (answer->isFault()) cell.look = SheetCell::Look::Fault;
    if (answer->status != PointStatus::Ok) cell.tip = view_.rules->message(*answer);
    return cell;
}

} // namespace metrisk
