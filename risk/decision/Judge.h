// Readings of one analysis judged by one rule, each with its probability and its sentence.
#pragma once

#include "risk/decision/DecisionSentence.h"
#include "risk/decision/RecordDecision.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct Judgement {
    Decision decision;
    std::optional<Interval> acceptance; // deviations from the mode; none where no reading can pass
    std::string conformance;            // the probability as it is shown
    std::string sentence;
    std::string note; // on a verdict that the probability alone would surprise with; empty for most
};

class Judge {
  public:
    /// Refused for a rule that is none, and one without limits here.
    static Result<Judge> of(const DecisionBasis& basis, const DecisionRule& rule,
                            std::optional<DecisionPrior> prior, DecisionTexts texts);

    /// `reading` in nominal units. Refused for one that is no number, and for a prior without a spread.
    Result<Judgement> judge(double reading) const;

    const DecisionBasis& basis() const { return basis_; }
    const DecisionRule& rule() const { return rule_; }
    const DecisionTexts& texts() const { return texts_; }
    bool hasPrior() const { return prior_.has_value(); }
    const SubjectBias* population() const { return prior_ ? &prior_->subject : nullptr; }
    /// The acceptance limits of the rule, whatever is read; none where no reading can pass.
    const std::optional<Interval>& acceptance() const { return acceptance_; }
    /// What holds for every reading: that none can pass, that none changes anything.
    const std::vector<std::string>& notes() const { return notes_; }

  private:
    Judge(const DecisionBasis& basis, const DecisionRule& rule, std::optional<DecisionPrior> prior,
          DecisionTexts texts)
        : basis_(basis), rule_(rule), prior_(std::move(prior)), texts_(std::move(texts)) {}

    DecisionBasis basis_;
    DecisionRule rule_;
    std::optional<DecisionPrior> prior_;
    DecisionTexts texts_;
    std::optional<Interval> acceptance_{};
    std::vector<std::string> notes_{};
};

/// A reading of a record, and how it is to be judged.
struct DecisionRequest {
    double reading = 0; // nominal units
    DecisionRule rule{};
    bool withPrior = false; // the population of the subject parameter
    CoverageChoice coverage{};
};

/// What judges it by the present entries of the record.
Result<Judge> judgeOf(const Analysis& record, const Regional& regional, const DecisionRequest& request);

} // namespace metrisk
