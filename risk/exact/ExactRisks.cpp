#include "risk/exact/ExactRisks.h"

#include "base/Real.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/NormalArray.h"
#include "risk/exact/Panels.h"
#include "risk/exact/WidePanel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double negligible = 1e-17;   // of a sum: what remains beyond it is left out and told in the bound
constexpr double wantedSpread = 1e-12; // of a sum: a panel that is less certain is halved
constexpr double wideSpread = 2e-14;   // the same of one panel for all
constexpr int halvings = 10;
constexpr int mostPanels = 400;
constexpr double logStep = 7;  // a panel's integrand changes by no more than this factor's exponent
constexpr double flatAt = 9;   // so many measuring sigmas from an edge its probability is 0 or 1
constexpr double edgeStep = 2; // measuring sigmas that a panel near an edge spans at most
constexpr double densityStep = 2.5;
constexpr double lowestVariable = -13; // of a LogNormal: below it there is nothing

/// Rounding: what a panel's value can be off by, relative to it, at arguments of that size.
double roundingOf(double z, double u) {
    return 6e-15 + 5e-16 * (z * z + u * u);
}

/// A subject parameter in its standard variable u, measured on a scale x that grows with u.
struct Shape {
    Distribution kind;
    double rate = 0;                              // Exponential
    double width = 0;                             // Uniform: its half width
    double logSigma = 0, omega = 0;               // LogNormal: x = omega exp(logSigma u)
    double sm = 0;                                // measuring sigma on the scale of x
    double lowerU = -infinite, upperU = infinite; // in tolerance
    double lowerX = -infinite, upperX = infinite; // accepted when measured there

    bool normalDensity() const { return kind == Distribution::Normal || kind == Distribution::LogNormal; }
    double supportLow() const {
        return kind == Distribution::Exponential ? 0 : kind == Distribution::Uniform ? -width : -infinite;
    }
    double supportHigh() const { return kind == Distribution::Uniform ? width : infinite; }
    double x(double u) const { return kind == Distribution::LogNormal ? omega * std::exp(logSigma * u) : u; }

    /// Content above and below u.
    double above(double u) const {
        if (normalDensity()) return Normal(-u);
        if (kind == Distribution::Exponential) return std::exp(-rate * std::max(u, 0.0));
        return std::clamp((width - u) / (2 * width), 0.0, 1.0);
    }
    double below(double u) const {
        if (normalDensity()) return Normal(u);
        if (kind == Distribution::Exponential) return -std::expm1(-rate * std::max(u, 0.0));
        return std::clamp((u + width) / (2 * width), 0.0, 1.0);
    }
};

/// What is integrated along a walk from a start: the density times the probability of a measurement beyond
/// `near` (seen in the walk's direction it lies behind) and, if that is limited, not beyond `far`.
struct Walk {
    const Shape& shape;
    double startU;
    int direction; // +1 towards larger u
    double nearZ;  // (near edge - x) / sm in the walk's direction at the start
    double farZ;   // the same of the far edge; -infinite: none
    double zError; // rounding of nearZ

    double startX = shape.x(startU);

    /// How far x has moved along the walk after `distance` in u.
    double moved(double distance) const {
        if (shape.kind != Distribution::LogNormal) return distance;
        return std::fabs(startX * std::expm1(shape.logSigma * direction * distance));
    }
    double u(double distance) const { return startU + direction * distance; }
    /// Where the near edge is seen from, in measuring sigmas.
    double z(double distance) const { return nearZ - moved(distance) / shape.sm; }

    template <std::size_t n>
    using Array = std::array<double, n>;

    /// The integrand at those distances, with z there.
    template <std::size_t n>
    void evaluate(const Array<n>& distances, Array<n>& values, Array<n>& near) const {
        Array<n> other = distances; // moved in measuring sigmas
        if (shape.kind == Distribution::LogNormal) {
            ExponentialLessOne(shape.logSigma * direction, distances.data(), other.data(), n);
            for (double& v : other) v = std::fabs(startX * v);
        }
        for (double& v : other) v /= shape.sm;
        for (std::size_t i = 0; i < n; ++i) near[i] = nearZ - other[i];
        Normal(near.data(), values.data(), n);
        if (farZ != -infinite) {
            for (double& v : other) v = farZ - v;
            Normal(other.data(), other.data(), n);
            for (std::size_t i = 0; i < n; ++i) values[i] -= other[i];
        }
        if (shape.normalDensity()) {
            for (std::size_t i = 0; i < n; ++i) other[i] = u(distances[i]);
            NormalDensity(other.data(), other.data(), n);
            for (std::size_t i = 0; i < n; ++i) values[i] *= other[i];
        } else if (shape.kind == Distribution::Exponential) {
            for (std::size_t i = 0; i < n; ++i) other[i] = u(distances[i]);
            Exponential(-shape.rate, other.data(), other.data(), n);
            for (std::size_t i = 0; i < n; ++i) values[i] *= shape.rate * other[i];
        } else {
            for (double& v : values) v *= 1 / (2 * shape.width);
        }
    }
    void operator()(const PanelArray& distances, PanelArray& values) const {
        PanelArray near;
        evaluate(distances, values, near);
    }

    /// How far a panel from here may reach.
    double reach(double distance) const {
        const double densityReach = densityStepAt(distance);
        const double at = z(distance);
        double zStep = edgeStep;
        if (at > flatAt + edgeStep)
            zStep = at - flatAt;
        else if (at < -1)
            zStep = std::min(edgeStep, std::sqrt(at * at + 2 * logStep) + at);
        return std::min(densityReach, inVariable(distance, zStep * shape.sm));
    }

    /// How far one panel reaches that holds all that counts; 0 where the integrand is no smooth one over all
    /// of it.
    double wideReach(double length) const {
        constexpr double logEnd = 42;    // what lies beyond has lost so much of its logarithm
        constexpr double widestZ = 12;   // measuring sigmas
        constexpr double widestU = 9;    // of a normal density
        constexpr double steepest = 1.5; // of a LogNormal's scale, and of an exponential's density in logEnd
        const double start = std::min(nearZ, 0.0);
        double end =
            inVariable(0, (nearZ - start + std::sqrt(start * start + 2 * logEnd) + start) * shape.sm);
        if (shape.normalDensity()) {
            const double outward = direction * startU;
            end = std::min(end, std::sqrt(outward * outward + 2 * logEnd) - outward);
        } else if (shape.kind == Distribution::Exponential && direction > 0) {
            end = std::min(end, logEnd / shape.rate);
        }
        end = std::min(end, length);
        const bool smooth = nearZ - z(end) <= widestZ && (!shape.normalDensity() || end <= widestU) &&
                            (shape.kind != Distribution::LogNormal || shape.logSigma * end <= steepest);
        return smooth ? end : 0;
    }

  private:
    double densityStepAt(double distance) const {
        if (shape.kind == Distribution::Uniform) return infinite;
        if (shape.kind == Distribution::Exponential) return logStep / shape.rate;
        const double at = u(distance);
        const bool outward = at * direction >= 0;
        const double size = std::fabs(at);
        const double step = outward ? std::sqrt(size * size + 2 * logStep) - size
                                    : size - std::sqrt(std::max(size * size - 2 * logStep, 0.0));
        return std::min(std::max(step, 0.05), densityStep);
    }

    /// The step in u that moves x by so much.
    double inVariable(double distance, double step) const {
        if (shape.kind != Distribution::LogNormal) return step;
        const double at = shape.x(u(distance));
        if (direction > 0) return std::log1p(step / at) / shape.logSigma;
        return step < at ? -std::log1p(-step / at) / shape.logSigma : infinite;
    }
};

struct Sum {
    double value = 0;
    double bound = 0;
};

/// A panel, halved where the two rules do not agree well enough for the sum.
void addPanel(const Walk& walk, double from, double to, Sum& sum, int depth) {
    const PanelSum panel = integratePanel(from, to, walk);
    if (panel.spread > wantedSpread * (sum.value + panel.value) && depth < halvings) {
        const double middle = (from + to) / 2;
        addPanel(walk, from, middle, sum, depth + 1);
        addPanel(walk, middle, to, sum, depth + 1);
        return;
    }
    const double first = walk.z(from);
    const double last = walk.z(to);
    // A probability of 1 does not feel the size of its argument.
    const double z = last > flatAt - 0.5 ? 0 : std::max(std::min(std::fabs(first), flatAt), std::fabs(last));
    const double u = std::max(std::fabs(walk.u(from)), std::fabs(walk.u(to)));
    sum.value += panel.value;
    sum.bound +=
        panel.spread + panel.value * (roundingOf(z, std::min(u, 40.0)) + (z > 0 ? walk.zError * (z + 1) : 0));
}

/// All of a walk in one panel up to the distance that is given, which is 0 where there is none that would do.
double addWidePanel(const Walk& walk, double length, Sum& sum) {
    const double end = walk.wideReach(length);
    if (!(end > 0)) return 0;
    WideArray distances, values, near;
    for (std::size_t i = 0; i < widePoints; ++i) distances[i] = end / 2 * (1 + wideNodes[i]);
    walk.evaluate(distances, values, near);
    const auto ruleOver = [&](std::size_t from, std::size_t points) {
        return end / 2 * SumOfProducts(wideWeights.data() + from, values.data() + from, points);
    };
    const double fine = ruleOver(0, fineRulePoints);
    const double spread = std::fabs(fine - ruleOver(fineRulePoints, widePoints - fineRulePoints));
    if (!(spread <= wideSpread * fine)) return 0;
    double rounding = 0;
    for (std::size_t i = 0; i < fineRulePoints; ++i) {
        const double z = near[i] > flatAt - 0.5 ? 0 : std::fabs(near[i]);
        const double u = std::min(std::fabs(walk.u(distances[i])), 40.0);
        rounding += wideWeights[i] * values[i] * (roundingOf(z, u) + (z > 0 ? walk.zError * (z + 1) : 0));
    }
    sum.value = fine;
    sum.bound = spread + end / 2 * rounding;
    return end;
}

/// Sums the walk up to `length` (in u, may be infinite), or until what remains counts no more.
Sum integrate(const Walk& walk, double length) {
    const Shape& shape = walk.shape;
    Sum sum;
    double at = addWidePanel(walk, length, sum);
    for (int panels = 0; at < length; ++panels) {
        const double mass = walk.direction > 0 ? shape.above(walk.u(at)) : shape.below(walk.u(at));
        const double remains = mass * Normal(walk.z(at));
        if (remains <= negligible * sum.value || remains < 1e-300 || panels == mostPanels) {
            sum.bound += remains;
            break;
        }
        const double step = walk.reach(at);
        const double next = std::min(at + step, length);
        if (!(next > at)) { // the step is lost against the distance
            sum.bound += remains;
            break;
        }
        addPanel(walk, at, next, sum, 0);
        at = next;
    }
    return sum;
}

Sum operator+(const Sum& a, const Sum& b) {
    return {a.value + b.value, a.bound + b.bound};
}

/// A walk from a start towards larger (1) or smaller u; the edges are those behind which, seen from the walk,
/// the probability ends.
Walk walkFrom(const Shape& s, double startU, int direction, double nearX, double farX) {
    constexpr double lost =
        9; // measuring sigmas beyond the near edge: a share of 1e-18 or less of what it lets by
    const double x = s.x(startU);
    const double rounding = 4e-16 * (std::fabs(nearX) + std::fabs(x)) / s.sm;
    const double nearZ = direction * (nearX - x) / s.sm, farZ = direction * (farX - x) / s.sm;
    return {.shape = s,
            .startU = startU,
            .direction = direction,
            .nearZ = nearZ,
            .farZ = std::isfinite(farX) && farZ > std::min(nearZ, 0.0) - lost ? farZ : -infinite,
            .zError = nearX == x || !std::isfinite(nearX) ? 0 : rounding};
}

/// From a limit into the side where items are bad: they are accepted by a measurement on this side of `near`.
Sum acceptedBeyond(const Shape& s, double limitU, int direction) {
    const double length = direction > 0 ? s.supportHigh() - limitU : limitU - s.supportLow();
    const double near = direction > 0 ? s.upperX : s.lowerX;
    const double far = direction > 0 ? s.lowerX : s.upperX;
    return integrate(walkFrom(s, limitU, direction, near, far), length);
}

/// From a limit into the side where items are good: they are rejected by a measurement beyond the test limit
/// behind the walk.
Sum rejectedWithin(const Shape& s, double fromU, double toU, int direction) {
    const double near = direction > 0 ? s.lowerX : s.upperX;
    return integrate(walkFrom(s, fromU, direction, near, infinite), std::fabs(toU - fromU));
}

/// In tolerance and accepted, where most good items are rejected: outward from the middle of the accepted
/// range, or from the limit of tolerance nearest to it.
Sum acceptedWithin(const Shape& s) {
    const double lowX = std::isfinite(s.lowerX) ? s.lowerX : s.upperX;
    const double highX = std::isfinite(s.upperX) ? s.upperX : s.lowerX;
    const double middleX = (lowX + highX) / 2;
    double middleU = middleX;
    if (s.kind == Distribution::LogNormal)
        middleU = middleX > 0 ? std::log(middleX / s.omega) / s.logSigma : lowestVariable;
    const double low = std::max({s.lowerU, s.supportLow(), s.normalDensity() ? -40.0 : -infinite});
    const double high = std::min({s.upperU, s.supportHigh(), s.normalDensity() ? 40.0 : infinite});
    middleU = std::clamp(middleU, low, high);
    const Walk up = walkFrom(s, middleU, 1, s.upperX, s.lowerX);
    const Walk down = walkFrom(s, middleU, -1, s.lowerX, s.upperX);
    return integrate(up, high - middleU) + integrate(down, middleU - low);
}

bool usable(const Shape& s) {
    return std::isfinite(s.sm) && s.sm > 0 && !std::isnan(s.lowerX) && !std::isnan(s.upperX) &&
           s.lowerX < s.upperX && s.lowerU < s.upperU;
}

/// Content of the tolerance range, by whichever tails are small.
double inToleranceOf(const Shape& s) {
    const double outside = s.below(s.lowerU) + s.above(s.upperU);
    if (outside < 0.5) return 1 - outside;
    const bool onUpperSide = s.lowerU + s.upperU > 0;
    return onUpperSide ? s.above(s.lowerU) - s.above(s.upperU) : s.below(s.upperU) - s.below(s.lowerU);
}

ExactRisks risksOf(const Shape& s) {
    const bool mirrored = s.kind == Distribution::Normal && s.lowerU == -s.upperU && s.lowerX == -s.upperX;
    Sum bad, rejected;
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
        if (bottom == -infinite) bottom = lowestVariable; // LogNormal: the edge is its physical limit
        rejected = rejected + rejectedWithin(s, bottom, top, 1);
    }

    const double good = inToleranceOf(s);
    // A limit's own rounding, where the LogNormal takes it through a logarithm.
    const double limitRounding = s.kind == Distribution::LogNormal ? 2e-16 * (2 + 1 / s.logSigma) : 2e-16;
    const double goodBound = 4e-16 * (s.below(s.lowerU) + s.above(s.upperU) + good) + limitRounding;
    const Sum accepted = rejected.value < good / 2 ? Sum{good - rejected.value, goodBound + rejected.bound}
                                                   : acceptedWithin(s);
    const Sum all = accepted + bad;
    return {
        {bad.value, bad.bound}, {rejected.value, rejected.bound}, {all.value, all.bound}, {good, goodBound}};
}

/// The parameter on its own scale; limits that are not there are infinite.
Shape shapeOf(const SubjectBias& su, double mteSigma, AcceptanceRange range) {
    Shape s{.kind = su.distribution};
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
            return t > 0 ? std::log(t / su.logOmega) / su.logSigma : -infinite;
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

BoundedFigure ExactRisks::falseAccept(int falseAcceptOption) const {
    if (falseAcceptOption == 1 || !(accepted.value > 0)) return acceptedBad;
    const double share = acceptedBad.value / accepted.value;
    return {share, (acceptedBad.bound + share * accepted.bound) / accepted.value};
}

std::optional<ExactRisks> exactRisks(const SubjectBias& subject, double mteSigma, AcceptanceRange range) {
    if (!hasScale(subject)) return std::nullopt;
    const Shape shape = shapeOf(subject, mteSigma, range);
    if (!usable(shape)) return std::nullopt;
    return risksOf(shape);
}

std::optional<ExactRisks> exactBaseline(double ratio, double subjectInTol, double measuringInTol) {
    const auto inside = [](double p) { return p > 0 && p < 1; };
    if (!(ratio > 0) || !inside(subjectInTol) || !inside(measuringInTol)) return std::nullopt;
    try {
        const double zSubject = InvNorm((1 + subjectInTol) / 2);
        const double zMeasuring = InvNorm((1 + measuringInTol) / 2);
        Shape shape{.kind = Distribution::Normal};
        shape.sm = zSubject / (ratio * zMeasuring);
        shape.lowerU = shape.lowerX = -zSubject;
        shape.upperU = shape.upperX = zSubject;
        if (!usable(shape)) return std::nullopt;
        return risksOf(shape);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

} // namespace metrisk
