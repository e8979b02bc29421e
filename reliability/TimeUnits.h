// The units of intervals and times of reliability, and how they convert.
#pragma once

#include <array>
#include <string_view>

namespace metrisk {

inline constexpr std::array<std::string_view, 5> timeUnits{"Hours", "Days", "Weeks", "Months", "Years"};

/// A week has 7 days, a year 365.25, a month is a twelfth of it. A time of an unknown unit stays as it is.
double convertedTime(double time, std::string_view from, std::string_view to);

} // namespace metrisk
