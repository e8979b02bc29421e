// The risks of many tests as a histogram, with the limit that they are compared with.
#pragma once

#include "base/Regional.h"
#include "drawing/DrawingSurface.h"

#include <vector>

namespace metrisk {

struct RiskHistogram {
    std::vector<double> risks; // fractions
    double limit = 0;          // a fraction, 0 for none
};

/// Bars of equal width from 0 up, risks beyond the limit in another colour, and ends and limit in percent.
/// Nothing without risks.
void drawRiskHistogram(DrawingSurface& surface, const RiskHistogram& histogram, const Regional& regional);

} // namespace metrisk
