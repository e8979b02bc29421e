// Guardband strategies side by side: the guard band that each rule gives, and its risks.
#pragma once

#include "risk/decision/GuardedRisks.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace metrisk {

enum class Strategy {
    None,
    Rss,                 // w = d - sqrt(d^2 - U^2)
    ManagedRisk,         // M6 (M. Dobbert, NCSLI 2008)
    InverseRatio,        // multiplier 1 - 1/r below a ratio r = d/U of 4, else 1
    FourLessInverse,     // multiplier 1.25 - 1/r, at most 1
    SameAsFourToOne,     // the false accept risk of r = 4 without guardband
    ExpandedUncertainty, // w = U
    FalseAcceptTarget,
    FalseRejectTarget, // only with a target
    Equalised,         // both risks equal
    WorstCaseTarget    // the worst false accept risk over an unknown % in-tolerance
};

inline constexpr std::array<Strategy, 11> allStrategies{Strategy::None,
                                                        Strategy::Rss,
                                                        Strategy::ManagedRisk,
                                                        Strategy::InverseRatio,
                                                        Strategy::FourLessInverse,
                                                        Strategy::SameAsFourToOne,
                                                        Strategy::ExpandedUncertainty,
                                                        Strategy::FalseAcceptTarget,
                                                        Strategy::FalseRejectTarget,
                                                        Strategy::Equalised,
                                                        Strategy::WorstCaseTarget};

/// "none", "rss", "m6", "1-1/TUR", "1.25-1/TUR", "4:1", "w=U", "fa", "fr", "equal", "worst".
std::string_view nameOf(Strategy strategy);
std::optional<Strategy> strategyNamed(std::string_view name);

/// Fractions. By their conventions: the false accept target by that of the basis, which 4:1 and the equalised
/// risks follow too; the worst case by its own.
struct StrategyTargets {
    double falseAccept = 0.02; // ANSI/NCSL Z540.3 5.3, joint there
    std::optional<double> falseReject{};
    double worst = 0.02;
    Convention worstConvention = Convention::Producer;
};

/// Refused unless each lies between 0 and 1.
std::optional<Refusal> refusedTargets(const StrategyTargets& targets);

/// What is said of a row beside its figures.
enum class StrategyNote {
    NotNeeded,        // the rule gives no guard band at this ratio
    MetWithout,       // the target is met without a guard band
    Wider,            // than the tolerance
    ForTwoSided,      // the formula was derived for two-sided tolerances
    BeyondMode,       // the guard band reaches beyond the mode
    JointByDefinition // the target is meant of the joint risk, the figure is the conditional one
};
std::string_view textOf(StrategyNote note);

struct StrategyRow {
    Strategy strategy;
    double width;                               // nominal units, the same on every side, positive inwards
    Interval testLimits;                        // deviations from the mode; absent sides are infinite
    std::optional<double> upperMult, lowerMult; // of the offsets that are there and not 0
    GuardedRisks risks;
    std::vector<StrategyNote> notes;
};

/// By the formulas of NCSLI RP-10 and the handbook of Z540.3, risks at the fit of the basis; solved widths to
/// 1e-12 of d. Refused where the rule gives no guard band that leaves anything accepted, and without a fit.
Result<StrategyRow> strategyRow(const DecisionBasis& basis, Strategy strategy,
                                const StrategyTargets& targets);

} // namespace metrisk
