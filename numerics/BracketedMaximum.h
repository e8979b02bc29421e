// The greatest value of a function between two points.
#pragma once

#include "numerics/BracketedRoot.h"

#include <cmath>
#include <limits>

namespace metrisk {

/// The highest point that Brent's search meets between `a` and `b` (Algorithms for Minimization without
/// Derivatives, 1973, chapter 5): parabolas where they can be trusted, else golden sections. `width` is how
/// near the place is wanted; never nearer than rounding allows, the root of the relative precision. One
/// maximum is found where there are several. A value of not-a-number or minus infinity counts as lowest.
inline CurvePoint bracketedMaximum(FunctionRef<double(double)> f, double a, double b, double width) {
    constexpr double golden = 0.3819660112501051;
    constexpr int mostPasses = 100;
    const auto height = [&f](double x) {
        const double y = f(x);
        return std::isnan(y) ? -std::numeric_limits<double>::infinity() : y;
    };
    double x = a + golden * (b - a);
    CurvePoint best{x, height(x)}, second = best, third = best;
    double step = 0, before = 0;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const double middle = (a + b) / 2;
        const double tolerance = std::fmax(width, 1e-9 * std::fabs(best.x));
        if (std::fabs(best.x - middle) <= 2 * tolerance - (b - a) / 2) break;
        double p = 0, q = 0;
        const bool finite = std::isfinite(best.y) && std::isfinite(second.y) && std::isfinite(third.y);
        if (std::fabs(before) > tolerance && finite) {
            const double r = (best.x - second.x) * (third.y - best.y);
            const double s = (best.x - third.x) * (second.y - best.y);
            p = (best.x - third.x) * s - (best.x - second.x) * r;
            q = 2 * (s - r);
            if (q > 0) p = -p;
            q = std::fabs(q);
        }
        const double longest = std::fabs(0.5 * q * before);
        if (q > 0 && std::fabs(p) < longest && p > q * (a - best.x) && p < q * (b - best.x)) {
            before = step;
            step = p / q;
            const double at = best.x + step;
            if (at - a < 2 * tolerance || b - at < 2 * tolerance)
                step = best.x < middle ? tolerance : -tolerance;
        } else {
            before = best.x < middle ? b - best.x : a - best.x;
            step = golden * before;
        }
        x = best.x + (std::fabs(step) >= tolerance ? step : std::copysign(tolerance, step));
        const CurvePoint now{x, height(x)};
        if (now.y >= best.y) {
            (now.x >= best.x ? a : b) = best.x;
            third = second;
            second = best;
            best = now;
        } else {
            (now.x < best.x ? a : b) = now.x;
            if (now.y >= second.y || second.x == best.x) {
                third = second;
                second = now;
            } else if (now.y >= third.y || third.x == best.x || third.x == second.x) {
                third = now;
            }
        }
    }
    return best;
}

} // namespace metrisk
