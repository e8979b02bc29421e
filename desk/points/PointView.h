// Which rows of a sheet are in sight, in which order they would be sorted, and what all of them come to.
#pragma once

#include "desk/points/PointRules.h"

#include <optional>
#include <vector>

namespace metrisk {

enum class PointFilter { All, NotAnswered, Noted, FalseAcceptAbove, TurBelow, NotComputed };

/// Rows that pass, in the order of the sheet. The limit is a fraction, or a ratio for the TUR.
std::vector<std::size_t> rowsPassing(const PointSheet& sheet, const PointRules* rules, PointFilter filter,
                                     double limit);

/// The order of all rows by a column, those of the answers behind the sheet's own: numbers by their size,
/// whatever units are behind them, before texts; empty cells last. Equal ones keep their order.
std::vector<std::size_t> orderBy(const PointSheet& sheet, const PointRules* rules, std::size_t column,
                                 bool falling);

struct PointTotals {
    RowCounts counts{};
    std::size_t waiting = 0;            // rows that are not computed yet
    std::optional<std::size_t> worst{}; // the row with the greatest false accept risk
    std::size_t above = 0;              // rows with a greater one than the limit
    std::vector<double> falseAccept{};  // of all rows that have one
};
/// The limit is a fraction.
PointTotals totalsOf(const PointSheet& sheet, const PointRules* rules, double limit);

/// The answer of a row by these rules; null where it has none.
const PointAnswer* answerOf(const PointSheet& sheet, const PointRules* rules, std::size_t row);

} // namespace metrisk
