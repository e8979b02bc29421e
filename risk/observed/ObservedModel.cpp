#include "risk/observed/ObservedModel.h"

#include "base/Real.h"
#include "numerics/BracketedRoot.h"
#include "record/Analysis.h"
#include "risk/FittedSubject.h"
#include "risk/RiskMessages.h"
#include "risk/SubjectFit.h"
#include "risk/TestRisks.h"
#include "risk/guardband/Bisection.h"
#include "risk/guardband/GuardbandSolver.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr int maxPasses = 1000;
constexpr int maxHalvings = 100;
constexpr double halvingEnd = 1e-12;

struct NoRisks {};

/// Nothing for a share at which the work ends without risks.
template <class Work>
auto unlessRefused(Work work) -> std::optional<decltype(work())> {
    try {
        return work();
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    } catch (const NoRisks&) {
    }
    return std::nullopt;
}

} // namespace

ObservedModel::ObservedModel(const Analysis& r, GuardbandUse use, const Regional& regional)
    : subject_(r), regional_(regional), mteSigma_(r.MTE_Sigma), falseAcceptOption_(r.FalseAcceptOption) {
    const bool guardbanded = use == GuardbandUse::Use;
    range_ = {-(guardbanded ? r.GB_LowerMult : 1) * r.SU_LowerOffset,
              (guardbanded ? r.GB_UpperMult : 1) * r.SU_UpperOffset};
}

SubjectParameter ObservedModel::fittedAt(double x) const {
    SubjectParameter entered = subject_;
    entered.SU_PctInTol = 100 * x;
    return fitSubject(entered, regional_);
}

Risks ObservedModel::risksAt(double x) const {
    const auto found = metrisk::risksAt(subjectBiasOf(fittedAt(x)), mteSigma_, range_);
    if (!found) throw NoRisks{};
    const Risks& risks = found->by(falseAcceptOption_);
    return {std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
}

std::optional<double> ObservedModel::observedAt(double x) const {
    if (x == 0) return 0;
    return unlessRefused([&] {
        const Risks risks = risksAt(x);
        const double observed = falseAcceptOption_ == 1 ? risks.falseAccept + x - risks.falseReject
                                                        : (x - risks.falseReject) / (1 - risks.falseAccept);
        return std::max(checked(observed), 0.0);
    });
}

std::optional<double> ObservedModel::trueAt(double observed, int decimals) const {
    const double stop = std::pow(10, -(std::max(decimals, 4) + 3));
    const auto next = [&](double x) {
        return unlessRefused([&] {
            const Risks risks = risksAt(x);
            return checked(falseAcceptOption_ == 1 ? observed - risks.falseAccept + risks.falseReject
                                                   : (1 - risks.falseAccept) * observed + risks.falseReject);
        });
    };
    double prior = observed;
    for (int pass = 0; pass < maxPasses; ++pass) {
        const std::optional<double> x = next(prior);
        if (!x) return std::nullopt;
        if (!(*x > 0 && *x < 1)) return bisected(observed, prior, *x > 0 ? 1 : 0);
        constexpr double spacings = 4 * std::numeric_limits<double>::epsilon();
        if (std::fabs(*x - prior) <= std::max(stop, spacings * *x)) return x;
        prior = *x;
    }
    return std::nullopt;
}

/// Between a share inside the range and its end, which itself has no fit.
std::optional<double> ObservedModel::bisected(double observed, double inside, double end) const {
    const auto excess = [&](double x) -> std::optional<double> {
        const std::optional<double> seen = observedAt(x);
        if (!seen) return std::nullopt;
        return *seen - observed;
    };
    const std::optional<double> start = excess(inside);
    const double nearEnd = end + (inside - end) * halvingEnd;
    const std::optional<double> last = excess(nearEnd);
    if (!start || !last || !(*start * *last <= 0)) return std::nullopt;
    double x = inside;
    double other = nearEnd;
    for (int i = 0; i < maxHalvings && std::fabs(other - x) > halvingEnd; ++i) {
        const double mid = (x + other) / 2;
        const std::optional<double> at = excess(mid);
        if (!at) return std::nullopt;
        (*at * *start > 0 ? x : other) = mid;
    }
    return x;
}

std::optional<BoundedFigure> ObservedModel::exactObservedAt(double x) const {
    if (x == 0) return BoundedFigure{};
    return unlessRefused([&] {
        const auto risks = exactRisks(subjectBiasOf(fittedAt(x)), mteSigma_, range_);
        if (!risks) throw NoRisks{};
        return risks->accepted;
    });
}

std::optional<double> ObservedModel::exactTrueAt(double observed, double near) const {
    const auto excess = [&](double x) {
        const auto seen = exactObservedAt(x);
        return seen ? seen->value - observed : std::nan("");
    };
    const CurvePoint start{near, excess(near)};
    if (std::isnan(start.y)) return std::nullopt;
    if (start.y == 0) return near;
    CurvePoint up = start, down = start;
    // Steps of the odds, so that shares near 1 are searched as finely as their rest.
    for (double step = 1e-6; step < 100; step *= 2)
        for (CurvePoint* end : {&down, &up}) {
            if (std::isnan(end->y)) continue;
            const double odds = end->x / (1 - end->x) * std::exp(end == &up ? step : -step);
            const CurvePoint next{odds / (1 + odds), excess(odds / (1 + odds))};
            if (!std::isnan(next.y) && (next.y < 0) != (start.y < 0))
                return bracketedRoot(excess, *end, next, 0);
            *end = next;
        }
    return std::nullopt;
}

double ObservedModel::equalizingMultiplier(double x) const {
    const double target = falseAcceptOption_ == 1 ? 1 : x;
    if (target == 0) throw SolveFailure{};
    try {
        return GuardbandSolver(fittedAt(x), mteSigma_, falseAcceptOption_).multiplierForObserved(target);
    } catch (const RuntimeFault&) {
        throw SolveFailure{noRisks.text};
    } catch (const FitRefusal&) {
        throw SolveFailure{noRisks.text};
    }
}

} // namespace metrisk
