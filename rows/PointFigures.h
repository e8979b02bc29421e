// The figures of a test point, column by column.
#pragma once

#include "rows/TestPoint.h"
#include "rows/Want.h"

#include <array>
#include <string>
#include <string_view>

namespace metrisk {

/// A cell of the output; a text is a literal.
struct FigureValue {
    enum class Kind { None, Number, Flag, Text } kind = Kind::None;
    double number = 0;
    std::string_view text{};
};

inline constexpr std::size_t mostFigures = 80;

/// By the columns of what is wanted.
struct PointFigures {
    std::array<FigureValue, mostFigures> values{};
    std::size_t count = 0;
    std::string_view unit{}; // of the lengths; lives as long as the row and the template
};

/// Those that a compute of a record with these entries gives, to the bit. What a user would have been asked
/// or told is added to `notes`. Raises RowFault where the entries are refused.
void figuresOf(const TestPoint& point, const Want& want, PointFigures& figures, std::string& notes);

} // namespace metrisk
