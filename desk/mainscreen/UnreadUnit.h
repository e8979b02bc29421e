// Units that are typed behind a figure, which the boxes of the main screen do not read.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

struct Analysis;

/// What to tell of such a text; empty for a figure alone, and where the unit is one that the analysis has.
std::string unreadUnitNote(const Analysis& record, std::string_view text);

} // namespace metrisk
