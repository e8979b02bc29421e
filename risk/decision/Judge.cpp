#include "risk/decision/Judge.h"

#include "risk/decision/Refused.h"

namespace metrisk {

namespace {

constexpr const char* uniformText =
    "The subject is taken to be 100 % in tolerance; a reading cannot change that.";
constexpr const char* passedOutsideText = "The reading lies outside the limits; it passes by the population.";
constexpr const char* crossedText = "No reading can pass: the acceptance limits have crossed.";

} // namespace

Result<Judge> Judge::of(const DecisionBasis& basis, const DecisionRule& rule,
                        std::optional<DecisionPrior> prior, DecisionTexts texts) {
    if (const auto refusal = refusedRule(rule)) return *refusal;
    Judge judge(basis, rule, std::move(prior), std::move(texts));
    const SubjectBias* population = judge.prior_ ? &judge.prior_->subject : nullptr;
    if (population && population->distribution == Distribution::Uniform)
        judge.notes_.emplace_back(uniformText);
    if (rule.kind == RuleKind::Conformance) {
        const auto limits = conformanceLimits(basis, rule.value, population);
        if (limits)
            judge.acceptance_ = *limits;
        else
            judge.notes_.push_back(limits.refusal().text);
        return judge;
    }
    const auto limits = limitsOf(rule, basis);
    if (!limits) return limits.refusal();
    if (limits->nothingPasses())
        judge.notes_.emplace_back(crossedText);
    else
        judge.acceptance_ = limits->acceptance;
    return judge;
}

Result<Judgement> Judge::judge(double reading) const {
    const DecisionPrior* named = prior_ ? &*prior_ : nullptr;
    const auto decision = decide(basis_, reading, rule_, population());
    if (!decision) return decision.refusal();
    Judgement judgement{
        *decision, acceptance_, shownConformance(*decision, rule_, named, texts_.regional), {}, {}};
    judgement.sentence = decisionSentence(basis_, reading, rule_, *decision, acceptance_, named, texts_);
    const Interval tolerance = basis_.tolerance();
    const bool outside = decision->deviation < tolerance.lower || decision->deviation > tolerance.upper;
    if (prior_ && outside && rule_.kind == RuleKind::Conformance && passes(decision->verdict))
        judgement.note = passedOutsideText;
    return judgement;
}

Result<Judge> judgeOf(const Analysis& record, const Regional& regional, const DecisionRequest& request) {
    const auto basis = decisionBasis(record, regional, request.coverage);
    if (!basis) return basis.refusal();
    std::optional<DecisionPrior> prior;
    if (request.withPrior) {
        const auto population = populationPrior(*basis);
        if (!population) return population.refusal();
        prior = *population;
    }
    return Judge::of(*basis, request.rule, std::move(prior),
                     decisionTexts(record, regional, basis->expanded()));
}

} // namespace metrisk
