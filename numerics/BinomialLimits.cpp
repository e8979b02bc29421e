#include "numerics/BinomialLimits.h"

#include "numerics/BracketedRoot.h"

#include <cmath>

namespace metrisk {

Chance leastShare(double x, double n, double tail) {
    if (!(x > 0)) return {0, 1};
    if (x == n) return {std::exp(std::log(tail) / n), -std::expm1(std::log(tail) / n)};
    // In logits the tail is a smooth function over all shares, and both of them keep their digits.
    const auto chanceAt = [](double logit) {
        return Chance{1 / (1 + std::exp(-logit)), 1 / (1 + std::exp(logit))};
    };
    const auto excess = [&](double logit) {
        return std::log(binomialUpperTail(x, n, chanceAt(logit)) / tail);
    };
    const double start = std::log(x / (n - x + 1));
    CurvePoint from{start, excess(start)};
    if (from.y == 0) return chanceAt(start);
    const double towards = from.y > 0 ? -1 : 1;
    double step = 2 * std::sqrt((n + 1) / (x * (n - x + 1)));
    CurvePoint to = from;
    while ((to.y > 0) == (from.y > 0)) {
        from = to;
        to.x = from.x + towards * step;
        to.y = excess(to.x);
        step *= 2;
    }
    return chanceAt(bracketedRoot(excess, from, to, 1e-15));
}

} // namespace metrisk
