#include "reliability/TimeUnits.h"

namespace metrisk {

namespace {

constexpr double daysInYear = 365.25;
constexpr std::array<double, 5> daysOf{1 / 24.0, 1, 7, daysInYear / 12, daysInYear};

/// 0 for no unit.
double days(std::string_view unit) {
    for (std::size_t i = 0; i < timeUnits.size(); ++i)
        if (timeUnits[i] == unit) return daysOf[i];
    return 0;
}

} // namespace

double convertedTime(double time, std::string_view from, std::string_view to) {
    if (from == to) return time;
    const double one = days(from), other = days(to);
    return one == 0 || other == 0 ? time : time * one / other;
}

} // namespace metrisk
