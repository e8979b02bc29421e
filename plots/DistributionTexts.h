// What a plot of a distribution writes at its lines and ends.
#pragma once

#include "base/Regional.h"
#include "plots/DistributionPlot.h"

#include <string>

namespace metrisk {

/// Empty where there is nothing to write: ends of a total error, limits outside of the axis.
struct DistributionTexts {
    std::string central; // with its units
    std::string left, right;
    std::string lower, upper; // signed and with their units where the plot shows offsets
};

/// A value as the plot writes it: of a total error in tolerance units, else nominal ones.
double shownIn(const DistributionPlot& plot, double value);

/// They differ from their values by at most 1 % of the least distance of a drawn limit from the centre, and
/// read alike only where the values are equal.
DistributionTexts textsOf(const DistributionPlot& plot, const Regional& regional);

} // namespace metrisk
