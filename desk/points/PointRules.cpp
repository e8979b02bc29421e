#include "desk/points/PointRules.h"

#include "rows/PointRecord.h"

#include <algorithm>
#include <atomic>
#include <limits>

namespace metrisk {

namespace {

double numberIn(std::string_view text, NumberMarks marks) {
    return plainNumberOf(text, marks).value_or(std::numeric_limits<double>::quiet_NaN());
}

} // namespace

PointRules::PointRules(const Analysis& base, const Regional& regional, const Want& want,
                       std::string_view header, NumberMarks marks)
    : base_(base), regional_(regional), point_(testPointOf(base_, regional_)),
      table_({.marks = marks, .want = want}, point_, UnitFactors::shipped(), header), header_(header) {
    static std::atomic<unsigned> made;
    number_ = ++made;
    const std::string output = table_.outputHeader();
    CsvRecord record;
    readRecord(output, table_.form(), record);
    for (std::size_t i = table_.inputColumns(); i < record.cells.size(); ++i)
        columns_.emplace_back(record.cells[i].text);
    const auto place = [this](std::string_view name) {
        const auto found = std::find(columns_.begin(), columns_.end(), name);
        return found == columns_.end() ? std::size_t{0} : static_cast<std::size_t>(found - columns_.begin());
    };
    falseAcceptAt_ = place("FalseAccept");
    turAt_ = place("TUR");
}

PointAnswer PointRules::answer(std::string_view record, RowScratch& scratch) const {
    PointAnswer answer;
    std::string output;
    RowCounts counts;
    table_.process(std::string(record) + "\n", scratch, output, counts);
    while (output.ends_with('\n')) output.pop_back();
    CsvRecord cells;
    readRecord(output, table_.form(), cells);
    const auto text = [&](std::size_t column) {
        const std::size_t place = table_.inputColumns() + column;
        return place < cells.cells.size() ? cells.cells[place].text : std::string_view();
    };
    answer.status = pointStatusOf(text(0));
    answer.falseAccept = falseAcceptAt_ ? numberIn(text(falseAcceptAt_), marks()) : numberIn("", {});
    answer.tur = turAt_ ? numberIn(text(turAt_), marks()) : numberIn("", {});
    answer.rules = number_;
    answer.record = std::make_shared<const std::string>(std::move(output));
    return answer;
}

std::string PointRules::cell(const PointAnswer& answer, std::size_t column) const {
    CsvRecord cells;
    readRecord(*answer.record, table_.form(), cells);
    const std::size_t place = table_.inputColumns() + column;
    return place < cells.cells.size() ? std::string(cells.cells[place].text) : "";
}

Analysis PointRules::analysisOf(std::string_view bytes) const {
    CsvRecord record;
    readRecord(bytes, table_.form(), record);
    NamedEntries named;
    table_.readCells(record, named);
    TestPoint point = point_;
    std::string notes;
    putEntries(point, named, UnitFactors::shipped(), CountsAs::Estimate, notes);
    Analysis made = base_;
    putIntoRecord(made, point, named);
    return made;
}

} // namespace metrisk
