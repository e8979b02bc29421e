// How a pasted block stands to the table of test points that it is put into.
#pragma once

#include "base/CellBlock.h"

#include <cstddef>

namespace metrisk {

/// Whether the first line names an entry and reads as a header, with columns of any other name beside it.
bool beginsWithHeader(const CellBlock& cells);

/// How many columns of the block find none to stand in where so many that can be typed into, and behind them
/// so many computed ones, are left. Blank cells need none; nor do all figures of a copied row, which are
/// computed again.
std::size_t columnsWithoutPlace(const CellBlock& cells, std::size_t places, std::size_t figures);

} // namespace metrisk
