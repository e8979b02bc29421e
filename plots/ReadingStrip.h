// A reading among its limits: what the true value may be, and how much of that lies out of tolerance.
#pragma once

#include "drawing/DrawingSurface.h"
#include "risk/decision/Judge.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

/// A line across the strip, or its end, with what is written to it.
struct StripMark {
    double at = 0; // share of the strip's width
    std::string text{};
};

struct ReadingStrip {
    std::vector<double> curve;             // density of the true value at even shares of the width, peak 1
    std::optional<StripMark> lower, upper; // tolerance limits
    std::optional<double> acceptLower, acceptUpper;
    StripMark reading;
    std::string in, out; // shares of the curve, as texts
};

/// Of a reading in nominal units that has been judged. The curve is that of the measurement, with a prior
/// that of both together.
ReadingStrip readingStrip(const Judge& judge, double reading, const Judgement& judgement);

/// Tolerance limits are solid lines, acceptance limits dashed ones, the part out of tolerance is hatched.
void DrawReadingStrip(DrawingSurface& surface, const ReadingStrip& strip);

} // namespace metrisk
