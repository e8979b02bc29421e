// A measured value as a text with the unit it was read in.
#pragma once

#include <optional>
#include <string_view>

namespace metrisk {

struct Analysis;

/// In nominal units; a text without a unit is in those. None if it begins with no number. Raises RowFault
/// where the unit cannot be.
std::optional<double> nominalReading(std::string_view text, const Analysis& record);

} // namespace metrisk
