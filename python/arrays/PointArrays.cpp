#include "python/arrays/PointArrays.h"

#include "rows/UnitFactors.h"

#include <algorithm>
#include <limits>

namespace metrisk {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view distributions[] = {"Normal", "LogNormal", "Exponential", "Uniform"};
constexpr std::string_view solved[] = {"solved", "failed"};
constexpr std::string_view verdicts[] = {"pass",        "conditional-pass", "undecided",
                                         "no-decision", "conditional-fail", "fail"};

double placeIn(std::span<const std::string_view> texts, std::string_view text) {
    const auto found = std::find(texts.begin(), texts.end(), text);
    return found == texts.end() ? none : static_cast<double>(found - texts.begin());
}

void takeEntries(NamedEntries& named, std::span<const EntryArray> entries, std::size_t element) {
    named.clear();
    for (const EntryArray& each : entries) {
        const std::size_t at = each.single ? 0 : element;
        if (each.numbers)
            named.put(each.entry, each.numbers[at]);
        else if (const std::int32_t code = each.codes[at]; code >= 0)
            named.read(each.entry, each.texts[static_cast<std::size_t>(code)]);
    }
}

} // namespace

std::span<const std::string_view> textsOfColumn(std::string_view column) {
    if (column == "SU_Distribution") return distributions;
    if (column == "GB_Status") return solved;
    return verdicts;
}

void answerPoints(const TestPoint& base, std::span<const EntryArray> entries, const Want& want,
                  CountsAs countsAs, std::size_t first, std::size_t last, const AnswerArrays& answers,
                  std::vector<PointMessage>& messages, const std::stop_token& stop) {
    std::vector<const FigureColumn*> columns;
    for (const WantInfo& info : wantTable())
        if (want.has(info.word))
            for (const FigureColumn& column : info.columns) columns.push_back(&column);
    NamedEntries named;
    PointFigures figures;
    std::string notes;
    for (std::size_t element = first; element < last; ++element) {
        if (element % 64 == 0 && stop.stop_requested()) return;
        notes.clear();
        PointStatus status = PointStatus::Bad;
        figures.count = 0;
        try {
            takeEntries(named, entries, element);
            TestPoint point = base;
            status = computePoint(point, named, UnitFactors::shipped(), countsAs, want, figures, notes);
        } catch (const RowFault& fault) { // of an entry that is none
            notes = fault.text;
        }
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const FigureValue value = i < figures.count ? figures.values[i] : FigureValue{};
            double& figure = answers.figures[i][element];
            figure = value.kind == FigureValue::Kind::None ? none
                     : value.kind == FigureValue::Kind::Text
                         ? placeIn(textsOfColumn(columns[i]->name), value.text)
                         : value.number;
        }
        answers.status[element] = static_cast<std::uint8_t>(status);
        if (status != PointStatus::Ok) messages.push_back({element, notes});
    }
}

} // namespace metrisk
