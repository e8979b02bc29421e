#include "risk/exact/RegionContent.h"

#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/NormalArray.h"
#include "risk/exact/Panels.h"
#include "risk/exact/WidePanel.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double infinity = BiasShape::infinity;
constexpr double negligible = 1e-17;   // of a sum: what remains beyond it is left out and told in the bound
constexpr double wantedSpread = 1e-12; // of a sum: a panel that is less certain is halved
constexpr double resolution = 1e-15;   // of a probability, of which two are taken from each other
constexpr double wideSpread = 2e-14;   // the same of one panel for all
constexpr int halvings = 10;
constexpr int mostPanels = 400;
constexpr double logStep = 7;  // a panel's integrand changes by no more than this factor's exponent
constexpr double flatAt = 9;   // so many measuring sigmas from an edge its probability is 0 or 1
constexpr double edgeStep = 2; // measuring sigmas that a panel near an edge spans at most
constexpr double densityStep = 2.5;

/// Rounding: what a panel's value can be off by, relative to it, at arguments of that size.
double roundingOf(double z, double u) {
    return 6e-15 + 5e-16 * (z * z + u * u);
}

/// What is integrated along a walk from a start: the density times the probability of a measurement beyond
/// `near` (seen in the walk's direction it lies behind) and, if that is limited, not beyond `far`.
struct Walk {
    const BiasShape& shape;
    double startU;
    int direction; // +1 towards larger u
    double nearZ;  // (near edge - x) / sm in the walk's direction at the start
    double farZ;   // the same of the far edge; minus infinite: none
    double zError; // rounding of nearZ

    double startX = shape.x(startU);
    // Of a zone that is thin against the measurement no more is known than the difference at its edges holds.
    double wanted = std::max(wantedSpread, resolution / (nearZ - farZ));

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
        if (farZ != -infinity) {
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
        if (shape.kind == Distribution::Uniform) return infinity;
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
        return step < at ? -std::log1p(-step / at) / shape.logSigma : infinity;
    }
};

/// A panel, halved where the two rules do not agree well enough for the sum.
void addPanel(const Walk& walk, double from, double to, BoundedFigure& sum, int depth) {
    const PanelSum panel = integratePanel(from, to, walk);
    if (panel.spread > walk.wanted * (sum.value + panel.value) && depth < halvings) {
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
        panel.spread + panel.value * ((walk.wanted > wantedSpread ? walk.wanted : 0) +
                                      roundingOf(z, std::min(u, 40.0)) + (z > 0 ? walk.zError * (z + 1) : 0));
}

/// All of a walk in one panel up to the distance that is given, which is 0 where there is none that would do.
double addWidePanel(const Walk& walk, double length, BoundedFigure& sum) {
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

/// Sums the walk up to `length` (in u, may be infinity), or until what remains counts no more.
BoundedFigure integrate(const Walk& walk, double length) {
    const BiasShape& shape = walk.shape;
    BoundedFigure sum;
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

/// A walk from a start towards larger (1) or smaller u; the edges are those behind which, seen from the walk,
/// the probability ends.
Walk walkFrom(const BiasShape& s, double startU, int direction, double nearX, double farX) {
    // Measuring sigmas beyond the near edge; less than 1e-17 of what that lets by.
    constexpr double lost = 9;
    const double x = s.x(startU);
    const double rounding = 4e-16 * (std::fabs(nearX) + std::fabs(x)) / s.sm;
    const double nearZ = direction * (nearX - x) / s.sm, farZ = direction * (farX - x) / s.sm;
    return {.shape = s,
            .startU = startU,
            .direction = direction,
            .nearZ = nearZ,
            .farZ = std::isfinite(farX) && farZ > std::min(nearZ, 0.0) - lost ? farZ : -infinity,
            .zError = nearX == x || !std::isfinite(nearX) ? 0 : rounding};
}

} // namespace

BoundedFigure regionContent(const BiasShape& shape, const RegionWalk& walk, const MeasuredWithin& edges) {
    return integrate(walkFrom(shape, walk.startU, walk.direction, edges.near, edges.far), walk.length);
}

} // namespace metrisk
