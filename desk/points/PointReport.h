// The rows of a sheet as a document, to be printed or filed.
#pragma once

#include "base/Clock.h"
#include "desk/points/PointView.h"
#include "reports/TableReport.h"

#include <string>
#include <vector>

namespace metrisk {

/// More are no document that anybody reads.
inline constexpr std::size_t mostPrintedRows = 10'000;

/// What stands above the rows.
struct PointReportHead {
    std::string table, base; // names of the table and of what fills its entries
    std::string totals;      // in lines
    Moment now;
};

/// Columns of the table that hold anything, as many as a page has room for, and the first figures; a line
/// above names the others. The small print bears the SHA-256 of `results`, all rows with all figures as CSV.
TableReport pointReport(const PointSheet& sheet, const PointRules& rules,
                        const std::vector<std::size_t>& rows, const PointReportHead& head,
                        std::string_view results, const Regional& regional);

} // namespace metrisk
