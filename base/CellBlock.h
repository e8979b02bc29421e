// A block of cells as spreadsheets put it on the clipboard: lines of texts between tabs. A cell with a tab, a
// line end or a quote in front stands in quotes, its own quotes doubled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

using CellBlock = std::vector<std::vector<std::string>>;

/// Lines end as on any system; the end of the last one begins no line. Quotes around a cell are dropped,
/// whatever is between them; one that is not closed at the end of a cell is a character like any other.
CellBlock readCells(std::string_view text);
/// What readCells reads as the same cells.
std::string writeCells(const CellBlock& cells);

} // namespace metrisk
