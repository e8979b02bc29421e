#include "risk/decision/GuardbandWidth.h"

#include "numerics/BracketedRoot.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double width = 1e-13; // of d
constexpr double hardlyAny =
    1e-6; // of the widest guard band: so much of an acceptance zone is left at the last
constexpr double met = 1e-6;
constexpr int mostDoublings = 40;

} // namespace

std::optional<double> widthWhere(const DecisionBasis& basis, FunctionRef<double(double)> excess, double from,
                                 bool widen) {
    const double d = basis.halfWidth(), vanishing = basis.vanishingWidth();
    const double widest = vanishing * (1 - hardlyAny);
    CurvePoint inner{from, excess(from)};
    if (std::isnan(inner.y)) return std::nullopt;
    if (inner.y == 0) return from;
    const bool towardsMore = inner.y > 0;
    if (!towardsMore && !widen) return std::nullopt;
    double step = std::min(basis.sigma, d / 4);
    for (int i = 0; i < mostDoublings; ++i, step *= 2) {
        const double x = towardsMore ? std::min(inner.x + step, widest) : inner.x - step;
        const CurvePoint outer{x, excess(x)};
        if (std::isnan(outer.y)) return std::nullopt;
        if ((outer.y > 0) != towardsMore) {
            const double root = bracketedRoot(excess, inner, outer, width * d);
            return std::fabs(excess(root)) < met ? std::optional(root) : std::nullopt;
        }
        if (x == widest) {
            // A joint risk goes to 0 with what is left of the zone, a conditional one to a limit of its own.
            const bool vanishes = excess(vanishing * (1 - 10 * hardlyAny)) - outer.y > 1;
            if (!vanishes) return std::nullopt;
            return vanishing * (1 - hardlyAny * std::exp(-outer.y));
        }
        inner = outer;
    }
    return std::nullopt;
}

} // namespace metrisk
