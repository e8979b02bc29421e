#include "risk/exact/BiasShape.h"

namespace metrisk {

namespace {

constexpr double infinity = BiasShape::infinity;

bool usable(const BiasShape& s) {
    return std::isfinite(s.sm) && s.sm > 0 && !std::isnan(s.lowerX) && !std::isnan(s.upperX) &&
           s.lowerX < s.upperX && s.lowerU < s.upperU;
}

BiasShape shapeOf(const SubjectBias& su, double mteSigma, AcceptanceRange range) {
    BiasShape s{.kind = su.distribution};
    switch (su.distribution) {
    case Distribution::Normal:
        s.sm = mteSigma / su.sigma;
        if (su.twoSided || su.singleUpper) {
            s.upperU = su.upperOffset / su.sigma;
            s.upperX = range.upper / su.sigma;
        }
        if (su.twoSided || !su.singleUpper) {
            s.lowerU = -su.lowerOffset / su.sigma;
            s.lowerX = range.lower / su.sigma;
        }
        break;
    case Distribution::LogNormal: {
        const double reach = su.mode - su.physicalLimit;
        const auto ratio = [reach](double deviation) { return 1 + deviation / reach; };
        const auto variable = [&](double deviation) {
            const double t = ratio(deviation);
            return t > 0 ? std::log(t / su.logOmega) / su.logSigma : -infinity;
        };
        s.logSigma = su.logSigma;
        s.omega = su.logOmega;
        s.sm = mteSigma / std::fabs(reach);
        // Away from the physical limit is up on this scale.
        const bool hasUpper = su.twoSided || su.singleUpper;
        const bool hasLower = su.twoSided || !su.singleUpper;
        const bool hasTop = su.physLimitBelow ? hasUpper : hasLower;
        const bool hasBottom = su.physLimitBelow ? hasLower : hasUpper;
        const double topOffset = su.physLimitBelow ? su.upperOffset : -su.lowerOffset;
        const double bottomOffset = su.physLimitBelow ? -su.lowerOffset : su.upperOffset;
        if (hasTop) {
            s.upperU = variable(topOffset);
            s.upperX = ratio(su.physLimitBelow ? range.upper : range.lower);
            s.lowerX = 0;
        }
        if (hasBottom) {
            s.lowerU = variable(bottomOffset);
            s.lowerX = ratio(su.physLimitBelow ? range.lower : range.upper);
        }
        break;
    }
    case Distribution::Exponential: {
        const double offset = su.sideOffset();
        const double edge = std::fabs(su.singleUpper ? range.upper : range.lower) / offset;
        s.rate = su.expExponent;
        s.sm = mteSigma / offset;
        if (su.caseCode == 8) {
            s.upperU = 1;
            s.lowerX = 0;
            s.upperX = edge;
        } else {
            s.lowerU = 1;
            s.lowerX = edge;
        }
        break;
    }
    case Distribution::Uniform:
        s.width = su.upperOffset;
        s.sm = mteSigma;
        s.lowerX = range.lower;
        s.upperX = range.upper;
        break;
    case Distribution::None: break;
    }
    return s;
}

bool hasScale(const SubjectBias& su) {
    switch (su.distribution) {
    case Distribution::Normal: return su.sigma > 0;
    case Distribution::LogNormal: return su.logSigma > 0 && su.mode != su.physicalLimit;
    case Distribution::Exponential: return su.sideOffset() > 0 && su.expExponent > 0;
    case Distribution::Uniform: return su.upperOffset > 0;
    case Distribution::None: break;
    }
    return false;
}

} // namespace

std::optional<BiasShape> biasShape(const SubjectBias& subject, double mteSigma, AcceptanceRange range) {
    if (!hasScale(subject)) return std::nullopt;
    const BiasShape shape = shapeOf(subject, mteSigma, range);
    return usable(shape) ? std::optional(shape) : std::nullopt;
}

std::optional<BiasShape> symmetricShape(double limit, double sm) {
    BiasShape shape{.kind = Distribution::Normal};
    shape.sm = sm;
    shape.lowerU = shape.lowerX = -limit;
    shape.upperU = shape.upperX = limit;
    return usable(shape) ? std::optional(shape) : std::nullopt;
}

} // namespace metrisk
