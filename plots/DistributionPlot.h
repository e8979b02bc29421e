// A plot of a bias distribution as a value, and how it is drawn: frame, labels and curve.
#pragma once

#include "base/Regional.h"
#include "drawing/DrawingSurface.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

enum class PlotKind { SU, MTE, Error };

/// A point of the curve: x as a share of the span, density per nominal unit.
struct PlotPoint {
    float x = 0;
    double density = 0;
};

/// Curves have so many points.
inline constexpr int curvePoints = 101;

/// Positions on the axis as shares of the span: its ends are 0 and 1.
struct PlotPositions {
    float central = 0, lower = 0, upper = 0;
};

/// The parts of a subject plot that a test decides falsely.
struct FalseDecisions {
    std::vector<double> accepted;                    // probability at each point of the line, fractions
    double falselyAccepted = 0, falselyRejected = 0; // of all units tested, fractions
};

/// What there is to draw. Values are in nominal units; those of the total error are deviations, and their
/// texts are in tolerance units.
struct DistributionPlot {
    PlotKind kind = PlotKind::SU;
    std::string title;
    std::string caption, secondCaption; // of the central value
    std::vector<PlotPoint> points;      // empty: no data
    std::vector<PlotPoint> line;        // the same curve in more points where it bends; empty: the same
    double peak = 0;                    // greatest density
    PlotPositions positions;
    double leftValue = 0, rightValue = 0;
    double centralValue = 0, lowerValue = 0, upperValue = 0;
    bool lowerExists = true, upperExists = true;
    bool byUncertainty = false; // limits are error bounds, not tolerances
    std::string distribution;
    double sigma = 0;
    bool showOffsets = false; // limits as signed distances from the centre, in tolerance units
    double unitsFactor = 1;   // tolerance units per nominal unit
    std::string nominalUnits;
    std::string toleranceUnits;
    double physicalLimit = 0;
    std::string physicalPicture = "General Number";
    double degFreedom = 0;
    bool biasIncluded = false; // total error: with the measuring bias in it

    std::optional<FalseDecisions> falseDecisions{};

    bool holdsData() const { return peak > 0; }
};

/// Draws the whole plot, its scales included. A name of a distribution that it does not know stops it before
/// the curve: the name is returned then. A plot without data leaves an empty surface.
std::optional<std::string> DrawDistributionPlot(DrawingSurface& surface, const DistributionPlot& plot,
                                                const Regional& regional);

} // namespace metrisk
