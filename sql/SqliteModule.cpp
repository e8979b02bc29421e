// SELECT load_extension('metrisk'): risks of test points in SQL.
#include "persistence/NewAnalysis.h"
#include "risk/decision/Conformance.h"
#include "rows/JsonRow.h"
#include "rows/PointFigures.h"
#include "rows/UnitFactors.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <sqlite3ext.h>
#include <string>
#include <string_view>
SQLITE_EXTENSION_INIT1

namespace {

using namespace metrisk;

/// What makes a call an error; a test that is refused is none.
struct CallFault {
    std::string text;
};

constexpr sqlite3_int64 largestExact = sqlite3_int64{1} << 53;

const Analysis& base() {
    static const Analysis record = newAnalysis();
    return record;
}

const TestPoint& basePoint() {
    static const TestPoint point = testPointOf(base(), Regional{});
    return point;
}

std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    if (!bytes) throw std::bad_alloc();
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

double numberOf(std::string_view name, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type != SQLITE_FLOAT && type != SQLITE_INTEGER) throw CallFault{std::string(name) + ": no number"};
    if (type == SQLITE_FLOAT) return sqlite3_value_double(value);
    const sqlite3_int64 whole = sqlite3_value_int64(value);
    if (whole > largestExact || whole < -largestExact)
        throw CallFault{std::string(name) + ": a whole number above 2^53 has no exact double"};
    return static_cast<double>(whole);
}

void putNumber(NamedEntries& named, Entry entry, double number) {
    try {
        named.put(entry, number);
    } catch (const RowFault& fault) {
        throw CallFault{fault.text};
    }
}

/// NAME1, VALUE1, NAME2, VALUE2 and so on.
void takeEntries(NamedEntries& named, int count, sqlite3_value** values) {
    if (count % 2 != 0) throw CallFault{"an entry without a value"};
    for (int i = 0; i < count; i += 2) {
        if (sqlite3_value_type(values[i]) != SQLITE_TEXT) throw CallFault{"the name of an entry is a text"};
        const std::string_view name = textOf(values[i]);
        const auto entry = entryNamed(name);
        if (!entry) throw CallFault{"no column " + std::string(name)};
        if (named.has(*entry)) throw CallFault{"column " + std::string(name) + " stands twice"};
        sqlite3_value* value = values[i + 1];
        switch (sqlite3_value_type(value)) {
        case SQLITE_NULL: break;
        case SQLITE_BLOB: throw CallFault{"column " + std::string(name) + ": a blob"};
        case SQLITE_TEXT: try { named.read(*entry, textOf(value));
            } catch (const RowFault& fault) {
                throw CallFault{fault.text};
            }
            break;
        default: putNumber(named, *entry, numberOf(name, value));
        }
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
                    throw CallFault{std::string(figure) + ": see metrisk_guardband"};
                if (info.word == WantWord::Decide)
                    throw CallFault{std::string(figure) + ": see metrisk_conformance"};
                Want want;
                want.words[static_cast<std::size_t>(info.word)] = true;
                return {want, i};
            }
    throw CallFault{"no figure " + std::string(figure)};
}

void put(sqlite3_context* context, const FigureValue& value) {
    switch (value.kind) {
    case FigureValue::Kind::None: sqlite3_result_null(context); break;
    case FigureValue::Kind::Flag: sqlite3_result_int(context, value.number != 0); break;
    case FigureValue::Kind::Text:
        sqlite3_result_text(context, value.text.data(), static_cast<int>(value.text.size()),
                            SQLITE_TRANSIENT);
        break;
    case FigureValue::Kind::Number:
        if (std::isfinite(value.number))
            sqlite3_result_double(context, value.number);
        else
            sqlite3_result_null(context);
    }
}

void putText(sqlite3_context* context, const std::string& text) {
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// No exception reaches the engine.
template <void (*work)(sqlite3_context*, int, sqlite3_value**)>
void guarded(sqlite3_context* context, int count, sqlite3_value** values) {
    try {
        work(context, count, values);
    } catch (const CallFault& fault) {
        const auto* name = static_cast<const char*>(sqlite3_user_data(context));
        const std::string text = std::string(name) + ": " + fault.text;
        sqlite3_result_error(context, text.data(), static_cast<int>(text.size()));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& fault) {
        sqlite3_result_error(context, fault.what(), -1);
    }
}

Answer figureAnswer(int count, sqlite3_value** values, std::size_t& place) {
    if (count < 1 || sqlite3_value_type(values[0]) != SQLITE_TEXT)
        throw CallFault{"the first argument names a figure"};
    const auto [want, at] = wantedFigure(textOf(values[0]));
    place = at;
    NamedEntries named;
    takeEntries(named, count - 1, values + 1);
    return answerOf(named, want);
}

void risk(sqlite3_context* context, int count, sqlite3_value** values) {
    std::size_t place = 0;
    const Answer answer = figureAnswer(count, values, place);
    put(context, place < answer.figures.count ? answer.figures.values[place] : FigureValue{});
}

void message(sqlite3_context* context, int count, sqlite3_value** values) {
    std::size_t place = 0;
    const Answer answer = figureAnswer(count, values, place);
    if (!answer.notes.empty()) putText(context, answer.notes);
}

Want usual() {
    Want want;
    want.words[static_cast<std::size_t>(WantWord::Risks)] = true;
    want.words[static_cast<std::size_t>(WantWord::Tur)] = true;
    return want;
}

void risks(sqlite3_context* context, int count, sqlite3_value** values) {
    NamedEntries named;
    takeEntries(named, count, values);
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
    putText(context, json);
}

/// False where an argument is NULL, of which the result is NULL.
bool takeNumbers(NamedEntries& named, std::initializer_list<Entry> entries, sqlite3_value** values) {
    std::size_t i = 0;
    for (const Entry entry : entries) {
        sqlite3_value* value = values[i++];
        if (sqlite3_value_type(value) == SQLITE_NULL) return false;
        putNumber(named, entry, numberOf(infoOf(entry).name, value));
    }
    return true;
}

constexpr std::initializer_list<Entry> shortEntries{Entry::Nominal, Entry::Tol, Entry::SubjectPct,
                                                    Entry::MteU};

template <WantWord word, std::size_t column>
void figure(sqlite3_context* context, int, sqlite3_value** values) {
    NamedEntries named;
    if (!takeNumbers(named, shortEntries, values)) return;
    Want want;
    want.words[static_cast<std::size_t>(word)] = true;
    const Answer answer = answerOf(named, want);
    if (answer.figures.count > 0) put(context, answer.figures.values[column]);
}

void guardband(sqlite3_context* context, int, sqlite3_value** values) {
    NamedEntries named;
    if (!takeNumbers(named, shortEntries, values) || sqlite3_value_type(values[4]) == SQLITE_NULL) return;
    const double target = numberOf("fa", values[4]);
    if (!(target > 0 && target < 1)) throw CallFault{"fa: a fraction between 0 and 1 is wanted"};
    Want want;
    want.words[static_cast<std::size_t>(WantWord::Guardband)] = true;
    want.guardband = {GuardbandKey::FalseAccept, target};
    const Answer answer = answerOf(named, want);
    if (answer.figures.count > 0) put(context, answer.figures.values[1]); // the upper multiplier
}

void conformance(sqlite3_context* context, int, sqlite3_value** values) {
    for (int i = 0; i < 4; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) return;
    const double reading = numberOf("reading", values[0]);
    const Interval tolerance{numberOf("lower", values[1]) - reading, numberOf("upper", values[2]) - reading};
    const double u = numberOf("u", values[3]);
    if (!(u > 0) || !(tolerance.lower <= tolerance.upper))
        throw CallFault{"limits in order and u above 0 are wanted"};
    put(context, {FigureValue::Kind::Number, conformanceOf(0, tolerance, u, 0).conforming});
}

void version(sqlite3_context* context, int, sqlite3_value**) {
    putText(context, METRISK_VERSION);
}

} // namespace

extern "C" __attribute__((visibility("default"))) int
sqlite3_metrisk_init(sqlite3* database, char**, const sqlite3_api_routines* routines) {
    SQLITE_EXTENSION_INIT2(routines)
    struct Function {
        const char* name;
        int arguments;
        void (*work)(sqlite3_context*, int, sqlite3_value**);
    };
    static constexpr Function functions[] = {
        {"metrisk_risk", -1, guarded<risk>},
        {"metrisk_risks", -1, guarded<risks>},
        {"metrisk_message", -1, guarded<message>},
        {"metrisk_fa", 4, guarded<figure<WantWord::Risks, 0>>},
        {"metrisk_fr", 4, guarded<figure<WantWord::Risks, 3>>},
        {"metrisk_tur", 4, guarded<figure<WantWord::Tur, 0>>},
        {"metrisk_guardband", 5, guarded<guardband>},
        {"metrisk_conformance", 4, guarded<conformance>},
        {"metrisk_version", 0, guarded<version>},
    };
    for (const Function& each : functions) {
        const int made = sqlite3_create_function_v2(
            database, each.name, each.arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
            const_cast<char*>(each.name), each.work, nullptr, nullptr, nullptr);
        if (made != SQLITE_OK) return made;
    }
    return SQLITE_OK;
}
