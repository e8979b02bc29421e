#include "risk/decision/Strategies.h"

#include "base/SameNumber.h"
#include "risk/decision/DecisionRule.h"
#include "risk/decision/GuardbandWidth.h"
#include "risk/decision/Refused.h"
#include "risk/decision/WorstCase.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

constexpr double lowest = -std::numeric_limits<double>::infinity();
constexpr const char* strategyTitle = "Guardband Strategy";
constexpr const char* notReachableText = "No guardband reaches it.";
constexpr const char* uniformText = "The subject parameter is taken to be 100 % in tolerance.";
constexpr double wantedRatio = 4; // the ratio from which tests have been taken without guard bands

struct Name {
    Strategy strategy;
    std::string_view text;
};
constexpr std::array<Name, allStrategies.size()> names{{{Strategy::None, "none"},
                                                        {Strategy::Rss, "rss"},
                                                        {Strategy::ManagedRisk, "m6"},
                                                        {Strategy::InverseRatio, "1-1/TUR"},
                                                        {Strategy::FourLessInverse, "1.25-1/TUR"},
                                                        {Strategy::SameAsFourToOne, "4:1"},
                                                        {Strategy::ExpandedUncertainty, "w=U"},
                                                        {Strategy::FalseAcceptTarget, "fa"},
                                                        {Strategy::FalseRejectTarget, "fr"},
                                                        {Strategy::Equalised, "equal"},
                                                        {Strategy::WorstCaseTarget, "worst"}}};

Refusal none(std::string text) {
    return noFigureOf(strategyTitle, std::move(text));
}

/// A ratio of 4 that was reached through rounding is one of 4.
bool atLeastFour(double ratio) {
    return ratio >= wantedRatio || sameDerived(ratio, wantedRatio);
}

class Widths {
  public:
    Widths(const DecisionBasis& basis, const SubjectBias& fit, const StrategyTargets& targets)
        : basis_(basis), fit_(fit), targets_(targets) {}

    Result<double> of(Strategy strategy) const {
        const double d = basis_.halfWidth(), expanded = basis_.expanded(), ratio = basis_.ratio();
        switch (strategy) {
        case Strategy::None: return 0.0;
        case Strategy::Rss:
            if (!(ratio > 1)) return none("The ratio of tolerance to U must be above 1 for this rule.");
            return rssWidth(basis_);
        case Strategy::ManagedRisk: return managedWidth(basis_);
        case Strategy::InverseRatio: return atLeastFour(ratio) ? 0.0 : expanded;
        case Strategy::FourLessInverse:
            return atLeastFour(ratio) ? 0.0 : std::max(0.0, expanded - d / wantedRatio);
        case Strategy::ExpandedUncertainty: return expanded;
        case Strategy::SameAsFourToOne: return sameAsFourToOne();
        case Strategy::FalseAcceptTarget: return forFalseAccept(targets_.falseAccept);
        case Strategy::FalseRejectTarget: return forFalseReject();
        case Strategy::Equalised: return equalised();
        case Strategy::WorstCaseTarget: break;
        }
        return leastGuardband(basis_, targets_.worstConvention, targets_.worst, wholeRange(basis_));
    }

  private:
    std::optional<GuardedRisks> at(double width) const {
        return guardedRisks(fit_, basis_.sigma, basis_.narrowed(width, width));
    }

    Result<double> sameAsFourToOne() const {
        if (atLeastFour(basis_.ratio())) return 0.0;
        const double sigma = basis_.halfWidth() / (wantedRatio * basis_.coverage);
        const auto risks = guardedRisks(fit_, sigma, basis_.tolerance());
        if (!risks) return none(nothingAcceptedText);
        return forFalseAccept(risks->falseAccept(basis_.convention));
    }

    /// Never outside the tolerance.
    Result<double> forFalseAccept(double target) const {
        const auto excess = [&](double width) {
            const auto risks = at(width);
            return risks ? std::log(risks->falseAccept(basis_.convention) / target) : lowest;
        };
        if (!(excess(0) > 0)) return 0.0;
        return found(excess, false);
    }

    Result<double> forFalseReject() const {
        if (!targets_.falseReject) return none("Needs a target of the false reject risk.");
        return found(
            [&](double width) {
                const auto risks = at(width);
                return risks ? std::log(*targets_.falseReject / risks->falseReject) : lowest;
            },
            true);
    }

    Result<double> equalised() const {
        if (fit_.distribution == Distribution::Uniform) return none(uniformText);
        return found(
            [&](double width) {
                const auto risks = at(width);
                return risks ? std::log(risks->falseAccept(basis_.convention) / risks->falseReject) : lowest;
            },
            true);
    }

    Result<double> found(FunctionRef<double(double)> excess, bool widen) const {
        const auto width = widthWhere(basis_, excess, 0, widen);
        if (!width) return none(notReachableText);
        return *width;
    }

    const DecisionBasis& basis_;
    const SubjectBias& fit_;
    const StrategyTargets& targets_;
};

bool byRatio(Strategy strategy) {
    switch (strategy) {
    case Strategy::Rss:
    case Strategy::ManagedRisk:
    case Strategy::InverseRatio:
    case Strategy::FourLessInverse: return true;
    default: return false;
    }
}

std::vector<StrategyNote> notesOf(const DecisionBasis& basis, Strategy strategy, double width) {
    std::vector<StrategyNote> notes;
    const bool byTarget = strategy == Strategy::FalseAcceptTarget || strategy == Strategy::WorstCaseTarget;
    if (width == 0 && byTarget) notes.push_back(StrategyNote::MetWithout);
    if (width == 0 && (byRatio(strategy) || strategy == Strategy::SameAsFourToOne))
        notes.push_back(StrategyNote::NotNeeded);
    if (width < 0) notes.push_back(StrategyNote::Wider);
    if (!basis.twoSided() && byRatio(strategy)) notes.push_back(StrategyNote::ForTwoSided);
    if (!basis.twoSided() && width > basis.halfWidth()) notes.push_back(StrategyNote::BeyondMode);
    if (strategy == Strategy::FalseAcceptTarget && basis.convention == Convention::Consumer)
        notes.push_back(StrategyNote::JointByDefinition);
    return notes;
}

bool isFraction(double target) {
    return target > 0 && target < 1;
}

} // namespace

std::string_view nameOf(Strategy strategy) {
    return std::ranges::find(names, strategy, &Name::strategy)->text;
}

std::optional<Strategy> strategyNamed(std::string_view name) {
    const auto found = std::ranges::find(names, name, &Name::text);
    return found == names.end() ? std::nullopt : std::optional(found->strategy);
}

std::string_view textOf(StrategyNote note) {
    switch (note) {
    case StrategyNote::NotNeeded: return "not needed";
    case StrategyNote::MetWithout: return "met without";
    case StrategyNote::Wider: return "wider than the tolerance";
    case StrategyNote::ForTwoSided: return "derived for two-sided tolerances";
    case StrategyNote::BeyondMode: return "beyond the mode";
    case StrategyNote::JointByDefinition: break;
    }
    return "conditional; Z540.3 means the joint risk";
}

std::optional<Refusal> refusedTargets(const StrategyTargets& targets) {
    for (const double target : {targets.falseAccept, targets.falseReject.value_or(0.5), targets.worst})
        if (!isFraction(target))
            return refusedFigure(strategyTitle, "A target must be above 0 and below 100 %.");
    return std::nullopt;
}

Result<StrategyRow> strategyRow(const DecisionBasis& basis, Strategy strategy,
                                const StrategyTargets& targets) {
    if (!basis.fit) return basis.fit.refusal();
    if (const auto refusal = refusedTargets(targets)) return *refusal;
    const auto width = Widths(basis, *basis.fit, targets).of(strategy);
    if (!width) return width.refusal();
    const Interval limits = basis.narrowed(*width, *width);
    const auto risks = guardedRisks(*basis.fit, basis.sigma, limits);
    if (!risks) return none(nothingAcceptedText);
    const auto multiplier = [&](bool there, double offset) {
        return there && offset > 0 ? std::optional(1 - *width / offset) : std::nullopt;
    };
    return StrategyRow{.strategy = strategy,
                       .width = *width,
                       .testLimits = limits,
                       .upperMult = multiplier(basis.hasUpper(), basis.subject.upperOffset),
                       .lowerMult = multiplier(basis.hasLower(), basis.subject.lowerOffset),
                       .risks = *risks,
                       .notes = notesOf(basis, strategy, *width)};
}

} // namespace metrisk
