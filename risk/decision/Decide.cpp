#include "risk/decision/Decide.h"

#include "base/SameNumber.h"
#include "risk/decision/Refused.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace metrisk {

namespace {

/// How near a limit a reading counts as on it: a few roundings of the numbers that both are made from.
double roundingAt(const DecisionBasis& basis, double reading) {
    const double mode = basis.subject.mode;
    double largest = std::max(std::fabs(reading), std::fabs(mode));
    if (basis.hasUpper()) largest = std::max(largest, std::fabs(mode + basis.subject.upperOffset));
    if (basis.hasLower()) largest = std::max(largest, std::fabs(mode - basis.subject.lowerOffset));
    return 4 * std::numeric_limits<double>::epsilon() * largest;
}

bool within(double deviation, const Interval& limits, double rounding) {
    return limits.lower <= limits.upper && deviation >= limits.lower - rounding &&
           deviation <= limits.upper + rounding;
}

/// Of 3 and 4 outcomes that are neither a pass nor a fail.
Verdict middleVerdict(const DecisionRule& rule, const DecisionBasis& basis, double deviation,
                      double rounding) {
    if (rule.outcomeCount() == 3) return Verdict::Undecided;
    return within(deviation, basis.tolerance(), rounding) ? Verdict::ConditionalPass
                                                          : Verdict::ConditionalFail;
}

Verdict verdictByLimits(const DecisionRule& rule, const RuleLimits& limits, const DecisionBasis& basis,
                        double deviation, double rounding) {
    if (rule.kind == RuleKind::LargestU && basis.sigma > rule.value && !sameDerived(basis.sigma, rule.value))
        return Verdict::NoDecision;
    if (rule.kind == RuleKind::LeastRatio && basis.ratio() < rule.value &&
        !sameDerived(basis.ratio(), rule.value))
        return Verdict::NoDecision;
    if (within(deviation, limits.acceptance, rounding)) return Verdict::Pass;
    if (!limits.rejection || !within(deviation, *limits.rejection, rounding)) return Verdict::Fail;
    return middleVerdict(rule, basis, deviation, rounding);
}

/// Whether a reading is on the limit of a conformance rule: so near that its rounding reaches the level.
bool onLevel(const DecisionRule& rule, const DecisionBasis& basis, const Decision& decision,
             const SubjectBias* prior, double rounding) {
    if (decision.conformance.conforming < rule.value - 10 * rounding / basis.sigma) return false;
    for (const double side : {-rounding, rounding}) {
        const auto near = conformanceAt(basis, decision.deviation + side, prior);
        if (near && near->conforming >= rule.value) return true;
    }
    return false;
}

Verdict verdictByLevel(const DecisionRule& rule, const DecisionBasis& basis, const Decision& decision,
                       const SubjectBias* prior, double rounding) {
    if (decision.conformance.conforming >= rule.value || onLevel(rule, basis, decision, prior, rounding))
        return Verdict::Pass;
    if (rule.outcomeCount() == 2 || decision.conformance.nonconforming >= rule.value) return Verdict::Fail;
    return middleVerdict(rule, basis, decision.deviation, rounding);
}

} // namespace

std::string_view textOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Pass: return "Pass";
    case Verdict::ConditionalPass: return "Conditional pass";
    case Verdict::Undecided: return "Undecided";
    case Verdict::NoDecision: return "No decision";
    case Verdict::ConditionalFail: return "Conditional fail";
    case Verdict::Fail: break;
    }
    return "Fail";
}

bool passes(Verdict verdict) {
    return verdict == Verdict::Pass || verdict == Verdict::ConditionalPass;
}

bool fails(Verdict verdict) {
    return verdict == Verdict::Fail || verdict == Verdict::ConditionalFail;
}

std::optional<double> Decision::specificFalseAccept() const {
    return passes(verdict) ? std::optional(conformance.nonconforming) : std::nullopt;
}

std::optional<double> Decision::specificFalseReject() const {
    return fails(verdict) ? std::optional(conformance.conforming) : std::nullopt;
}

std::optional<Conformance> conformanceAt(const DecisionBasis& basis, double deviation,
                                         const SubjectBias* prior) {
    if (!prior) return conformanceOf(basis, deviation);
    return conformanceWithPrior(deviation - (prior->mode - basis.subject.mode), *prior, basis.sigma,
                                basis.degFreedom);
}

Result<Decision> decide(const DecisionBasis& basis, double reading, const DecisionRule& rule,
                        const SubjectBias* prior) {
    if (!std::isfinite(reading)) return refusedFigure(decisionTitle, "The reading is not a number.");
    if (const auto refusal = refusedRule(rule)) return *refusal;
    Decision decision{
        .verdict = Verdict::Fail, .conformance = {}, .limits = {}, .deviation = reading - basis.subject.mode};
    const auto conformance = conformanceAt(basis, decision.deviation, prior);
    if (!conformance) return noFigureOf(decisionTitle, "The population has no spread to be a prior.");
    decision.conformance = *conformance;
    const double rounding = roundingAt(basis, reading);
    if (rule.kind == RuleKind::Conformance) {
        decision.verdict = verdictByLevel(rule, basis, decision, prior, rounding);
        return decision;
    }
    const auto limits = limitsOf(rule, basis);
    if (!limits) return limits.refusal();
    decision.limits = *limits;
    decision.verdict = verdictByLimits(rule, *limits, basis, decision.deviation, rounding);
    return decision;
}

} // namespace metrisk
