// When two numbers that were computed, or went through a file, count as one.
#pragma once

#include <algorithm>
#include <cmath>

namespace metrisk {

/// They differ by at most 1e-12 of the larger: by what rounding leaves, whatever their unit and size. What
/// was entered is compared exactly instead.
inline bool sameDerived(double a, double b) {
    constexpr double relative = 1e-12;
    return a == b || std::fabs(a - b) <= relative * std::max(std::fabs(a), std::fabs(b));
}

} // namespace metrisk
