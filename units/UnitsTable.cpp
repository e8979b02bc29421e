#include "units/UnitsTable.h"

#include "base/ExactText.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

namespace metrisk {

namespace {

constexpr std::size_t columns = 5;
constexpr const char* titles[columns] = {"area", "unit", "multiplier", "group", "description"};

[[noreturn]] void refuse(int line, const std::string& why) {
    throw UnitsError("line " + std::to_string(line) + ": " + why);
}

/// Takes rows from a text, one after the other.
class RowSource {
  public:
    explicit RowSource(std::string_view text) : left_(text) {}

    bool atEnd() const { return left_.empty(); }
    /// Where the row taken last began.
    int line() const { return line_; }

    std::vector<std::string> take() {
        line_ = nextLine_;
        std::vector<std::string> fields;
        do fields.push_back(takeField());
        while (takeIf(','));
        if (!takeIf('\n') && !atEnd()) refuse(line_, "there is something behind a closing quote");
        return fields;
    }

  private:
    bool takeIf(char c) {
        if (!left_.starts_with(c)) return false;
        nextLine_ += c == '\n';
        left_.remove_prefix(1);
        return true;
    }

    std::string takeField() {
        while (left_.starts_with(' ')) left_.remove_prefix(1);
        std::string field;
        if (!takeIf('"')) {
            const std::string_view plain = left_.substr(0, left_.find_first_of(",\n"));
            left_.remove_prefix(plain.size());
            return std::string(withoutOuterBlanks(plain));
        }
        for (;;) {
            if (atEnd()) refuse(line_, "a quote is not closed");
            if (takeIf('"') && !left_.starts_with('"')) break;
            field += left_[0];
            takeIf(left_[0]);
        }
        while (left_.starts_with(' ')) left_.remove_prefix(1);
        return std::string(withoutOuterBlanks(field));
    }

    std::string_view left_;
    int line_ = 1;
    int nextLine_ = 1;
};

double multiplierOf(const std::string& text, int line) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc{} || read.ptr != end) refuse(line, text + " is no multiplier");
    return value;
}

std::string quoted(const std::string& field) {
    if (field.find_first_of(",\"\n") == field.npos) return field;
    std::string text = "\"";
    for (const char c : field) text += c == '"' ? std::string(2, c) : std::string(1, c);
    return text + '"';
}

} // namespace

std::vector<AreaContent> readUnitsTable(std::string_view text) {
    std::string plain = toUtf8(std::string(withoutByteOrderMark(text)));
    std::erase(plain, '\r');
    RowSource rows(plain);
    std::vector<std::string> fields = rows.take();
    fields.resize(columns);
    for (std::size_t i = 0; i < columns; ++i)
        if (!equalCaseBlind(fields[i], titles[i]) && !(i > 2 && fields[i].empty()))
            refuse(rows.line(), "the heading is not area,unit,multiplier,group,description");
    std::vector<AreaContent> content;
    std::map<std::string, std::size_t, NamesBefore> known;
    std::set<std::pair<std::size_t, std::string>> units;
    while (!rows.atEnd()) {
        fields = rows.take();
        if (std::all_of(fields.begin(), fields.end(), [](const auto& field) { return field.empty(); }))
            continue;
        if (fields.size() > columns) refuse(rows.line(), "there are more than 5 fields");
        fields.resize(columns);
        for (std::string& field : fields) field = withoutQuotes(std::move(field));
        if (!isAreaName(fields[0])) refuse(rows.line(), "a measurement area has 1 to 120 characters");
        const auto [area, isNew] = known.try_emplace(fields[0], content.size());
        if (isNew) content.push_back({fields[0], {}});
        if (fields[1].empty() && fields[2].empty()) continue;
        const MeasurementUnit unit{.symbol = fields[1],
                                   .description = fields[4],
                                   .group = fields[3],
                                   .multiplier = multiplierOf(fields[2], rows.line())};
        if (!isUnit(unit))
            refuse(rows.line(),
                   "a unit has 1 to 80 characters, a group up to 10, a description up to 255, and a "
                   "multiplier above 0");
        if (!units.emplace(area->second, unit.symbol).second)
            refuse(rows.line(), unit.symbol + " stands twice in " + fields[0]);
        content[area->second].units.push_back(unit);
    }
    return content;
}

std::string writeUnitsTable(const std::vector<AreaContent>& content) {
    std::string text = "area,unit,multiplier,group,description\n";
    for (const AreaContent& area : content) {
        if (area.units.empty()) text += quoted(area.name) + ",,,,\n";
        for (const MeasurementUnit& unit : area.units) {
            text += quoted(area.name) + "," + quoted(unit.symbol) + "," + exactText(unit.multiplier) + "," +
                    quoted(unit.group) + "," + quoted(unit.description) + "\n";
        }
    }
    return text;
}

} // namespace metrisk
