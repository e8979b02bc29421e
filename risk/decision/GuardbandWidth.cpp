#include "risk/decision/GuardbandWidth.h"

#include "numerics/BracketedRoot.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double width = 1e-13; // of d
constexpr double nearlyAll =
    1e-6; // of d: what is left of an acceptance zone when it counts as shrunk to nothing
constexpr int mostDoublings = 40;

} // namespace

std::optional<double> widthWhere(const DecisionBasis& basis, FunctionRef<double(double)> excess, double from,
                                 bool widen) {
    const double d = basis.halfWidth();
    CurvePoint inner{from, excess(from)};
    if (std::isnan(inner.y)) return std::nullopt;
    if (inner.y == 0) return from;
    const bool towardsMore = inner.y > 0;
    if (!towardsMore && !widen) return std::nullopt;
    double step = std::min(basis.sigma, d / 4);
    for (int i = 0; i < mostDoublings; ++i, step *= 2) {
        CurvePoint outer{inner.x + (towardsMore ? step : -step), 0};
        const bool last = towardsMore && basis.twoSided() && outer.x >= d * (1 - nearlyAll);
        if (last) outer.x = d * (1 - nearlyAll);
        outer.y = excess(outer.x);
        if (std::isnan(outer.y)) return std::nullopt;
        if ((outer.y > 0) != towardsMore) return bracketedRoot(excess, inner, outer, width * d);
        if (last) return std::nullopt;
        inner = outer;
    }
    return std::nullopt;
}

} // namespace metrisk
