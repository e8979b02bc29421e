#include "sql/SqlFunctions.h"

#include "persistence/NewAnalysis.h"
#include "risk/decision/Conformance.h"
#include "rows/JsonRow.h"
#include "rows/PointFigures.h"
#include "rows/UnitFactors.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace metrisk {

namespace {

using Values = std::span<const SqlValue>;

constexpr std::int64_t largestExact = std::int64_t{1} << 53;

const Analysis& base() {
    static const Analysis record = newAnalysis();
    return record;
}

const TestPoint& basePoint() {
    static const TestPoint point = testPointOf(base(), Regional{});
    return point;
}

double numberOf(std::string_view name, const SqlValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return *number;
    const auto* whole = std::get_if<std::int64_t>(&value);
    if (!whole) throw SqlFault{std::string(name) + ": no number"};
    if (*whole > largestExact || *whole < -largestExact)
        throw SqlFault{std::string(name) + ": a whole number above 2^53 has no exact double"};
    return static_cast<double>(*whole);
}

bool isNull(const SqlValue& value) {
    return std::holds_alternative<std::monostate>(value);
}

void putNumber(NamedEntries& named, Entry entry, double number) {
    try {
        named.put(entry, number);
    } catch (const RowFault& fault) {
        throw SqlFault{fault.text};
    }
}

void readText(NamedEntries& named, Entry entry, std::string_view cell) {
    try {
        named.read(entry, cell);
    } catch (const RowFault& fault) {
        throw SqlFault{fault.text};
    }
}

/// NAME1, VALUE1, NAME2, VALUE2 and so on.
void takeEntries(NamedEntries& named, Values values) {
    if (values.size() % 2 != 0) throw SqlFault{"an entry without a value"};
    for (std::size_t i = 0; i < values.size(); i += 2) {
        const auto* name = std::get_if<std::string_view>(&values[i]);
        if (!name) throw SqlFault{"the name of an entry is a text"};
        const auto entry = entryNamed(*name);
        if (!entry) throw SqlFault{"no column " + std::string(*name)};
        if (named.has(*entry)) throw SqlFault{"column " + std::string(*name) + " stands twice"};
        const SqlValue& value = values[i + 1];
        if (isNull(value)) continue;
        if (std::holds_alternative<SqlBlob>(value))
            throw SqlFault{"column " + std::string(*name) + ": a blob"};
        if (const auto* text = std::get_if<std::string_view>(&value))
            readText(named, *entry, *text);
        else
            putNumber(named, *entry, numberOf(*name, value));
    }
}

struct Answer {
    PointFigures figures;
    std::string notes;
    PointStatus status = PointStatus::Bad;
};

Answer answerOf(const NamedEntries& named, const Want& want) {
    Answer answer;
    TestPoint point = basePoint();
    answer.status = computePoint(point, named, UnitFactors::shipped(), CountsAs::Estimate, want,
                                 answer.figures, answer.notes);
    return answer;
}

/// The word that has the figure, and its place among those of the word.
std::pair<Want, std::size_t> wantedFigure(std::string_view figure) {
    for (const WantInfo& info : wantTable())
        for (std::size_t i = 0; i < info.columns.size(); ++i)
            if (info.columns[i].name == figure) {
                if (info.word == WantWord::Guardband)
                    throw SqlFault{std::string(figure) + ": see metrisk_guardband"};
                if (info.word == WantWord::Decide)
                    throw SqlFault{std::string(figure) + ": see metrisk_conformance"};
                Want want;
                want.words[static_cast<std::size_t>(info.word)] = true;
                return {want, i};
            }
    throw SqlFault{"no figure " + std::string(figure)};
}

SqlResult resultOf(const FigureValue& value) {
    switch (value.kind) {
    case FigureValue::Kind::None: break;
    case FigureValue::Kind::Flag: return value.number != 0;
    case FigureValue::Kind::Text: return std::string(value.text);
    case FigureValue::Kind::Number:
        if (std::isfinite(value.number)) return value.number;
    }
    return {};
}

SqlResult figureAt(const Answer& answer, std::size_t place) {
    return place < answer.figures.count ? resultOf(answer.figures.values[place]) : SqlResult();
}

Answer figureAnswer(Values values, std::size_t& place) {
    const auto* name = values.empty() ? nullptr : std::get_if<std::string_view>(&values[0]);
    if (!name) throw SqlFault{"the first argument names a figure"};
    const auto [want, at] = wantedFigure(*name);
    place = at;
    NamedEntries named;
    takeEntries(named, values.subspan(1));
    return answerOf(named, want);
}

SqlResult risk(Values values) {
    std::size_t place = 0;
    const Answer answer = figureAnswer(values, place);
    return figureAt(answer, place);
}

SqlResult message(Values values) {
    std::size_t place = 0;
    Answer answer = figureAnswer(values, place);
    return answer.notes.empty() ? SqlResult() : std::move(answer.notes);
}

Want usual() {
    Want want;
    want.words[static_cast<std::size_t>(WantWord::Risks)] = true;
    want.words[static_cast<std::size_t>(WantWord::Tur)] = true;
    return want;
}

SqlResult risks(Values values) {
    NamedEntries named;
    takeEntries(named, values);
    const Want want = usual();
    const Answer answer = answerOf(named, want);
    std::string json = "{";
    std::size_t at = 0;
    for (const WantInfo& info : wantTable()) {
        if (!want.has(info.word)) continue;
        for (const FigureColumn& column : info.columns) {
            appendJsonText(json, column.name);
            json += ':';
            const FigureValue value = at < answer.figures.count ? answer.figures.values[at] : FigureValue{};
            ++at;
            char digits[32];
            if (value.kind == FigureValue::Kind::Number)
                json.append(digits, std::to_chars(digits, digits + sizeof digits, value.number).ptr);
            else
                json += "null";
            json += ',';
        }
    }
    json += "\"status\":";
    appendJsonText(json, wordOf(answer.status));
    json += ",\"message\":";
    appendJsonText(json, answer.notes);
    json += '}';
    return json;
}

void takeNumbers(NamedEntries& named, Values values) {
    constexpr Entry entries[]{Entry::Nominal, Entry::Tol, Entry::SubjectPct, Entry::MteU};
    for (std::size_t i = 0; i < std::size(entries); ++i)
        putNumber(named, entries[i], numberOf(infoOf(entries[i]).name, values[i]));
}

template <WantWord word, std::size_t column>
SqlResult figure(Values values) {
    NamedEntries named;
    takeNumbers(named, values);
    Want want;
    want.words[static_cast<std::size_t>(word)] = true;
    return figureAt(answerOf(named, want), column);
}

SqlResult guardband(Values values) {
    NamedEntries named;
    takeNumbers(named, values);
    const double target = numberOf("fa", values[4]);
    if (!(target > 0 && target < 1)) throw SqlFault{"fa: a fraction between 0 and 1 is wanted"};
    Want want;
    want.words[static_cast<std::size_t>(WantWord::Guardband)] = true;
    want.guardband = {GuardbandKey::FalseAccept, target};
    return figureAt(answerOf(named, want), 1); // the upper multiplier
}

SqlResult conformance(Values values) {
    const double reading = numberOf("reading", values[0]);
    const Interval tolerance{numberOf("lower", values[1]) - reading, numberOf("upper", values[2]) - reading};
    const double u = numberOf("u", values[3]);
    if (!(u > 0) || !(tolerance.lower <= tolerance.upper))
        throw SqlFault{"limits in order and u above 0 are wanted"};
    return resultOf({FigureValue::Kind::Number, conformanceOf(0, tolerance, u, 0).conforming});
}

SqlResult version(Values) {
    return std::string(METRISK_VERSION);
}

/// NULL in, NULL out.
template <SqlResult (*work)(Values)>
SqlResult strict(Values values) {
    return std::ranges::any_of(values, isNull) ? SqlResult() : work(values);
}

} // namespace

std::span<const SqlFunction> sqlFunctions() {
    static constexpr SqlFunction all[] = {
        {"metrisk_risk", -1, risk},
        {"metrisk_risks", -1, risks},
        {"metrisk_message", -1, message},
        {"metrisk_fa", 4, strict<figure<WantWord::Risks, 0>>},
        {"metrisk_fr", 4, strict<figure<WantWord::Risks, 3>>},
        {"metrisk_tur", 4, strict<figure<WantWord::Tur, 0>>},
        {"metrisk_guardband", 5, strict<guardband>},
        {"metrisk_conformance", 4, strict<conformance>},
        {"metrisk_version", 0, version},
    };
    return all;
}

} // namespace metrisk
