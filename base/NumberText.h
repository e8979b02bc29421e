// Reads loose number text: with units, percent and currency signs, grouped, in any regional form.
#pragma once

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// The numeric part of a text, with the period as decimal mark and without grouping marks: units
/// before or behind a blank, "%" and "$" are dropped. A text without a number stays as it is, less
/// those. With a comma as decimal symbol a single period is a decimal mark too; when the text holds
/// a comma, periods are grouping marks. With a period as decimal symbol a single comma that cannot
/// group ("0,5", "1.234,5") is a decimal mark, since texts of analysis files are kept as typed.
std::string CleanNumberText(std::string_view text, const Regional& regional);

/// The number that the cleaned text starts with; 0 if there is none or it is too large for a double.
double ParseValue(std::string_view text, const Regional& regional);

/// The whole text is a number: optional sign, digits with optional grouping, decimal mark, optional
/// exponent; "%" and "$" are tolerated.
bool isNumeric(std::string_view text, const Regional& regional);

/// Digits behind the decimal mark of the cleaned text.
int CountDecimals(std::string_view text, const Regional& regional);

/// The same without trailing zeros.
int CountSignificantDecimals(std::string_view text, const Regional& regional);

/// Brings an exponent to plain digits, keeping every digit typed, and drops percent signs.
std::string DisplayValueText(std::string_view text, const Regional& regional);

/// Digits behind the decimal mark of DisplayValueText.
int DigitsForEntry(std::string_view text, const Regional& regional);

/// What an entry box shows after the text was committed: the value in plain notation with the digits
/// of the entry.
std::string NormalizeBoxText(std::string_view text, const Regional& regional);

} // namespace metrisk
