// The curve of a reliability model, R(t), and how far it is drawn.
#pragma once

#include "drawing/DrawingSurface.h"
#include "reliability/ReliabilityModels.h"

#include <array>
#include <string>

namespace metrisk {

/// How far to draw: beyond the interval, and to where R has fallen to a fiftieth, unless it falls so late
/// that the period would be lost. Between 1.2 and 10 intervals, 1.2 where the model tells no such time; 0
/// without an interval. `bop` is R(0), a fraction; times are in the unit of the coefficients.
double PlotTimeLimit(int model, const Coefficients& theta, double interval, double bop);

/// What is drawn of a model.
struct ReliabilityCurve {
    static constexpr int segments = 100;

    int model = 0;
    double limit = 0;                      // the time at the right end
    double time = 0;                       // the time marked
    double atTime = 0;                     // R there
    bool isInterval = false;               // the time marked is the end of the interval
    std::string units{};                   // of the times, "" or as "Months"
    std::array<double, segments + 1> at{}; // R at equal steps from 0 to the limit

    ReliabilityCurve() = default;
    /// Raises RuntimeFault where R(t) has no value.
    ReliabilityCurve(int model, const Coefficients& theta, double limit, double time);
};

/// Clears the surface and draws the curve, white on black; without one, what is to be done.
void DrawReliabilityPlot(DrawingSurface& surface, const ReliabilityCurve& curve);

} // namespace metrisk
