#include "rows/RowTable.h"

#include "base/Text.h"
#include "rows/SafeCell.h"

#include <algorithm>
#include <charconv>

namespace metrisk {

namespace {

constexpr std::string_view statusName = "status", messageName = "message", unitName = "Unit",
                           lineName = "line";
constexpr std::size_t longestMessage = 1000;
constexpr std::size_t shownLine = 200;
constexpr std::size_t shownStart = 60;

/// "tol [mV]" as "tol" and "mV".
std::pair<std::string_view, std::string_view> nameAndUnit(std::string_view text) {
    text = trimmedCell(text);
    if (!text.ends_with(']')) return {text, {}};
    const auto open = text.rfind('[');
    if (open == text.npos) return {text, {}};
    return {trimmedCell(text.substr(0, open)), trimmedCell(text.substr(open + 1, text.size() - open - 2))};
}

/// A line of JSON that is no row: raised where its members cannot be passed through.
struct BadLine {
    std::string text;
};

/// The start of the row tells where it is: a number of its line would be another in a part of the table.
std::string flawText(const CsvRecord& record) {
    std::string start(firstCharacters(record.raw, shownStart));
    std::erase(start, '\0');
    return std::string(record.flaw) + ": " + start;
}

void oneLine(std::string& message) {
    for (char& c : message)
        if (static_cast<unsigned char>(c) < 0x20) c = ' ';
    const std::string_view cut = firstCharacters(message, longestMessage);
    message.resize(cut.size());
}

} // namespace

void RowCounts::add(PointStatus status) {
    switch (status) {
    case PointStatus::Ok: ++ok; break;
    case PointStatus::Note: ++note; break;
    case PointStatus::Refused: ++refused; break;
    case PointStatus::Bad: ++bad; break;
    }
}

RowCounts& RowCounts::operator+=(const RowCounts& other) {
    ok += other.ok, note += other.note, refused += other.refused, bad += other.bad;
    return *this;
}

RowTable::RowTable(const RowOptions& options, const TestPoint& point, const UnitFactors& units,
                   std::string_view header)
    : options_(options), template_(point), units_(units) {
    form_ = {options.delimiter.value_or(delimiterOf(header)), options.lines};
    if (options.format == RowFormat::JsonLines) {
        form_.lines = true;
        unitColumn_ = options.want.anyLength();
        return;
    }
    CsvRecord record;
    readRecord(header, form_, record);
    if (record.flaw) throw HeaderFault(std::string("the header has ") + record.flaw);
    header_ = record.raw;
    for (const CsvCell& cell : record.cells) columns_.push_back(columnOf(cell.text));
    checkColumns();
    if (!options.want.anyLength()) return;
    lengthUnit_ = point.unit;
    bool nominalNamed = false, unitNamed = false;
    for (const Column& column : columns_) {
        if (column.entry == Entry::Nominal) nominalNamed = true, lengthUnit_ = column.unit;
        if (column.entry == Entry::Unit) unitNamed = true;
    }
    unitColumn_ = unitNamed || (nominalNamed && lengthUnit_.empty());
    if (unitColumn_) lengthUnit_.clear();
}

RowTable::Column RowTable::columnOf(std::string_view text) const {
    const auto [name, unit] = nameAndUnit(text);
    Column column{std::string(text), {}, {}};
    for (const std::string& ignored : options_.ignored)
        if (equalCaseBlind(name, ignored)) return column;
    const std::string quoted(name);
    if (name == "u" || name == "U")
        throw HeaderFault("column " + quoted + " may be mte_u or mte_expanded: name it so, or --ignore " +
                          quoted + " to pass it through");
    column.entry = entryNamed(name);
    if (column.entry) {
        if (!unit.empty() && !infoOf(*column.entry).isLength() &&
            !(unit == "%" && infoOf(*column.entry).kind == EntryKind::Percent))
            throw HeaderFault("column " + quoted + " has no unit");
        if (infoOf(*column.entry).isLength()) column.unit = unit;
        return column;
    }
    if (const auto near = entryNearly(name))
        throw HeaderFault("column " + quoted + ": did you mean " + std::string(infoOf(*near).name) +
                          "? --ignore " + quoted + " to pass it through");
    if (options_.onlyKnown) throw HeaderFault("column " + quoted + " is not known");
    return column;
}

bool RowTable::isOutput(std::string_view name) const {
    if (!name.starts_with(options_.prefix)) return false;
    name.remove_prefix(options_.prefix.size());
    const auto is = [name](std::string_view other) { return name == other; };
    if (is(statusName) || is(messageName) || (unitColumn_ && is(unitName))) return true;
    for (const WantInfo& info : wantTable())
        if (options_.want.has(info.word))
            for (const FigureColumn& column : info.columns)
                if (is(column.name)) return true;
    return false;
}

void RowTable::checkColumns() const {
    std::string known;
    if (columns_.size() > mostCells) throw HeaderFault("the header has more than 4,096 columns");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        if (isOutput(nameAndUnit(column.name).first))
            throw HeaderFault("the header has an output's name, " + column.name +
                              ": --prefix P gives outputs others");
        if (!column.entry) continue;
        known += column.name;
        for (std::size_t other = 0; other < i; ++other)
            if (columns_[other].entry == column.entry)
                throw HeaderFault("columns " + columns_[other].name + " and " + column.name +
                                  " are one entry");
    }
    if (known.empty()) throw HeaderFault("no column is known: metrisk-cli rows --columns lists them");
}

void RowTable::appendColumnName(std::string& out, const FigureColumn& column) const {
    std::string name = options_.prefix + std::string(column.name);
    if (column.isLength() && !lengthUnit_.empty()) name += "[" + lengthUnit_ + "]";
    appendCell(out, name, form_.delimiter);
}

std::string RowTable::outputHeader() const {
    if (options_.format == RowFormat::JsonLines) return "";
    std::string line = header_;
    const auto add = [&](std::string_view name) {
        line += form_.delimiter;
        appendCell(line, options_.prefix + std::string(name), form_.delimiter);
    };
    add(statusName);
    if (unitColumn_) add(unitName);
    for (const WantInfo& info : wantTable())
        if (options_.want.has(info.word))
            for (const FigureColumn& column : info.columns) {
                line += form_.delimiter;
                appendColumnName(line, column);
            }
    add(messageName);
    return line + (options_.crlf ? "\r\n" : "\n");
}

std::string RowTable::taken() const {
    std::string known, unknown;
    for (const Column& column : columns_) (column.entry ? known : unknown) += " " + column.name;
    return "taken:" + known + (unknown.empty() ? "" : "; passed through:" + unknown);
}

std::size_t RowTable::recordSize(std::string_view data, bool atEnd) const {
    return metrisk::recordSize(data, form_, atEnd);
}

void RowTable::process(std::string_view record, RowScratch& scratch, std::string& out,
                       RowCounts& counts) const {
    if (options_.format == RowFormat::Csv)
        processCsv(record, scratch, out, counts);
    else
        processJson(record, scratch, out, counts);
}

/// Figures and message are in the scratch.
PointStatus RowTable::compute(RowScratch& s) const {
    TestPoint point = template_;
    const PointStatus status =
        computePoint(point, s.named, units_, options_.countsAs, options_.want, s.figures, s.message);
    if (s.figures.count == 0) return status;
    try {
        scaleLengths(s.figures, point);
    } catch (const RowFault& fault) {
        s.figures.count = 0;
        s.message = fault.text;
        return fault.bad ? PointStatus::Bad : PointStatus::Refused;
    }
    s.figures.unit = point.nominalUnit;
    return status;
}

/// To the unit that the header says. Raises RowFault for a temperature's place, which no factor converts.
void RowTable::scaleLengths(PointFigures& figures, const TestPoint& point) const {
    const std::string_view unit = point.nominalUnit;
    if (lengthUnit_.empty() || unit.empty() || unit == lengthUnit_) return;
    const double scale = units_.factor(unit, lengthUnit_, point.area, "nominal");
    const bool widthsAlone = !units_.shareZero(unit, lengthUnit_);
    std::size_t at = 0;
    for (const WantInfo& info : wantTable())
        if (options_.want.has(info.word))
            for (const FigureColumn& column : info.columns) {
                FigureValue& value = figures.values[at++];
                if (!column.isLength() || value.kind != FigureValue::Kind::Number) continue;
                if (widthsAlone && column.kind == FigureKind::Place)
                    throw RowFault{true, "column nominal: a temperature must be in the unit of the header"};
                value.number *= scale;
            }
}

void RowTable::appendNumber(std::string& out, double number) const {
    if (number == 0) {
        out += '0';
        return;
    }
    char text[32];
    char* const end = std::to_chars(text, text + sizeof text, number).ptr;
    if (!options_.marks.decimalComma || options_.format == RowFormat::JsonLines) {
        out.append(text, end);
        return;
    }
    const bool fraction = std::find(text, end, '.') != end;
    std::replace(text, end, '.', ',');
    const bool quoted = fraction && form_.delimiter == ',';
    if (quoted) out += '"';
    out.append(text, end);
    if (quoted) out += '"';
}

void RowTable::appendText(std::string& out, std::string_view text) const {
    if (options_.safeCells && startsFormula(text))
        appendCell(out, safeCell(text), form_.delimiter);
    else
        appendCell(out, text, form_.delimiter);
}

void RowTable::appendCopied(std::string& out, const CsvCell& cell) const {
    if (options_.safeCells && startsFormula(cell.text) && !quantityOf(cell.text, options_.marks))
        appendText(out, cell.text);
    else
        out += cell.raw;
}

void RowTable::appendInput(std::string& out, const CsvRecord& record) const {
    for (std::size_t i = 0; i < record.cells.size(); ++i) {
        if (i > 0) out += form_.delimiter;
        appendCopied(out, record.cells[i]);
    }
}

void RowTable::readCells(const CsvRecord& record, NamedEntries& named) const {
    for (std::size_t i = 0; i < std::min(columns_.size(), record.cells.size()); ++i)
        if (const Column& column = columns_[i]; column.entry)
            named.read(*column.entry, record.cells[i].text, column.unit, options_.marks);
}

void RowTable::processCsv(std::string_view bytes, RowScratch& s, std::string& out, RowCounts& counts) const {
    CsvRecord& record = s.record;
    readRecord(bytes, form_, record);
    const std::string_view lineEnd = options_.crlf ? "\r\n" : "\n";
    if (record.raw.empty()) {
        out += lineEnd;
        return;
    }
    s.message.clear();
    s.named.clear();
    s.figures.count = 0;
    PointStatus status = PointStatus::Bad;
    const std::size_t wanted = columns_.size();
    if (record.flaw || record.cells.size() != wanted) {
        const std::size_t there = record.flaw ? std::min<std::size_t>(record.cells.size(), 1)
                                              : std::min(record.cells.size(), wanted);
        for (std::size_t i = 0; i < wanted; ++i) {
            if (i > 0) out += form_.delimiter;
            if (i < there) appendCopied(out, record.cells[i]);
        }
        s.message = record.flaw
                        ? flawText(record)
                        : std::to_string(record.cells.size()) + " cells, wanted " + std::to_string(wanted);
    } else {
        appendInput(out, record);
        try {
            readCells(record, s.named);
            status = compute(s);
        } catch (const RowFault& fault) {
            s.message = fault.text;
        }
    }
    counts.add(status);
    out += form_.delimiter;
    out += wordOf(status);
    if (unitColumn_) {
        out += form_.delimiter;
        if (s.figures.count > 0) appendText(out, s.figures.unit);
    }
    const std::size_t columns = options_.want.columnCount();
    for (std::size_t i = 0; i < columns; ++i) {
        out += form_.delimiter;
        if (i >= s.figures.count) continue;
        const FigureValue& value = s.figures.values[i];
        switch (value.kind) {
        case FigureValue::Kind::None: break;
        case FigureValue::Kind::Number: appendNumber(out, value.number); break;
        case FigureValue::Kind::Flag: out += value.number != 0 ? "true" : "false"; break;
        case FigureValue::Kind::Text: appendText(out, value.text); break;
        }
    }
    out += form_.delimiter;
    if (!s.message.empty()) {
        oneLine(s.message);
        appendText(out, s.message);
    }
    out += lineEnd;
}

/// The members as entries, their keys by those of the line before. Raises RowFault and BadLine.
void RowTable::readJson(RowScratch& s) const {
    const std::vector<JsonMember>& members = s.json.members;
    if (s.keys.size() < members.size()) s.keys.resize(members.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        const JsonMember& member = members[i];
        for (std::size_t other = 0; other < i; ++other)
            if (members[other].key == member.key)
                throw BadLine{"key " + std::string(member.key) + " stands twice"};
        RowScratch::KnownKey& known = s.keys[i];
        if (known.key != member.key || known.key.empty()) {
            try {
                const Column column = columnOf(member.key);
                known = {std::string(member.key), column.unit, column.entry, isOutput(member.key)};
            } catch (const HeaderFault& fault) {
                throw RowFault{true, fault.what()};
            }
        }
        if (known.output)
            throw BadLine{"key " + known.key + " is that of an output: --prefix P gives outputs others"};
        if (!known.entry || member.kind == JsonMember::Kind::Null) continue;
        if (member.kind == JsonMember::Kind::Nested)
            throw BadLine{"key " + known.key + ": neither text nor number"};
        if (s.named.has(*known.entry)) throw BadLine{"key " + known.key + ": its entry is named twice"};
        // Numbers of JSON have a period wherever they stand.
        const NumberMarks marks = member.kind == JsonMember::Kind::Text ? options_.marks : NumberMarks{};
        s.named.read(*known.entry, member.value, known.unit, marks);
    }
}

void RowTable::processJson(std::string_view bytes, RowScratch& s, std::string& out, RowCounts& counts) const {
    std::string_view line = bytes;
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.remove_suffix(1);
    const std::string_view lineEnd = options_.crlf ? "\r\n" : "\n";
    if (line.empty()) {
        out += lineEnd;
        return;
    }
    s.message.clear();
    s.named.clear();
    s.figures.count = 0;
    PointStatus status = PointStatus::Bad;
    bool copied = false;
    const char* flaw = line.size() > longestRow ? "is longer than 1 MiB" : readJsonRow(line, s.json);
    if (flaw) {
        s.message = std::string("the line ") + flaw;
    } else {
        copied = true;
        try {
            readJson(s);
            status = compute(s);
        } catch (const RowFault& fault) {
            s.message = fault.text;
        } catch (const BadLine& fault) {
            s.message = fault.text;
            copied = false;
        }
    }
    counts.add(status);
    bool first = true;
    if (copied) {
        out += s.json.upToBrace;
        first = s.json.members.empty();
    } else {
        out += '{';
    }
    const auto key = [&](std::string_view name) {
        if (!first) out += ',';
        first = false;
        out += '"', out += options_.prefix, out += name, out += "\":";
    };
    key(statusName);
    out += '"', out += wordOf(status), out += '"';
    if (!copied) {
        key(lineName);
        appendJsonText(out, firstCharacters(line, shownLine));
    }
    if (unitColumn_) {
        key(unitName);
        if (s.figures.count > 0)
            appendJsonText(out, s.figures.unit);
        else
            out += "null";
    }
    std::size_t at = 0;
    for (const WantInfo& info : wantTable()) {
        if (!options_.want.has(info.word)) continue;
        for (const FigureColumn& column : info.columns) {
            key(column.name);
            const FigureValue value = at < s.figures.count ? s.figures.values[at] : FigureValue{};
            ++at;
            switch (value.kind) {
            case FigureValue::Kind::None: out += "null"; break;
            case FigureValue::Kind::Number: appendNumber(out, value.number); break;
            case FigureValue::Kind::Flag: out += value.number != 0 ? "true" : "false"; break;
            case FigureValue::Kind::Text: appendJsonText(out, value.text); break;
            }
        }
    }
    key(messageName);
    oneLine(s.message);
    appendJsonText(out, s.message);
    out += '}';
    out += lineEnd;
}

} // namespace metrisk
