// Which rows of a sheet are in sight, in which order they would be sorted, and what all of them come to.
#pragma once

#include "desk/points/PointRules.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace metrisk {

/// What a screen shows of a sheet.
struct PointView {
    const PointSheet& sheet;
    std::shared_ptr<const PointRules> rules{}; // null where the header or the template allows none
    std::string fault{};                       // why it does not
    std::vector<std::size_t> rows{};           // of the sheet, in sight

    /// The row of the sheet that is in sight there, or would be behind the rows in sight.
    std::size_t sheetRow(std::size_t seen) const {
        return seen < rows.size() ? rows[seen] : sheet.size() + seen - rows.size();
    }
    /// Null where it has none by these rules.
    const PointAnswer* answer(std::size_t sheetRow) const;
};

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
    double worstRisk = 0;               // a fraction
    double limit = 0;                   // a fraction
    std::size_t above = 0;              // rows with a greater risk than the limit
    std::vector<double> falseAccept{};  // of all rows that have one

    std::size_t points() const { return counts.rows() + waiting; }
};
PointTotals totalsOf(const PointSheet& sheet, const PointRules* rules, double limit);

/// The answer of a row by these rules; null where it has none.
const PointAnswer* answerOf(const PointSheet& sheet, const PointRules* rules, std::size_t row);

} // namespace metrisk
