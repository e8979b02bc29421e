#include "reliability/ReliabilityPeriod.h"

#include "base/Real.h"
#include "numerics/DriftIntegral.h"
#include "numerics/mathlib/Gamma.h"

#include <cmath>

namespace metrisk {

namespace {

using namespace reliability;

constexpr double seriesLimit = 20;
constexpr double seriesEnd = 1e-16;
constexpr int panels = 4;
constexpr int panelShrinks = 4; // a power of 2

/// ln(1 + e^z)
double softplus(double z) {
    return z > 0 ? z + std::log1p(std::exp(-z)) : std::log1p(std::exp(z));
}

/// Of 1/(1 + exp(z + h t/T)) over the period.
double warrantyMean(double z, double h) {
    if (h == 0) return 1 / (1 + std::exp(z));
    const double fall =
        std::fabs(h) < 1 ? std::log1p(std::expm1(h) / (1 + std::exp(-z))) : softplus(z + h) - softplus(z);
    return 1 - fall / h;
}

/// Of exp(-h t/T) over the period.
double exponentialMean(double h) {
    return h == 0 ? 1 : -std::expm1(-h) / h;
}

/// Of the four terms of the Gamma model over the period, y = b T.
double gammaMean(double y) {
    if (y == 0) return 1;
    double sum = 0;
    for (int k = 1; k <= 4; ++k) sum += Gammp(k, y);
    return sum / y;
}

double meanReliability(int model, const Coefficients& theta, double T) {
    const auto [a, b, c] = theta;
    switch (model) {
    case Exponential: return a * exponentialMean(b * T);
    case MixedExponential: return mixedExponentialMean(a * T / b, b);
    case Weibull: return b == 0 ? a : a * weibullMean(1 / c, std::pow(b * T, c));
    case Gamma: return a * gammaMean(b * T);
    case Warranty: return warrantyMean(-a * b, a * T);
    case MortalityDrift: return a * meanOfIntegrand(model, theta, T);
    default: return 2 * meanOfIntegrand(model, theta, T) - 1;
    }
}

double beginning(int model, const Coefficients& theta) {
    switch (model) {
    case Exponential:
    case Weibull:
    case Gamma:
    case MortalityDrift: return theta.a;
    case MixedExponential: return 1;
    default: return theta.a > 0 ? reliabilityAt(model, theta, 0) : 1; // also of the warranty model
    }
}

} // namespace

double weibullMean(double x, double l) {
    if (!(x > -1) || !(l >= 0)) throw RuntimeFault{};
    if (l > seriesLimit)
        return checked(std::exp(Gammln(x + 1) - x * std::log(l)) * Gammp(x + 1, l) + std::exp(-l));
    double sum = 0, term = 1;
    for (double n = 1; term > seriesEnd * sum; ++n) {
        sum += term;
        term *= l / (x + n);
    }
    return checked(sum * std::exp(-l));
}

double mixedExponentialMean(double x, double q) {
    if (!(1 + x > 0)) throw RuntimeFault{};
    if (x == 0) return 1;
    const double s = std::log1p(x);
    return checked(q == 1 ? s / x : std::expm1((1 - q) * s) / ((1 - q) * x));
}

double meanOfIntegrand(int model, const Coefficients& theta, double interval) {
    double b = theta.b, sum = 0, from = 0;
    const auto integrand = [&](double t, double& value) {
        value = ReliabilityIntegrand(model, theta.a, b, theta.c, t);
        return true;
    };
    for (int panel = panels - 1; panel >= 0; --panel) {
        const double to = std::ldexp(interval, -panelShrinks * panel);
        double part = 0;
        DriftNodes drift;
        IntegrateDriftFunction(from, to, integrand, part, drift);
        sum += part;
        from = to;
    }
    return sum / interval;
}

std::optional<PeriodReliability> periodReliability(int model, const Coefficients& theta, double interval) {
    if (!(interval > 0) || theta.allZero() || (model == MixedExponential && theta.b == 0))
        return std::nullopt;
    return faultsNamed("ReliabilityOverPeriod", [&] {
        PeriodReliability period;
        period.bop = checked(beginning(model, theta));
        period.eop = reliabilityAt(model, theta, interval);
        period.aop = checked(meanReliability(model, theta, interval));
        return std::optional(period);
    });
}

bool falls(const PeriodReliability& p) {
    constexpr double rounding = 1e-9; // of a mean beside the ends of its period
    return p.bop <= 1 + rounding && p.aop <= p.bop + rounding && p.eop <= p.aop + rounding &&
           p.eop >= -rounding;
}

} // namespace metrisk
