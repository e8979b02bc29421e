// The binomial distribution, in its far tails and for a thousand million trials as well.
#pragma once

namespace metrisk {

/// A probability and its complement, each to its own precision; fractions.
struct Chance {
    double p;
    double q;
};

/// P(X = x) of n trials, x and n whole numbers with 0 <= x <= n. Relative error about 1e-13 for n up to 1e9.
///
/// C. Loader, "Fast and Accurate Computation of Binomial Probabilities", 2000.
double binomialProbability(double x, double n, Chance chance) noexcept;

/// P(X >= x) and P(X <= x). Relative error below 1e-12, however small they are, down to the smallest normal
/// double. The cost grows with the root of n.
double binomialUpperTail(double x, double n, Chance chance) noexcept;
double binomialLowerTail(double x, double n, Chance chance) noexcept;

} // namespace metrisk
