// A root between two points at which a function differs in sign.
#pragma once

#include "base/FunctionRef.h"

#include <cmath>
#include <limits>
#include <utility>

namespace metrisk {

struct CurvePoint {
    double x;
    double y;
};

/// Chandrupatla's search (Advances in Engineering Software 28, 1997): inverse quadratic interpolation where
/// it can be trusted, else halving. Ends where y is 0 or the bracket is no wider than `width` and 4 spacings
/// of x. The signs at both ends must differ; infinite values are allowed and lead to halving. A function that
/// returns not-a-number ends the search with it.
inline double bracketedRoot(FunctionRef<double(double)> f, CurvePoint a, CurvePoint b, double width) {
    constexpr int mostPasses = 400; // far more than halving needs
    CurvePoint c = a;
    double share = 0.5;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const double x = a.x + share * (b.x - a.x);
        const CurvePoint now{x, f(x)};
        if (std::isnan(now.y)) return now.y;
        if ((now.y < 0) == (a.y < 0) && now.y != 0) {
            c = a;
        } else {
            c = b;
            b = a;
        }
        a = now;
        const double best = std::fabs(a.y) < std::fabs(b.y) ? a.x : b.x;
        const double spacing = 4 * std::numeric_limits<double>::epsilon() * std::fabs(best);
        const double least = std::fmax(width, spacing) / std::fabs(b.x - a.x);
        if (a.y == 0 || least > 0.5) return a.y == 0 ? a.x : best;
        const double xi = (a.x - b.x) / (c.x - b.x);
        const double phi = (a.y - b.y) / (c.y - b.y);
        share = 0.5;
        if (std::isfinite(phi) && phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi)
            share = a.y / (b.y - a.y) * c.y / (b.y - c.y) +
                    (c.x - a.x) / (b.x - a.x) * a.y / (c.y - a.y) * b.y / (c.y - b.y);
        if (!(share > 0 && share < 1)) share = 0.5;
        share = std::fmin(1 - least, std::fmax(least, share));
    }
    return a.x;
}

} // namespace metrisk
