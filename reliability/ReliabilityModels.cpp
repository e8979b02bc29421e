#include "reliability/ReliabilityModels.h"

#include "base/Real.h"
#include "numerics/mathlib/Normal.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

using namespace reliability;

constexpr double leastWeibull = 1e-12;
constexpr double warrantyLimit = 250;
constexpr double mortalityLimit = 250;

/// The Normal content from which erf(1/sqrt(u)) is 2 Phi - 1. At u = 0 it is the limit, 1.
double walkContent(double u) {
    return u == 0 ? 1 : Normal(std::sqrt(std::fabs(2 / u)));
}

double walk(double u) {
    return 2 * walkContent(u) - 1;
}

double restrictedWalk(double a, double b, double c, double t) {
    return a - b * std::expm1(-c * t);
}

double mixedExponential(double a, double b, double t) {
    return 1 + a * t / b > 0 ? std::exp(-b * std::log1p(a * t / b)) : 0;
}

double gammaFall(double x) {
    return std::exp(-x) * (1 + x * (1 + x * (0.5 + x / 6)));
}

double warranty(double z) {
    return z < -warrantyLimit ? 1 : z > warrantyLimit ? 0 : 1 / (1 + std::exp(z));
}

/// A negative b has its own curve: flat where the exponent would rise.
double mortality(double& b, double c, double t) {
    if (b >= 0) return std::exp(-t * (b + c * t));
    b = -b / 2;
    if (c != 0) return t > -b / c ? std::exp(-t * (b + c * t)) : 1;
    while (b * t >= mortalityLimit) b /= 2;
    return std::exp(-b * t);
}

double formula(int model, const Coefficients& theta, double t) {
    const auto [a, b, c] = theta;
    switch (model) {
    case Exponential: return a * std::exp(-b * t);
    case MixedExponential: return mixedExponential(a, b, t);
    case Weibull: {
        const double value = a * std::exp(-std::pow(b * t, c));
        return value <= 0 ? leastWeibull : value;
    }
    case Gamma: return a * gammaFall(b * t);
    case MortalityDrift: return 2 * c * t + b < 0 ? 0 : a * std::exp(-t * (b + c * t));
    case Warranty: return warranty(a * (t - b));
    case RandomWalk: return walk(a + b * t);
    case RestrictedRandomWalk: return walk(restrictedWalk(a, b, c, t));
    default: throw RuntimeFault(FaultKind::Argument, "ReliabilityAt", model);
    }
}

} // namespace

const ReliabilityModel* reliabilityModel(std::string_view name) {
    const auto found = std::ranges::find(reliabilityModels, name, &ReliabilityModel::name);
    return found == reliabilityModels.end() ? nullptr : &*found;
}

const ReliabilityModel* reliabilityModel(int number) {
    const auto found = std::ranges::find(reliabilityModels, number, &ReliabilityModel::number);
    return found == reliabilityModels.end() ? nullptr : &*found;
}

double reliabilityAt(int model, const Coefficients& theta, double t) {
    if (t == 0 && theta.allZero()) return 0;
    return faultsNamed("ReliabilityAt", [&] { return checked(formula(model, theta, t)); });
}

double ReliabilityIntegrand(int model, double a, double& b, double c, double t) {
    const auto value = [&]() -> double {
        switch (model) {
        case Exponential: return std::exp(-b * t);
        case MixedExponential: return mixedExponential(a, b, t);
        case Weibull: return std::exp(-std::pow(b * t, c));
        case Gamma: return gammaFall(b * t);
        case MortalityDrift: return mortality(b, c, t);
        case Warranty: return warranty(a * (t - b));
        case RandomWalk: return walkContent(a + b * t);
        case RestrictedRandomWalk: {
            const double u = restrictedWalk(a, b, c, t);
            return u > 0 ? walkContent(u) : 1;
        }
        default: throw RuntimeFault(FaultKind::Argument, "ReliabilityIntegrand", model);
        }
    };
    return faultsNamed("ReliabilityIntegrand", [&] { return checked(value()); });
}

} // namespace metrisk
