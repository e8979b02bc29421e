#include "selfcheck/DecisionChecks.h"

#include "risk/decision/Coverage.h"
#include "risk/decision/Decide.h"
#include "risk/decision/Strategies.h"
#include "risk/decision/WorstCase.h"

namespace metrisk {

namespace {

template <class T>
const T& known(const Result<T>& result) {
    if (!result) throw Unknown{};
    return *result;
}

/// A tolerance about mode 0; one of its sides may be missing.
DecisionBasis basisOf(const Fields& inputs) {
    SubjectEntry subject{.pctInTol = fieldOr(inputs, "pct", 95)};
    const bool upper = inputs.contains("upper"), lower = inputs.contains("lower");
    subject.sides = upper && lower ? Sides::Two : upper ? Sides::Upper : Sides::Lower;
    subject.upperOffset = subject.upperLimit = fieldOr(inputs, "upper", 0);
    subject.lowerOffset = fieldOr(inputs, "lower", 0);
    subject.lowerLimit = -subject.lowerOffset;
    return known(decisionBasis(subject, field(inputs, "u"), 0));
}

DecisionRule ruleOf(const Fields& inputs) {
    const auto rule = decisionRuleOf(inputs.contains("rule") ? textField(inputs, "rule") : "simple");
    if (!rule) throw Unknown{};
    return *rule;
}

Computed decisionFigure(const std::string& figure, const Fields& inputs) {
    const DecisionBasis basis = basisOf(inputs);
    const DecisionRule rule = ruleOf(inputs);
    const RuleLimits limits = known(limitsOf(rule, basis));
    const double reading =
        inputs.contains("reading") ? field(inputs, "reading") : limits.acceptance.upper; // on the limit
    const Decision decision = known(decide(basis, reading, rule));
    if (figure == "conformance_probability") return {decision.conformance.conforming};
    if (figure == "risk_at_limit_pct" && passes(decision.verdict))
        return {100 * decision.conformance.nonconforming};
    throw Unknown{};
}

/// The guard band as a part of U that brings the worst parameter, which it was without, to a target.
double guardPartOfU(DecisionBasis basis, double worstPct, double target) {
    basis.subject.pctInTol = worstPct;
    basis.fit = fittedBias(basis.subject);
    basis.convention = Convention::Producer;
    const StrategyTargets targets{.falseAccept = target};
    return known(strategyRow(basis, Strategy::FalseAcceptTarget, targets)).width / basis.expanded();
}

Computed worstFigure(const std::string& figure, const Fields& inputs) {
    const DecisionBasis basis = basisOf(inputs);
    const WorstCase worst = known(worstCase(basis, Convention::Producer, wholeRange(basis)));
    if (figure == "worst_FA_producer_pct") return {100 * worst.falseAccept};
    if (figure == "worst_pct_in_tol") return {worst.pctInTol};
    if (figure == "M_pct_of_U95") return {100 * guardPartOfU(basis, worst.pctInTol, field(inputs, "target"))};
    throw Unknown{};
}

Computed strategyFigure(const std::string& figure, const Fields& inputs) {
    const auto strategy = strategyNamed(textField(inputs, "strategy"));
    if (!strategy) throw Unknown{};
    const StrategyRow row = known(strategyRow(basisOf(inputs), *strategy, {}));
    if (figure == "FA_producer") return {row.risks.producer};
    if (figure == "FR") return {row.risks.falseReject};
    if (figure == "multiplier" && row.upperMult) return {*row.upperMult};
    throw Unknown{};
}

} // namespace

std::optional<Computed> decisionCase(const std::string& group, const std::string& figure,
                                     const Fields& inputs) {
    if (group == "decision") return decisionFigure(figure, inputs);
    if (group == "worst") return worstFigure(figure, inputs);
    if (group == "strategy") return strategyFigure(figure, inputs);
    if (group == "coverage_2_sigma" && figure == "k")
        return Computed{known(coverageFactor({}, field(inputs, "dof")))};
    return std::nullopt;
}

} // namespace metrisk
