// A block of cells as spreadsheets put it on the clipboard: lines of texts between tabs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

using CellBlock = std::vector<std::vector<std::string>>;

/// Lines end as on any system; the end of the last one begins no line. Quotes around a cell are dropped.
CellBlock readCells(std::string_view text);
std::string writeCells(const CellBlock& cells);

} // namespace metrisk
