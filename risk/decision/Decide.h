// The verdict of a rule on a reading.
#pragma once

#include "risk/decision/Conformance.h"
#include "risk/decision/DecisionRule.h"

#include <optional>
#include <string_view>

namespace metrisk {

enum class Verdict { Pass, ConditionalPass, Undecided, NoDecision, ConditionalFail, Fail };

/// "Pass", "Conditional pass", "Undecided", "No decision", "Conditional fail", "Fail".
std::string_view textOf(Verdict verdict);
bool passes(Verdict verdict); // conditionally too
bool fails(Verdict verdict);

struct Decision {
    Verdict verdict;
    Conformance conformance;          // with the prior, where one is given
    std::optional<RuleLimits> limits; // not of a conformance rule: conformanceLimits has them
    double deviation;                 // of the reading from the mode, nominal units

    /// The risk of the verdict for this item (JCGM 106 9.3.2), fractions; of a verdict that it is none of
    /// none.
    std::optional<double> specificFalseAccept() const;
    std::optional<double> specificFalseReject() const;
};

/// `reading` is the measured value, corrected, in nominal units; one on a limit counts as inside. A prior
/// changes the probability, and the verdict of a conformance rule alone; its mode need not be that of the
/// basis. Refused for a rule without limits here, a reading that is no number, and a prior without a spread.
Result<Decision> decide(const DecisionBasis& basis, double reading, const DecisionRule& rule,
                        const SubjectBias* prior = nullptr);

/// The conformance probability of a reading that deviates so much from the mode, nominal units.
std::optional<Conformance> conformanceAt(const DecisionBasis& basis, double deviation,
                                         const SubjectBias* prior);

/// Where the conformance probability is the level, as deviations from the mode; a side on which it never
/// falls below it is infinite. Refused where it is below everywhere, and for a level not within 0 and 1.
Result<Interval> conformanceLimits(const DecisionBasis& basis, double level,
                                   const SubjectBias* prior = nullptr);

} // namespace metrisk
