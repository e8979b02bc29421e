// What a mistyped word may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// The first of the words that are the fewest slips away: a letter too many, too few, another, or two
/// swapped. Empty if a third of the letters would have to be slips.
std::string nearestWord(std::string_view typed, const std::vector<std::string>& words);

} // namespace metrisk
