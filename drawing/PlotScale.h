// The plot window of a distribution: its scales, its ticks, and how texts are placed in it.
#pragma once

#include "drawing/DrawingSurface.h"

#include <string_view>

namespace metrisk {

/// value = mantissa * power with power a power of ten and 1 <= mantissa < 10, the logarithm taken in single
/// precision. A value not above 0 leaves both.
void SplitDecade(double value, double& mantissa, double& power);

/// Into how many parts an axis that ends at the value, taken as the nearest integer, is divided: the first of
/// 4, 5, 3, 6 that divides it, else 1 if it is odd, 2 if it is not.
int TickDivisions(double value);

enum class PlotRole { Distribution, Reliability };

/// Coordinates of a plot: the span of x is 0 to 1, y runs from 0 to plotMax in units of verticalScale.
struct PlotScale {
    double plotMax = 1;
    double verticalScale = 1; // a power of ten
    double xLeft = -0.2, xRight = 1.1;
};

/// The scale for a curve of that peak, which must be above 0.
PlotScale plotScaleFor(PlotRole role, double peak);

/// The same, set on the surface.
PlotScale SetPlotScale(DrawingSurface& surface, PlotRole role, double peak);

void SetPrintPosition(DrawingSurface& surface, double x, double y);
/// So many lines of text below y.
void PrintAt(DrawingSurface& surface, std::string_view text, double x, double y, double lines);
void PrintCentredAt(DrawingSurface& surface, std::string_view text, double x, double y, double lines);
double WidestLabel(const DrawingSurface& surface, std::string_view a, std::string_view b, std::string_view c);

} // namespace metrisk
