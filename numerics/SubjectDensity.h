// The subject parameter's density and the range over which it is drawn, both in nominal units.
#pragma once

#include "numerics/Distribution.h"

namespace metrisk {

/// Density at x = z scale + offset, per nominal unit; 0 outside the distribution and for no
/// distribution. Raises RuntimeFault when the fit left a scale of 0.
double SubjectDensity(const SubjectBias& subject, double z, double offset, double scale);

struct PlotBounds {
    double lower = 0;
    double upper = 0;
};

/// Range of a plot of the subject parameter at a zoom factor (1 shows the whole distribution). No
/// distribution leaves the bounds as they were. Raises RuntimeFault on an overflow.
void SetPlotBounds(const SubjectBias& subject, double zoom, PlotBounds& bounds);

} // namespace metrisk
