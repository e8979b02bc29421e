// A column of measured values as it is typed, pasted or read from a file.
#pragma once

#include "base/Regional.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// The number of a cell; none for anything that is no finite number, blanks included.
std::optional<double> sampleValue(std::string_view cell, const Regional& regional);

/// The marks in which a column was written: its commas are decimal marks if one of them cannot group digits
/// and no cell has a period ("10,0012" beside "9,998").
Regional marksOfColumn(const std::vector<std::string>& cells, const Regional& regional);

struct SampleColumn {
    std::vector<double> values; // at most maxSampleSize
    int decimals = 0;           // most of any value
    int given = 0;              // cells that are not blank
    int firstRow = 0;           // the line, from 1, that has several numbers; 0 where none has
};

/// The first cell of each line; cells end at a tab or semicolon, and those behind it are texts.
SampleColumn readSampleColumn(std::string_view text, const Regional& regional);

/// "n of m taken".
std::string takenText(std::size_t taken, std::size_t given);

} // namespace metrisk
