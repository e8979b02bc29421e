#include "numerics/mathlib/Binomial.h"

#include "numerics/mathlib/Gamma.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

/// What Stirling's formula for ln x! leaves, x a whole number above 0.
double factorialRest(double x) {
    if (x >= 10) return stirlingRest(x);
    return Gammln(x + 1) - ((x + 0.5) * std::log(x) - x + 0.5 * std::log(2 * std::numbers::pi));
}

/// x ln(x/m) + m - x, which is small where x is near m.
double deviance(double x, double m) {
    const double difference = x - m;
    if (std::fabs(difference) >= 0.1 * (x + m)) return x * std::log(x / m) - difference;
    const double v = difference / (x + m), square = v * v;
    double sum = difference * v, power = 2 * x * v;
    for (int divisor = 3; divisor < 1000; divisor += 2) {
        power *= square;
        const double next = sum + power / divisor;
        if (next == sum) break;
        sum = next;
    }
    return sum;
}

/// ln p, where the complement is the smaller one from that.
double logOf(double p, double q) {
    return p < 0.5 ? std::log(p) : std::log1p(-q);
}

/// P(X >= x) for x above the mean: the terms fall from the first one on.
double fallingTail(double x, double n, Chance chance) {
    double term = 1, sum = 1;
    for (double k = x; k < n && term > 1e-17 * sum; ++k) {
        term *= (n - k) / (k + 1) * (chance.p / chance.q);
        sum += term;
    }
    return binomialProbability(x, n, chance) * sum;
}

} // namespace

double binomialProbability(double x, double n, Chance chance) noexcept {
    const auto [p, q] = chance;
    if (p <= 0) return x == 0 ? 1 : 0;
    if (q <= 0) return x == n ? 1 : 0;
    if (x == 0) return std::exp(n * logOf(q, p));
    if (x == n) return std::exp(n * logOf(p, q));
    const double failed = n - x;
    const double exponent = factorialRest(n) - factorialRest(x) - factorialRest(failed) - deviance(x, n * p) -
                            deviance(failed, n * q);
    return std::exp(exponent) * std::sqrt(n / (2 * std::numbers::pi * x * failed));
}

double binomialUpperTail(double x, double n, Chance chance) noexcept {
    if (x <= 0) return 1;
    if (chance.p <= 0 || x > n) return 0;
    if (chance.q <= 0) return 1;
    if (x >= n * chance.p) return std::min(1.0, fallingTail(x, n, chance));
    return 1 - std::min(1.0, fallingTail(n - x + 1, n, {chance.q, chance.p}));
}

double binomialLowerTail(double x, double n, Chance chance) noexcept {
    return binomialUpperTail(n - x, n, {chance.q, chance.p});
}

} // namespace metrisk
