// What a table of test points comes to, in words.
#pragma once

#include "base/Regional.h"
#include "desk/points/PointView.h"

#include <string>

namespace metrisk {

/// The user's marks, but for the decimal mark of the table, so that figures above its cells are written as
/// those.
Regional regionalOfTable(Regional users, bool decimalComma);

/// "12,345".
std::string countText(std::size_t number, const Regional& regional);

/// How many rows there are, of which status, the worst of them, and how many are in sight, in lines.
std::string totalsText(const PointView& view, const PointTotals& totals, const Regional& regional);

std::string histogramText(const PointTotals& totals, const Regional& regional);

/// What is told of that row; empty where nothing is.
std::string rowText(const PointView& view, std::size_t sheetRow, const Regional& regional);

/// That so many columns of a pasted block find none in the sheet.
std::string noPlaceText(std::size_t columns, const PointSheet& sheet, const Regional& regional);

} // namespace metrisk
