// The one reader of numbers, percentages and ratios with what may stand behind them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

/// Why a row has no figures. A bad one could not be read; a refused one could.
struct RowFault {
    bool bad;
    std::string text;
};

/// A number and the unit behind it, which is empty where there is none.
struct Quantity {
    double number;
    std::string_view unit;
};

/// How the marks of a table's numbers are.
struct NumberMarks {
    bool decimalComma = false;
};

/// Without blanks, tabs and no-break spaces at either end.
std::string_view trimmedCell(std::string_view text);

/// [+-]digits[.digits][e[+-]digits], correctly rounded, and the rest as a unit; U+2212 is a minus. None where
/// there is no such number in front, or it is beyond the doubles; below them it is 0.
std::optional<Quantity> quantityOf(std::string_view text, NumberMarks marks = {});

/// A number with nothing behind it.
std::optional<double> plainNumberOf(std::string_view text, NumberMarks marks = {});
/// "95" and "95%" as 95.
std::optional<double> percentCellOf(std::string_view text, NumberMarks marks = {});
/// "4" and "4:1" as 4.
std::optional<double> ratioCellOf(std::string_view text, NumberMarks marks = {});

/// Whether a text stands for one of those, and what to do if it has a comma.
std::string noNumberText(std::string_view text, const char* what, NumberMarks marks);

/// "inf", "infinity" and "none", in letters of any case.
bool isInfinite(std::string_view text);

} // namespace metrisk
