// How the regional characters are used when numbers are shown and read; each may be several bytes.
#pragma once

#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// The decimal symbol, the period if there is none that could stand in a number.
std::string decimalSymbol(const Regional& regional);

/// The minus sign, "-" if there is none that could stand before a number.
std::string negativeSign(const Regional& regional);

/// The length of a grouping mark at the start of the text, 0 if there is none. Blanks of every width
/// stand for each other, and so do the two apostrophes.
std::size_t groupingMarkAt(std::string_view text, const Regional& regional);

/// Whether a number shown with grouping marks reads back as itself: not with a period, which alone
/// in a text is a decimal mark, nor with a mark that means something else in a number.
bool groupingReadsBack(const Regional& regional);

/// The length of a blank at the start of the text, 0 if there is none.
std::size_t blankAt(std::string_view text);

} // namespace metrisk
