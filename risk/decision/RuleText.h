// Numbers in the text of a rule or an option: a period as decimal mark, no grouping, no blanks within.
#pragma once

#include <optional>
#include <string_view>

namespace metrisk {

/// A finite number, the whole text.
std::optional<double> numberIn(std::string_view text);
/// The number before a percent sign; none without the sign.
std::optional<double> percentIn(std::string_view text);

} // namespace metrisk
