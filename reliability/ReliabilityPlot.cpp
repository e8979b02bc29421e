#include "reliability/ReliabilityPlot.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "base/Real.h"
#include "drawing/Chart.h"
#include "drawing/PlotScale.h"
#include "numerics/mathlib/InvNorm.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace metrisk {

namespace {

using namespace reliability;

constexpr double fall = 50; // R at the estimate is this part of R(0)
constexpr double roomBehind = 1.2;
constexpr double manyIntervals = 10;
constexpr double warrantyLimit = 250;

constexpr Colour yellow{255, 255, 0};
constexpr Colour lightGrey{230, 230, 230};
constexpr Colour cyan{0, 192, 192};

/// The x of the Gamma model at which its leading term has fallen so far: the root of x - 3 ln x - ln(fall/6).
double gammaFallen() {
    double x = 8;
    for (int pass = 0; pass < 20; ++pass) x -= (x - 3 * std::log(x) - std::log(fall / 6)) / (1 - 3 / x);
    return x;
}

double walkFallen(const Coefficients& theta) {
    const double p = theta.a == 0 ? 0.01 : reliabilityAt(RandomWalk, {theta.a, 0, 0}, 0) / fall;
    const double z = InvNorm((1 + p) / 2);
    return (2 / (z * z) - theta.a) / theta.b;
}

double warrantyFallen(const Coefficients& theta) {
    const double v = -theta.a * theta.b;
    if (v > warrantyLimit) throw RuntimeFault{};
    const double start = 1 / (1 + (v < -warrantyLimit ? 0 : std::exp(v)));
    return theta.b + std::log(fall / start - 1) / theta.a;
}

/// The time at which R has fallen so far. Raises RuntimeFault where the model tells none.
double fallenAt(int model, const Coefficients& theta) {
    const auto [a, b, c] = theta;
    switch (model) {
    case Exponential: return std::log(fall) / b;
    case MixedExponential: return std::expm1(std::log(fall) / b) * b / a;
    case Weibull: return std::pow(std::log(fall), 1 / c) / b;
    case Gamma: return gammaFallen() / b;
    case MortalityDrift: {
        const double h = b / (2 * c);
        return c == 0 ? std::log(fall) / b : std::sqrt(std::fabs(h * h + std::log(fall) / c)) - h;
    }
    case Warranty: return warrantyFallen(theta);
    case RandomWalk: return walkFallen(theta);
    case RestrictedRandomWalk: return (std::log(b * c) - 1 / (a + b) - 1.5 * std::log(a + b) + 20) / c;
    default: throw RuntimeFault{};
    }
}

/// At round times and shares, with figures where they touch no other text.
void ticks(DrawingSurface& surface, double limit, const PlotScale& scale) {
    constexpr double length = 0.012;
    constexpr double wordsAt = 2.0 / 3; // "R(t)" beside the axis
    const double top = scale.plotMax;
    const double line = std::abs(surface.TextHeight());
    const auto each = [](const Axis& axis, const auto& draw) {
        for (int i = 0; axis.firstTick + i * axis.step <= axis.to * (1 + 1e-9); ++i)
            draw(axis.firstTick + i * axis.step);
    };
    const Axis times = roundAxisOver("", 0, limit);
    each(times, [&](double time) {
        const double x = time / limit;
        surface.Line(x, 0, x, -length * top);
        PrintCentredAt(surface, FormatNumber(time, PictureForDecimals(times.decimals), {}), x, -length * top,
                       0);
    });
    const Axis shares = roundAxisOver("", 0, top);
    each(shares, [&](double share) {
        surface.Line(0, share, -length, share);
        if (std::abs(share - (wordsAt * top - 1.5 * line)) < 1.25 * line) return; // they hang a line below
        const std::string text = FormatNumber(100 * share * scale.verticalScale,
                                              PictureForDecimals(std::max(0, shares.decimals - 2)), {}) +
                                 " %";
        PrintAt(surface, text, -2 * length - surface.TextWidth(text), share, -0.5);
    });
}

/// What the line stands for, and R where it crosses the curve.
void markTime(DrawingSurface& surface, const ReliabilityCurve& curve, const PlotScale& scale) {
    const double top = scale.plotMax;
    const double x = curve.time / curve.limit;
    const double y = curve.atTime / scale.verticalScale;
    surface.ForeColor = yellow;
    const std::string named = (curve.isInterval ? "interval " : "t = ") + GeneralText(curve.time, {}, 6);
    const double half = surface.TextWidth(named) / 2;
    PrintCentredAt(surface, named, std::clamp(x, half, 1 - half), top, -1.1);
    constexpr double dot = 8; // device units
    surface.DrawWidth = dot;
    surface.Line(x, y, x + 0.1 / std::max(1.0, surface.deviceLengthX(1)), y, yellow); // its round ends
    surface.DrawWidth = 1;
    const std::string told = "R = " + FormatNumber(100 * curve.atTime, "0.00", {}) + " %";
    const double width = surface.TextWidth(told);
    const double beside = dot / std::max(1.0, surface.deviceLengthX(1));
    PrintAt(surface, told, x + beside + width <= 1 ? x + beside : x - beside - width, y, -1.3);
}

} // namespace

double PlotTimeLimit(int model, const Coefficients& theta, double interval, double bop) {
    if (!(interval > 0)) return 0;
    double limit = 0;
    try {
        limit = checked(roomBehind * fallenAt(model, theta));
        while (limit > manyIntervals * interval && reliabilityAt(model, theta, limit / 2) >= bop / 4)
            limit /= 2;
    } catch (const RuntimeFault&) {
        limit = 0;
    }
    return limit > interval ? std::min(limit, manyIntervals * interval) : roomBehind * interval;
}

ReliabilityCurve::ReliabilityCurve(int itsModel, const Coefficients& theta, double itsLimit, double itsTime)
    : model(itsModel), limit(itsLimit), time(itsTime) {
    atTime = reliabilityAt(model, theta, time);
    for (int i = 0; i <= segments; ++i)
        at[static_cast<std::size_t>(i)] = reliabilityAt(model, theta, limit * i / segments);
}

void DrawReliabilityPlot(DrawingSurface& surface, const ReliabilityCurve& curve) {
    surface.BackColor = black;
    surface.Cls();
    const ReliabilityModel* model = reliabilityModel(curve.model);
    const double start = curve.at.front();
    if (!model || !(start > 0) || !(curve.limit > 0)) {
        surface.Scale(0, 1, 1, 0);
        surface.ForeColor = lightGrey;
        surface.Font.Bold = false;
        PrintCentredAt(surface, "Choose a model and enter an interval", 0.5, 0.5, -0.5);
        return;
    }
    const PlotScale scale = SetPlotScale(surface, PlotRole::Reliability, start);
    const double top = scale.plotMax;
    surface.Scale(scale.xLeft, 1.35 * top, scale.xRight, -0.2 * top);

    surface.ForeColor = white;
    surface.Font.Bold = false;
    PrintCentredAt(surface, "R(t)", -0.11, 2 * top / 3, 1);
    PrintCentredAt(surface, "Time Since Measurement", 0.5, -0.05 * top, 1);

    surface.ForeColor = yellow;
    const double line = surface.TextHeight();
    PrintCentredAt(surface, "In-tolerance Probability (R) vs. Time", 0.5, 1.2 * top - 2 * line, 1);
    PrintCentredAt(surface, "for the " + std::string(model->name) + " Model", 0.5, 1.2 * top - line, 1);

    surface.ForeColor = lightGrey;
    surface.DrawWidth = 1;
    const auto height = [&](int i) { return curve.at[static_cast<std::size_t>(i)] / scale.verticalScale; };
    constexpr double step = 1.0 / ReliabilityCurve::segments;
    for (int i = 1; i <= ReliabilityCurve::segments; ++i)
        surface.Line((i - 1) * step, height(i - 1), i * step, height(i));

    surface.DrawWidth = 2;
    const double mark = curve.time / curve.limit;
    if (mark >= 0 && mark <= 1) surface.Line(mark, 0, mark, top, yellow);
    surface.ForeColor = cyan;
    surface.Line(0, 0, 1, 0);
    surface.Line(0, 0, 0, top);
    surface.DrawWidth = 1;
    ticks(surface, curve.limit, scale);
    if (mark >= 0 && mark <= 1) markTime(surface, curve, scale);
    if (!curve.units.empty()) {
        surface.ForeColor = white;
        PrintAt(surface, curve.units, 1 - surface.TextWidth(curve.units), -0.05 * top, 1);
        surface.ForeColor = cyan;
    }
}

} // namespace metrisk
