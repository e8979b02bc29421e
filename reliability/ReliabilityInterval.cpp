#include "reliability/ReliabilityInterval.h"

#include "base/Box.h"
#include "base/Real.h"
#include "numerics/GammaRate.h"
#include "numerics/mathlib/InvNorm.h"

#include <cmath>

namespace metrisk {

constexpr Message illDefinedReliability{"Reliability function parameters are absent or ill-defined.",
                                        "Ill-Conditioned Reliability Function"};
constexpr Message noInterval{"An interval cannot be found for the value entered.",
                             "Ill-Conditioned Reliability Function"};

namespace {

using namespace reliability;

constexpr Message illegalEop{"EOP Reliability must be greater than zero.", "Illegal EOP"};
constexpr Message dubiousInterval{"Cal /Test interval solution is suspect.", "Dubious Cal /Test Interval"};
constexpr double sameReliability = 1e-12;
constexpr double closeEnough = 1e-4;

void need(bool coefficients) {
    if (!coefficients) throw IntervalRefusal{&illDefinedReliability};
}

/// The first time at which b t + c t^2 is l, by whichever form of the root loses no digits.
double mortalityTime(double b, double c, double l) {
    const double root = std::sqrt(b * b + 4 * c * l);
    return b < 0 ? (root - b) / (2 * c) : 2 * l / (b + root);
}

double gammaTime(double a, double b, double eop) {
    double y = 0;
    bool failed = false;
    SolveGammaRate(y, a, eop, failed);
    if (failed) throw IntervalRefusal{&dubiousInterval};
    return y / b;
}

double walkTime(const Coefficients& theta, double eop, bool restricted) {
    const double p = (eop + 1) / 2;
    if (p == 1) {
        need(!restricted && theta.a == 0);
        return 0;
    }
    const double z = InvNorm(p);
    const double share = (2 / (z * z) - theta.a) / theta.b;
    return restricted ? -std::log1p(-share) / theta.c : share;
}

double formula(int model, const Coefficients& theta, double eop) {
    const auto [a, b, c] = theta;
    const bool atStart = std::fabs(a - eop) < sameReliability;
    switch (model) {
    case Exponential: need(b != 0); return atStart ? 0 : std::log(a / eop) / b;
    case MixedExponential: need(a != 0 && b != 0); return std::expm1(-std::log(eop) / b) * b / a;
    case Weibull: need(b != 0 && c != 0); return atStart ? 0 : std::pow(std::log(a / eop), 1 / c) / b;
    case Gamma: need(b != 0); return gammaTime(a, b, eop);
    case MortalityDrift: need(b != 0 || c != 0); return atStart ? 0 : mortalityTime(b, c, std::log(a / eop));
    case Warranty: need(a != 0); return b + std::log(1 / eop - 1) / a;
    case RandomWalk: need(b != 0); return walkTime(theta, eop, false);
    case RestrictedRandomWalk: need(b != 0 && c != 0); return walkTime(theta, eop, true);
    default: throw IntervalRefusal{&illDefinedReliability};
    }
}

} // namespace

double timeForReliability(int model, const Coefficients& theta, double eop) {
    if (!(eop > 0)) throw IntervalRefusal{&illegalEop};
    need(!theta.allZero());
    try {
        const double t = checked(formula(model, theta, eop));
        if (t >= 0 && std::fabs(reliabilityAt(model, theta, t) - eop) <= closeEnough) return t;
    } catch (const RuntimeFault&) {
    }
    throw IntervalRefusal{&noInterval};
}

} // namespace metrisk
