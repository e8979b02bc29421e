// The largest false accept risk over an unknown % in-tolerance, and the guard band that limits it.
#pragma once

#include "risk/decision/GuardedRisks.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace metrisk {

/// Percent, 0 < from < to < 100.
struct PctRange {
    double from;
    double to;
};

/// 1 to 99.9 %; of a single-sided normal parameter from 50.001 %, below which it has no fit.
PctRange wholeRange(const DecisionBasis& basis);

struct WorstCase {
    double falseAccept;  // fraction
    double pctInTol;     // where; percent, to 1e-4
    bool atEndOfRange;   // also at the end of the fits
    GuardedRisks risks;  // there
    std::size_t skipped; // places of the scan without a fit
};

/// The analysis with its % in-tolerance varied; measurement, mode, limits and physical limit as they are.
/// Keeps its fits, so that it can be asked for any test limits. The basis must outlive it.
class WorstCaseSearch {
  public:
    WorstCaseSearch(const DecisionBasis& basis, PctRange range);

    /// The joint false accept risk has its maximum within the range; the conditional one of a two-sided
    /// normal parameter grows to its lower end. The value to 1e-10. None where no fit has a risk.
    std::optional<WorstCase> worst(const Interval& testLimits, Convention convention) const;

    /// The largest one near a place, without a scan of the range.
    std::optional<WorstCase> worstNear(double pctInTol, const Interval& testLimits,
                                       Convention convention) const;

    /// The risk with the subject parameter fitted to that percentage; none without a fit.
    std::optional<GuardedRisks> at(double pctInTol, const Interval& testLimits) const;

  private:
    struct Place {
        double logit; // ln(p/(1 - p))
        double pct;
        std::optional<SubjectBias> fit;
    };
    std::optional<SubjectBias> fitAt(double pct) const;
    double pctAt(double logit) const;
    double valueAt(double logit, const Interval& testLimits, Convention convention) const;
    WorstCase between(double from, double to, const Interval& testLimits, Convention convention) const;

    const DecisionBasis& basis_;
    PctRange range_;
    std::vector<Place> places_;
};

/// With the test limits of the analysis. Refused for a range that is none, and where nothing in it has a fit.
Result<WorstCase> worstCase(const DecisionBasis& basis, Convention convention, PctRange range);

/// The smallest width, not below 0, of a guard band on every side with which the worst risk is at most the
/// target, a fraction; nominal units, to 1e-12 of d. Refused where no width keeps it so low.
Result<double> leastGuardband(const DecisionBasis& basis, Convention convention, double target,
                              PctRange range);

} // namespace metrisk
