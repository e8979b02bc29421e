#include "risk/RiskModel.h"

#include "base/Real.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/mathlib/Normal.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

/// The standard value at which the normal density has fallen to 1e-14.
const double farBound = std::sqrt(-2 * std::log(1e-14 * std::sqrt(2 * std::numbers::pi)));

struct Bounds {
    double lo;
    double hi;
};

/// Acceptance limits in the unit of the subject's standard variable; none without a scale.
std::optional<Bounds> boundsOf(const SubjectBias& su, AcceptanceRange range) {
    switch (su.distribution) {
    case Distribution::LogNormal: {
        const Real reach = Real(su.mode) - su.physicalLimit;
        const auto ratio = [&reach](double deviation) { return (1 + deviation / reach).value(); };
        if (su.twoSided) {
            const double atLower = ratio(range.lower);
            const double atUpper = ratio(range.upper);
            return su.physLimitBelow ? Bounds{atLower, atUpper} : Bounds{atUpper, atLower};
        }
        const double limit = ratio(su.singleUpper ? range.upper : range.lower);
        return su.singleUpper == su.physLimitBelow ? Bounds{0, limit} : Bounds{limit, farBound};
    }
    case Distribution::Normal: {
        if (!(su.sigma > 0)) return std::nullopt;
        const auto standard = [&su](double deviation) { return (Real(deviation) / su.sigma).value(); };
        if (su.twoSided) return Bounds{standard(range.lower), standard(range.upper)};
        if (su.singleUpper) return Bounds{-farBound, standard(range.upper)};
        return Bounds{standard(range.lower), farBound};
    }
    case Distribution::Exponential: {
        const double offset = su.sideOffset();
        if (!(offset > 0)) return std::nullopt;
        const double limit = (Real(su.singleUpper ? range.upper : range.lower) / offset).value();
        if (su.singleUpper) return su.physLimitBelow ? Bounds{0, limit} : Bounds{-limit, farBound};
        return su.physLimitBelow ? Bounds{limit, farBound} : Bounds{0, -limit};
    }
    case Distribution::Uniform: return Bounds{range.lower, range.upper};
    case Distribution::None: break;
    }
    return std::nullopt;
}

/// Probability of acceptance of a normal parameter, in closed form.
double normalAcceptance(const SubjectBias& su, double mteSigma, AcceptanceRange range) {
    const Real spread = sqrt(Real(mteSigma) * mteSigma + Real(su.sigma) * su.sigma);
    const auto below = [&] { return Normal((range.upper / spread).value()); };
    const auto above = [&] { return Normal((-range.lower / spread).value()); };
    if (su.twoSided) {
        const double content = below();
        return content + (range.lower == -range.upper ? content : above()) - 1;
    }
    return su.singleUpper ? below() : above();
}

} // namespace

double falseAcceptOf(const Probabilities& p, int falseAcceptOption) {
    return checked(falseAcceptOption == 1 ? p.accepted - p.joint : 1 - p.joint / p.accepted);
}

double falseRejectOf(const Probabilities& p) {
    return checked(p.inTolerance - std::fabs(p.joint));
}

Risks risksOf(const Probabilities& p, int falseAcceptOption) {
    return {falseAcceptOf(p, falseAcceptOption), falseRejectOf(p)};
}

std::optional<Probabilities> RiskModel::at(AcceptanceRange range) const {
    if (su_.sigma == 0) return std::nullopt;
    const std::optional<Bounds> bounds = boundsOf(su_, range);
    if (!bounds) return std::nullopt;
    const auto integral = [&](Integral kind) {
        return IntegrateAcceptance(kind, su_, bounds->lo, bounds->hi, mteSigma_);
    };
    const std::optional<double> joint = integral(Integral::Joint);
    if (!joint) return std::nullopt;

    Probabilities p{*joint, 0, inTolerance(su_)};
    if (!(p.joint > 0)) return p;
    switch (su_.distribution) {
    case Distribution::Normal: p.accepted = normalAcceptance(su_, mteSigma_, range); break;
    case Distribution::Uniform: p.accepted = p.joint; break;
    default: {
        const std::optional<double> marginal = integral(Integral::Marginal);
        if (!marginal) return std::nullopt;
        p.accepted = *marginal;
    }
    }
    return p;
}

double inTolerance(const SubjectBias& su) {
    const auto atLimit = [&su](double x) { return Normal(su.logVariable(su.limitRatio(x))); };
    const auto offsetContent = [&su](double offset) { return Normal((Real(offset) / su.sigma).value()); };
    switch (su.caseCode) {
    case 1: return 1 - atLimit(su.physLimitBelow ? su.lowerLimit : su.upperLimit);
    case 2: return atLimit(su.physLimitBelow ? su.upperLimit : su.lowerLimit);
    case 3: {
        const double content = atLimit(su.upperLimit) - atLimit(su.lowerLimit);
        return su.physLimitBelow ? content : -content;
    }
    case 4: return offsetContent(su.lowerOffset);
    case 5: return offsetContent(su.upperOffset);
    case 6: return 2 * offsetContent(su.upperOffset) - 1;
    case 7: return std::exp(-su.expExponent);
    case 8: return 1 - std::exp(-su.expExponent);
    case 9: return 1;
    default: return 0;
    }
}

} // namespace metrisk
