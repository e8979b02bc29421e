// Measured samples as a histogram, with their mean and limits.
#pragma once

#include "drawing/DrawingSurface.h"

#include <string>
#include <vector>

namespace metrisk {

struct SamplePicture {
    std::vector<double> values;
    double mean = 0;
    double limit = 0; // distance from the mean, 0 for none; in the units of the values
    std::string meanText;
};

/// Bars as high as the samples in them are many, the mean in one colour, the limits in another. Nothing
/// without two values.
void drawSamples(DrawingSurface& surface, const SamplePicture& picture);

} // namespace metrisk
