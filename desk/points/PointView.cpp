#include "desk/points/PointView.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace metrisk {

namespace {

struct SortKey {
    enum class Kind { Number, Text, None } kind = Kind::None;
    double number = 0;
    std::string text{};
};

SortKey keyOf(const std::string& text, NumberMarks marks) {
    const std::string_view cell = trimmedCell(text);
    if (cell.empty()) return {};
    if (const auto read = quantityOf(cell, marks)) return {SortKey::Kind::Number, read->number, {}};
    return {SortKey::Kind::Text, 0, std::string(cell)};
}

bool passes(const PointAnswer* answer, bool blank, PointFilter filter, double limit) {
    if (filter == PointFilter::All) return true;
    if (filter == PointFilter::NotComputed) return !answer && !blank;
    if (!answer) return false;
    switch (filter) {
    case PointFilter::NotAnswered: return answer->isFault();
    case PointFilter::Noted: return answer->status == PointStatus::Note;
    case PointFilter::FalseAcceptAbove: return answer->falseAccept > limit;
    case PointFilter::TurBelow: return answer->tur < limit;
    case PointFilter::All:
    case PointFilter::NotComputed: break;
    }
    return true;
}

} // namespace

const PointAnswer* answerOf(const PointSheet& sheet, const PointRules* rules, std::size_t row) {
    const PointAnswer& answer = sheet[row].answer;
    return rules && answer.rules == rules->number() ? &answer : nullptr;
}

const PointAnswer* PointView::answer(std::size_t sheetRow) const {
    return sheetRow < sheet.size() ? answerOf(sheet, rules.get(), sheetRow) : nullptr;
}

std::vector<std::size_t> rowsPassing(const PointSheet& sheet, const PointRules* rules, PointFilter filter,
                                     double limit) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < sheet.size(); ++row)
        if (passes(answerOf(sheet, rules, row), sheet[row].record.empty(), filter, limit))
            rows.push_back(row);
    return rows;
}

std::vector<std::size_t> orderBy(const PointSheet& sheet, const PointRules* rules, std::size_t column,
                                 bool falling) {
    std::vector<SortKey> keys(sheet.size());
    const std::size_t own = sheet.columns().size();
    const NumberMarks marks = rules ? rules->marks() : NumberMarks{};
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (column < own) {
            keys[row] = keyOf(sheet.cell(row, column), marks);
        } else if (const PointAnswer* answer = answerOf(sheet, rules, row)) {
            keys[row] = keyOf(rules->cell(*answer, column - own), marks);
        }
    }
    std::vector<std::size_t> order(sheet.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        const SortKey& a = keys[left];
        const SortKey& b = keys[right];
        if (a.kind != b.kind) return a.kind < b.kind;
        const SortKey& less = falling ? b : a;
        const SortKey& more = falling ? a : b;
        return a.kind == SortKey::Kind::Number ? less.number < more.number : less.text < more.text;
    });
    return order;
}

PointTotals totalsOf(const PointSheet& sheet, const PointRules* rules, double limit) {
    PointTotals totals{.limit = limit};
    totals.falseAccept.reserve(sheet.size());
    double worst = -std::numeric_limits<double>::infinity();
    for (std::size_t row = 0; row < sheet.size(); ++row) {
        const PointAnswer* answer = answerOf(sheet, rules, row);
        if (!answer) {
            totals.waiting += !sheet[row].record.empty();
            continue;
        }
        totals.counts.add(answer->status);
        if (std::isnan(answer->falseAccept)) continue;
        totals.falseAccept.push_back(answer->falseAccept);
        totals.above += answer->falseAccept > limit;
        if (answer->falseAccept <= worst) continue;
        worst = answer->falseAccept;
        totals.worst = row;
        totals.worstRisk = worst;
    }
    return totals;
}

} // namespace metrisk
