// The texts of values in a plot: as short as they can be without telling another number.
#pragma once

#include "base/Regional.h"

#include <span>
#include <string>
#include <vector>

namespace metrisk {

/// A text for each value, with four decimals at most where that differs from it by no more than `tolerance`,
/// and more where it must. Two read alike only if their values are equal to 15 digits.
std::vector<std::string> labelTexts(std::span<const double> values, double tolerance,
                                    const Regional& regional);

/// With three decimals, and at least three digits that count.
std::string sigmaText(double sigma, const Regional& regional);

} // namespace metrisk
