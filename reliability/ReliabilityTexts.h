// How coefficients, times and reliabilities are shown.
#pragma once

#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Six significant digits, in exponent form below 1e-6.
std::string coefficientText(double value, const Regional& regional);

/// Three significant digits at least, five where they tell more.
std::string timeText(double time, const Regional& regional);

/// In percent, with the decimals of the picture (three without one). More where a reliability below 1 would
/// read 100.
std::string reliabilityText(double fraction, std::string_view picture, const Regional& regional);

} // namespace metrisk
