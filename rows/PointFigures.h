// The figures of a test point, column by column.
#pragma once

#include "rows/TestPoint.h"
#include "rows/Want.h"

#include <array>
#include <cstdint>
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

/// What became of a test point.
enum class PointStatus : std::uint8_t {
    Ok,
    Note,    // computed, with something told
    Refused, // read, but its entries allow no figure
    Bad      // not read
};
std::string_view wordOf(PointStatus status);
/// Bad for any other word.
PointStatus pointStatusOf(std::string_view word);

/// Those that a compute of a record with these entries gives, to the bit. What a user would have been asked
/// or told is added to `notes`. Raises RowFault where the entries are refused.
void figuresOf(const TestPoint& point, const Want& want, PointFigures& figures, std::string& notes);

/// Puts the entries into the point, a copy of the template, and computes it; the message says what is told,
/// or why there is no figure. Throws for memory alone: the one way of all who compute points.
PointStatus computePoint(TestPoint& point, const NamedEntries& named, const UnitFactors& units,
                         CountsAs countsAs, const Want& want, PointFigures& figures, std::string& message);

} // namespace metrisk
