#include "drawing/PlotScale.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

void SplitDecade(double value, double& mantissa, double& power) {
    if (!(value > 0)) return;
    const float logarithm = static_cast<float>(std::log10(value));
    mantissa = std::pow(10.0, logarithm - std::floor(logarithm));
    power = std::pow(10.0, std::floor(logarithm));
}

int TickDivisions(double value) {
    const double whole = std::nearbyint(value);
    for (const int parts : {4, 5, 3, 6})
        if (std::fmod(whole, parts) == 0) return parts;
    return std::fmod(whole, 2) == 0 ? 2 : 1;
}

namespace {

/// The end of the axis: the value rounded up to the next step of its size.
double axisEnd(double value) {
    double step = 0.00001;
    for (double below = 0.001; value >= below && step < 10000; below *= 10) step *= 10;
    return (std::trunc(value / step) + 1) * step;
}

} // namespace

PlotScale plotScaleFor(PlotRole role, double peak) {
    PlotScale scale;
    if (role == PlotRole::Reliability) {
        scale.xLeft = -0.25;
        scale.xRight = 1.15;
    }
    double mantissa = 1;
    double power = 1;
    SplitDecade(peak, mantissa, power);
    const bool plain = power > 0.05 && power < 5000; // 0.1 to 1000, both included
    scale.verticalScale = plain ? 1 : power;
    scale.plotMax = axisEnd((plain ? peak : mantissa) * 1.02);
    return scale;
}

PlotScale SetPlotScale(DrawingSurface& surface, PlotRole role, double peak) {
    const PlotScale scale = plotScaleFor(role, peak);
    surface.Scale(scale.xLeft, 1.2 * scale.plotMax, scale.xRight, -0.35 * scale.plotMax);
    return scale;
}

void SetPrintPosition(DrawingSurface& surface, double x, double y) {
    surface.CurrentX = x;
    surface.CurrentY = y;
}

void PrintAt(DrawingSurface& surface, std::string_view text, double x, double y, double lines) {
    SetPrintPosition(surface, x, y + lines * surface.TextHeight());
    surface.Print(text);
}

void PrintCentredAt(DrawingSurface& surface, std::string_view text, double x, double y, double lines) {
    PrintAt(surface, text, x - surface.TextWidth(text) / 2, y, lines);
}

double WidestLabel(const DrawingSurface& surface, std::string_view a, std::string_view b,
                   std::string_view c) {
    return std::max({surface.TextWidth(a), surface.TextWidth(b), surface.TextWidth(c)});
}

} // namespace metrisk
