#include "numerics/SubjectDensity.h"

#include "base/Real.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr double sigmasShown = 4;

const Real rootTwoPi = std::sqrt(2 * std::numbers::pi);

bool onWrongSide(const SubjectBias& su, double x) {
    return su.physLimitBelow ? x < su.physicalLimit : x > su.physicalLimit;
}

double logNormalDensity(const SubjectBias& su, double x) {
    if (onWrongSide(su, x)) return 0;
    const Real y = su.limitRatio(x);
    if (y <= 0) return 0;
    const Real s = su.logSigma;
    const Real width = abs(Real(su.mode) - su.physicalLimit);
    return (exp(-log(y) * log(y) / (2 * s * s)) * exp(-s * s / 2) / (rootTwoPi * s * width)).value();
}

double normalDensity(const SubjectBias& su, double x) {
    const Real z = (Real(x) - su.mode) / su.sigma;
    return (exp(-z * z / 2) / (rootTwoPi * su.sigma)).value();
}

double exponentialDensity(const SubjectBias& su, double x) {
    if (onWrongSide(su, x)) return 0;
    const Real q = (Real(x) - su.physicalLimit) * su.expRate;
    if (q > 50 || q < 0) return 0;
    // The rate is negative where the distribution runs downwards; its density is not.
    return (abs(Real(su.expRate)) * exp(-q)).value();
}

double uniformDensity(const SubjectBias& su, double x) {
    if (x < su.lowerLimit || x > su.upperLimit) return 0;
    return (1 / (Real(su.upperLimit) - su.lowerLimit)).value();
}

} // namespace

double SubjectDensity(const SubjectBias& subject, double z, double offset, double scale) {
    const double x = (Real(z) * scale + offset).value();
    switch (subject.distribution) {
    case Distribution::LogNormal: return logNormalDensity(subject, x);
    case Distribution::Normal: return normalDensity(subject, x);
    case Distribution::Exponential: return exponentialDensity(subject, x);
    case Distribution::Uniform: return uniformDensity(subject, x);
    case Distribution::None: break;
    }
    return 0;
}

void SetPlotBounds(const SubjectBias& su, double zoom, PlotBounds& bounds) {
    const Real mode = su.mode;
    Real up = 0;
    Real down = 0;
    switch (su.distribution) {
    case Distribution::None: return;
    case Distribution::Normal: up = down = sigmasShown * Real(su.sigma); break;
    case Distribution::LogNormal: {
        // The point at which the density has fallen to a thousandth of that at the median.
        const Real limit = su.physicalLimit;
        const Real reach = abs(mode - limit) * exp(Real(su.logSigma) * std::sqrt(2 * std::log(1000.0)));
        if (su.physLimitBelow) {
            up = limit + reach - mode;
            const Real bottom = mode - limit > up ? mode - up : limit;
            down = mode - bottom;
        } else {
            down = mode - (limit - reach);
            const Real top = limit - mode > down ? mode + down : limit;
            up = top - mode;
        }
        break;
    }
    case Distribution::Exponential: {
        const Real far = std::log(100.0) / Real(su.expRate);
        (su.physLimitBelow ? up : down) = su.physLimitBelow ? far : -far;
        break;
    }
    case Distribution::Uniform: {
        const Real margin = (Real(su.upperLimit) - su.lowerLimit) / 10;
        up = su.upperLimit + margin - mode;
        down = mode - (su.lowerLimit - margin);
        break;
    }
    }
    bounds = {(mode - down * zoom).value(), (mode + up * zoom).value()};
}

} // namespace metrisk
