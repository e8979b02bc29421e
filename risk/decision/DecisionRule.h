// The decision rules for a reading: what each is made of, its text and its limits.
#pragma once

#include "risk/decision/DecisionBasis.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

enum class RuleKind {
    Simple,      // no guard band (JCGM 106 8.2; ILAC-G8 binary simple acceptance)
    LargestU,    // the same, no decision above an agreed standard uncertainty (JCGM 106 8.2)
    LeastRatio,  // the same, no decision below an agreed ratio d/U (ASME B89.7.3.1)
    Guard,       // a guard band of so many U (ILAC-G8, JCGM 106 8.3)
    Iso14253,    // one that leaves 5 % at the limit (ISO 14253-1:2017)
    Rss,         // d - sqrt(d^2 - U^2)
    ManagedRisk, // M6: U (1.04 - exp(0.38 ln(d/U) - 0.54)), not below 0 (M. Dobbert, NCSLI 2008)
    Analysis,    // the test limits of the analysis
    Conformance  // a least conformance probability (JCGM 106 7 and 8)
};

struct DecisionRule {
    RuleKind kind = RuleKind::Simple;
    double value = 0;               // umax in nominal units; ratio; multiple of U; level, a fraction
    std::optional<double> reject{}; // Guard: the multiple of U for rejection, where it is another one
    std::optional<int> outcomes{};  // 2, 3 or 4; none: 3 for Iso14253, else 2

    int outcomeCount() const { return outcomes.value_or(kind == RuleKind::Iso14253 ? 3 : 2); }
};

/// "simple", "umax=0.1", "ratio=4", "ratio=4:1", "guard=0.83", "w=U", "w=0.83U", "iso14253", "rss", "m6",
/// "analysis", "pc=0.95", "pc=95%": without the sign the level is a fraction. None for any other text. Sizes
/// are judged by the rule's limits.
std::optional<DecisionRule> decisionRuleOf(std::string_view text);

/// "guard=0.83": what decisionRuleOf reads back, without `reject` and outcomes.
std::string textOf(const DecisionRule& rule);

/// Deviations from the mode in nominal units; absent sides are infinite.
struct RuleLimits {
    Interval acceptance;               // crossed where nothing passes
    std::optional<Interval> rejection; // fails strictly beyond it; with 3 and 4 outcomes only
    std::optional<double> width;       // of the guard band, nominal units, positive inwards; not of Analysis
    bool nothingPasses() const { return acceptance.lower > acceptance.upper; }
};

/// Of any rule but Conformance, whose limits take a search. Refused for parameters out of range, outcomes
/// that the rule does not have, and for Rss with d <= U.
Result<RuleLimits> limitsOf(const DecisionRule& rule, const DecisionBasis& basis);

/// The guard bands by ratio, as widths in nominal units. Rss: 0 or less of `ratio - 1` has none.
double rssWidth(const DecisionBasis& basis);
double managedWidth(const DecisionBasis& basis);

/// Why a rule of these outcomes and parameters is none; none if it is.
std::optional<Refusal> refusedRule(const DecisionRule& rule);

} // namespace metrisk
