#include "numerics/BracketedMaximum.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Decide.h"
#include "risk/decision/Refused.h"
#include "risk/decision/ShownFigures.h"

#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr int doublings = 23; // of a measuring sigma, to where a probability has settled

class Limits {
  public:
    Limits(const DecisionBasis& basis, double level, const SubjectBias* prior)
        : basis_(basis), level_(level), prior_(prior) {}

    /// Above 0 where a reading passes; in logarithms of the smaller probability, so that a level near 1 is
    /// met as sharply as one near 0.
    double excess(double deviation) const {
        const auto c = conformanceAt(basis_, deviation, prior_);
        if (!c) return std::nan("");
        return level_ > 0.5 ? std::log((1 - level_) / c->nonconforming) : std::log(c->conforming / level_);
    }

    /// The reading of the largest probability.
    double best() const {
        const Interval t = basis_.tolerance();
        const double width = basis_.halfWidth(), sigma = basis_.sigma;
        if (!basis_.twoSided()) {
            // Away from the limit it grows all the way, but far readings of a wide likelihood tell nothing.
            const double far = presentLimit(t) + (basis_.hasUpper() ? -1 : 1) * (40 * sigma + width);
            if (!prior_ || !(basis_.degFreedom > 0)) return far;
            return highest(far, presentLimit(t));
        }
        if (!prior_) return (t.lower + t.upper) / 2;
        // A prior draws readings inwards: they may lie as far outside.
        const double pull = sigma / prior_->sigma;
        const double reach = 10 * sigma + width * std::fmin(pull * pull, 1e6);
        const double found = highest(t.lower - reach, t.upper + reach);
        // Far readings with a wide likelihood tell nothing, so that there the prior alone may be the most
        // probable.
        const double centre = (t.lower + t.upper) / 2;
        return excess(centre) >= std::fmin(excess(found), 0) ? centre : found;
    }

    /// From a reading that passes towards one side; infinite where all pass.
    double from(double start, double direction) const {
        CurvePoint inner{start, excess(start)};
        double step = basis_.sigma;
        for (int i = 0; i < doublings; ++i, step *= 2) {
            const double x = start + direction * step;
            const CurvePoint outer{x, excess(x)};
            if (std::isnan(outer.y)) break;
            if (outer.y < 0)
                return bracketedRoot([this](double at) { return excess(at); }, inner, outer,
                                     1e-14 * basis_.sigma);
            inner = outer;
        }
        return direction * infinite;
    }

  private:
    double presentLimit(const Interval& t) const { return basis_.hasUpper() ? t.upper : t.lower; }
    double highest(double a, double b) const {
        return bracketedMaximum([this](double x) { return excess(x); }, std::fmin(a, b), std::fmax(a, b),
                                1e-9 * basis_.sigma)
            .x;
    }

    const DecisionBasis& basis_;
    double level_;
    const SubjectBias* prior_;
};

} // namespace

Result<Interval> conformanceLimits(const DecisionBasis& basis, double level, const SubjectBias* prior) {
    if (const auto refusal = refusedRule({.kind = RuleKind::Conformance, .value = level})) return *refusal;
    const Limits limits(basis, level, prior);
    const double best = limits.best();
    if (!(limits.excess(best) >= 0)) {
        const auto c = conformanceAt(basis, best, prior);
        return noFigureOf(decisionTitle,
                          "No reading can pass: even in the middle of the limits the probability is only " +
                              shownPercent(c ? *c : Conformance{0, 1}, level) + ".");
    }
    return Interval{basis.hasLower() ? limits.from(best, -1) : -infinite,
                    basis.hasUpper() ? limits.from(best, 1) : infinite};
}

} // namespace metrisk
