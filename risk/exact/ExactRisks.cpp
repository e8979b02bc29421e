#include "risk/exact/ExactRisks.h"

#include "numerics/mathlib/InvNorm.h"
#include "risk/exact/RegionContent.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double infinity = BiasShape::infinity;
constexpr double lowestVariable = -13; // of a LogNormal: below it there is nothing

/// From a limit into the side where items are bad: they are accepted by a measurement on this side of `near`.
BoundedFigure acceptedBeyond(const BiasShape& s, double limitU, int direction) {
    const double length = direction > 0 ? s.supportHigh() - limitU : limitU - s.supportLow();
    const double near = direction > 0 ? s.upperX : s.lowerX;
    const double far = direction > 0 ? s.lowerX : s.upperX;
    return regionContent(s, {limitU, direction, length}, {near, far});
}

/// From a limit into the side where items are good: they are rejected by a measurement beyond the test limit
/// behind the walk.
BoundedFigure rejectedWithin(const BiasShape& s, double fromU, double toU, int direction) {
    const double near = direction > 0 ? s.lowerX : s.upperX;
    return regionContent(s, {fromU, direction, std::fabs(toU - fromU)}, {near, infinity});
}

/// In tolerance and accepted, where most good items are rejected: outward from the middle of the accepted
/// range, or from the limit of tolerance nearest to it.
BoundedFigure acceptedWithin(const BiasShape& s) {
    const double lowX = std::isfinite(s.lowerX) ? s.lowerX : s.upperX;
    const double highX = std::isfinite(s.upperX) ? s.upperX : s.lowerX;
    const double middleX = (lowX + highX) / 2;
    double middleU = middleX;
    if (s.kind == Distribution::LogNormal)
        middleU = middleX > 0 ? std::log(middleX / s.omega) / s.logSigma : lowestVariable;
    const double low = std::max({s.lowerU, s.supportLow(), s.normalDensity() ? -40.0 : -infinity});
    const double high = std::min({s.upperU, s.supportHigh(), s.normalDensity() ? 40.0 : infinity});
    middleU = std::clamp(middleU, low, high);
    return regionContent(s, {middleU, 1, high - middleU}, {s.upperX, s.lowerX}) +
           regionContent(s, {middleU, -1, middleU - low}, {s.lowerX, s.upperX});
}

/// Content of the tolerance range, by whichever tails are small.
double inToleranceOf(const BiasShape& s) {
    const double outside = s.below(s.lowerU) + s.above(s.upperU);
    if (outside < 0.5) return 1 - outside;
    const bool onUpperSide = s.lowerU + s.upperU > 0;
    return onUpperSide ? s.above(s.lowerU) - s.above(s.upperU) : s.below(s.upperU) - s.below(s.lowerU);
}

ExactRisks risksOf(const BiasShape& s) {
    const bool mirrored = s.kind == Distribution::Normal && s.lowerU == -s.upperU && s.lowerX == -s.upperX;
    BoundedFigure bad, rejected;
    if (s.upperU < s.supportHigh()) bad = acceptedBeyond(s, s.upperU, 1);
    if (mirrored)
        bad = bad + bad;
    else if (s.lowerU > s.supportLow())
        bad = bad + acceptedBeyond(s, s.lowerU, -1);

    const double top = std::min(s.upperU, s.supportHigh());
    double bottom = std::max(s.lowerU, s.supportLow());
    if (std::isfinite(s.upperX)) rejected = rejectedWithin(s, top, bottom, -1);
    if (mirrored)
        rejected = rejected + rejected;
    else if (std::isfinite(s.lowerX)) {
        if (bottom == -infinity) bottom = lowestVariable; // LogNormal: the edge is its physical limit
        rejected = rejected + rejectedWithin(s, bottom, top, 1);
    }

    const double good = inToleranceOf(s);
    // A limit's own rounding, where the LogNormal takes it through a logarithm.
    const double limitRounding = s.kind == Distribution::LogNormal ? 2e-16 * (2 + 1 / s.logSigma) : 2e-16;
    const double goodBound = 4e-16 * (s.below(s.lowerU) + s.above(s.upperU) + good) + limitRounding;
    const BoundedFigure accepted = rejected.value < good / 2
                                       ? BoundedFigure{good - rejected.value, goodBound + rejected.bound}
                                       : acceptedWithin(s);
    const BoundedFigure all = accepted + bad;
    return {
        {bad.value, bad.bound}, {rejected.value, rejected.bound}, {all.value, all.bound}, {good, goodBound}};
}

} // namespace

BoundedFigure ExactRisks::falseAccept(int falseAcceptOption) const {
    if (falseAcceptOption == 1 || !(accepted.value > 0)) return acceptedBad;
    const double share = acceptedBad.value / accepted.value;
    return {share, (acceptedBad.bound + share * accepted.bound) / accepted.value};
}

std::optional<ExactRisks> exactRisks(const SubjectBias& subject, double mteSigma, AcceptanceRange range) {
    const auto shape = biasShape(subject, mteSigma, range);
    return shape ? std::optional(risksOf(*shape)) : std::nullopt;
}

std::optional<ExactRisks> exactBaseline(double ratio, double subjectInTol, double measuringInTol) {
    const auto inside = [](double p) { return p > 0 && p < 1; };
    if (!(ratio > 0) || !inside(subjectInTol) || !inside(measuringInTol)) return std::nullopt;
    const double zSubject = InvNorm((1 + subjectInTol) / 2);
    const double zMeasuring = InvNorm((1 + measuringInTol) / 2);
    const auto shape = symmetricShape(zSubject, zSubject / (ratio * zMeasuring));
    return shape ? std::optional(risksOf(*shape)) : std::nullopt;
}

} // namespace metrisk
