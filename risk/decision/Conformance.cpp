#include "risk/decision/Conformance.h"

#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/StudentsT.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Posterior.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace metrisk {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr int towardsLimit = 8; // case code of an exponential parameter whose density falls towards its limit

/// P(0 <= T <= t).
double fromCentre(double t, double degFreedom) {
    if (std::isinf(t)) return 0.5;
    return (degFreedom > 0 ? tDistribution(t, degFreedom) : std::erf(t / std::numbers::sqrt2)) / 2;
}

/// P(low <= T <= high) from whichever parts are added or small.
double between(double low, double high, double degFreedom) {
    if (low > 0) return upperTail(low, degFreedom) - upperTail(high, degFreedom);
    if (high < 0) return upperTail(-high, degFreedom) - upperTail(-low, degFreedom);
    return fromCentre(-low, degFreedom) + fromCentre(high, degFreedom);
}

/// ln P(Z <= z), beyond the smallest double too (Abramowitz and Stegun 26.2.12).
double logNormal(double z) {
    if (z > -35) return std::log(Normal(z));
    const double r = 1 / (z * z);
    const double series = -r * (1 - r * (3 - r * (15 - r * (105 - r * 945))));
    return -z * z / 2 - std::log(-z) - std::log(2 * std::numbers::pi) / 2 + std::log1p(series);
}

Conformance normalPosterior(double deviation, const SubjectBias& prior, double sigma) {
    const double both = std::hypot(prior.sigma, sigma);
    const double share = prior.sigma / both;
    const Interval tolerance{prior.twoSided || !prior.singleUpper ? -prior.lowerOffset : -infinite,
                             prior.twoSided || prior.singleUpper ? prior.upperOffset : infinite};
    return conformanceOf(deviation * share * share, tolerance, sigma * share, 0);
}

/// The posterior is a normal distribution about z - rate sigma^2, cut at the physical limit.
Conformance exponentialPosterior(double deviation, const SubjectBias& prior, double sigma) {
    const double offset = prior.sideOffset();
    const double towards = prior.singleUpper ? deviation : -deviation;
    const double centre = towards / sigma - prior.expExponent / offset * sigma;
    const double beyond = centre - offset / sigma;
    const double nonconforming = std::exp(logNormal(beyond) - logNormal(centre));
    if (centre > -35) return {between(-centre, offset / sigma - centre, 0) / Normal(centre), nonconforming};
    return {-std::expm1(logNormal(beyond) - logNormal(centre)), nonconforming};
}

} // namespace

Conformance conformanceOf(double deviation, const Interval& tolerance, double sigma, double degFreedom) {
    const double low = (tolerance.lower - deviation) / sigma;
    const double high = (tolerance.upper - deviation) / sigma;
    return {between(low, high, degFreedom), upperTail(-low, degFreedom) + upperTail(high, degFreedom)};
}

Conformance conformanceOf(const DecisionBasis& basis, double deviation) {
    return conformanceOf(deviation, basis.tolerance(), basis.sigma, basis.degFreedom);
}

std::optional<Conformance> conformanceWithPrior(double deviation, const SubjectBias& prior, double sigma,
                                                double degFreedom) {
    switch (prior.distribution) {
    case Distribution::Uniform: return Conformance{1, 0};
    case Distribution::Normal:
        if (!(prior.sigma > 0)) return std::nullopt;
        if (!(degFreedom > 0)) return normalPosterior(deviation, prior, sigma);
        break;
    case Distribution::Exponential:
        if (!(prior.sideOffset() > 0) || !(prior.expExponent > 0) || prior.caseCode != towardsLimit)
            return std::nullopt;
        if (!(degFreedom > 0)) return exponentialPosterior(deviation, prior, sigma);
        break;
    case Distribution::LogNormal:
        if (!(prior.logSigma > 0) || prior.mode == prior.physicalLimit) return std::nullopt;
        break;
    case Distribution::None: return std::nullopt;
    }
    return integratedConformance(deviation, prior, sigma, degFreedom);
}

} // namespace metrisk
