// How figures read in a report.
#pragma once

#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// With at least so many decimals, and as many more as it takes to read back the same: a percentage must not
/// round to 100.
std::string figureText(double value, int decimals, const Regional& regional);

/// Digits as far as they are needed, at most those of the picture unless the figure would read otherwise.
std::string shortFigure(double value, const Regional& regional);

/// "Infinite" for 0 and where a t distribution counts as normal.
std::string freedomText(double degFreedom, std::string_view picture, const Regional& regional);

} // namespace metrisk
