// The risks of a fitted test at its acceptance limits, by both conventions, or why there are none: the one
// rule for all who compute without a user.
#pragma once

#include "base/Refusal.h"
#include "risk/RiskModel.h"
#include "risk/TestEntries.h"

namespace metrisk {

/// Fractions.
struct TestRisks {
    Probabilities probabilities{};
    Risks consumer{}, producer{}; // as computed: by rounding they may be slightly negative

    const Risks& by(Convention convention) const {
        return convention == Convention::Producer ? producer : consumer;
    }
    /// Of a FalseAcceptOption.
    const Risks& by(int falseAcceptOption) const { return falseAcceptOption == 1 ? producer : consumer; }
};

/// `mteSigma` in nominal units. Of kind NoAnswer, in the words of a compute, where a spread is 0, the limits
/// have crossed or nothing passes them; Arithmetic for a numeric fault. Raises nothing.
Result<TestRisks> risksAt(const SubjectBias& subject, double mteSigma, AcceptanceRange range);

} // namespace metrisk
