// What counts of passed and tested items say of a % in-tolerance.
#pragma once

#include "risk/decision/WorstCase.h"

#include <optional>
#include <string_view>

namespace metrisk {

/// Whole numbers as typed, not judged.
struct Counts {
    double passed;
    double tested;
    bool allPassed() const { return passed == tested; }
    bool nonePassed() const { return passed == 0; }
};

/// "19/20", blanks allowed around the numbers; none for a text that is no two whole numbers with a stroke.
std::optional<Counts> countsOf(std::string_view text);

/// More passed than tested, less than none, or none or more than 1e9 tested; none if they are counts.
std::optional<Refusal> refusedCounts(const Counts& counts);

struct ConfidenceChoice {
    double pct = 95;
    bool oneSided = false; // each limit at that confidence of its own
};

/// Percent.
struct CountedPct {
    double lower, upper;            // limits of Clopper and Pearson
    std::optional<double> estimate; // none where none or all passed: 100 % would mean a uniform parameter
    std::optional<double> median;   // where all passed: what is held with half the confidence
};

/// Refused as above, and for a confidence not between 0 and 100 %.
Result<CountedPct> countedPct(const Counts& counts, const ConfidenceChoice& confidence = {});

/// What an entry "x/n" of a % in-tolerance stands for: the estimate. Refused where none or all passed, for
/// which the text names the one-sided lower limit and the median.
Result<double> countsEntry(const Counts& counts);
/// The one-sided lower limit with 95 % confidence; percent.
Result<double> countsLowerEntry(const Counts& counts);

/// Risks at the limits and at the estimate, none where there is no fit; and the worst joint false accept risk
/// of any percentage between the limits, which may lie inside. Fractions.
struct CountedRisks {
    std::optional<GuardedRisks> atLower, atEstimate, atUpper;
    std::optional<double> worstProducer;
};

/// A normal parameter of exactly 100 % is taken as the limit of its family: nothing is out of tolerance, and
/// rejected is what the measurement rejects at the mode.
CountedRisks countedRisks(const DecisionBasis& basis, const CountedPct& pct);

/// The % in-tolerance of which this test accepts that percentage, false accepts and rejects included; none
/// where no fit does. Percent.
std::optional<double> truePctOf(const DecisionBasis& basis, double observedPct);

/// Whether counts contradict an assumed % in-tolerance; fractions.
struct CountsTest {
    double tailLow;   // P(X <= passed)
    double tailHigh;  // P(X >= passed)
    double twoSidedP; // twice the smaller one, at most 1
    double rejection; // 1 - that
    bool rejected() const { return rejection >= 0.95; }
};

/// `assumedPct` is a percentage from 0 to 100. Refused as above, and outside of it.
Result<CountsTest> testCounts(const Counts& counts, double assumedPct);

} // namespace metrisk
