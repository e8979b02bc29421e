// The test of an analysis in parts, each of which can be given another value: quietly, from several threads.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"
#include "risk/RiskModel.h"
#include "risk/exact/ExactRisks.h"
#include "uncertainty/Budget.h"

#include <optional>

namespace metrisk {

class RiskParts {
  public:
    /// Both parameters have been fitted; nothing of the record is kept but copies.
    RiskParts(const Analysis& record, const Regional& regional);

    // As the analysis has them.
    const SubjectBias& subject() const { return fitted_; }
    double mteSigma() const { return mteSigma_; } // nominal units

    /// The subject parameter with another % in-tolerance (percent). None where it has no distribution, and
    /// for a single-sided normal one below 51 %, whose sigma grows past all bounds at 50 %.
    std::optional<SubjectBias> subjectAt(double pctInTol) const;

    /// Measuring tolerance over standard uncertainty at another % in-tolerance; 0 if there is none.
    double coverageFactorAt(double pctInTol) const;
    /// Measuring sigma of a tolerance and its factor, with the process errors if asked for; nominal units, 0
    /// if there is none.
    double mteSigmaOf(double offset, double coverageFactor, bool withProcess) const;

    /// The risks with test limits at these multipliers of the tolerance offsets; one that rounding made
    /// negative is 0. None without a measuring sigma, and where a probability is not above 0 or a risk is
    /// negative.
    std::optional<Risks> risks(const SubjectBias& subject, double mteSigma, double lowerMultiplier,
                               double upperMultiplier) const;

    /// The same by exact integration: also where the published figure is lost in rounding. None without a
    /// measuring sigma, and where nothing is accepted.
    std::optional<Risks> exactRisks(const SubjectBias& subject, double mteSigma, double lowerMultiplier,
                                    double upperMultiplier) const;

  private:
    AcceptanceRange rangeOf(double lowerMultiplier, double upperMultiplier) const;

    SubjectParameter subject_; // without its texts: copying it allocates nothing
    SubjectBias fitted_;
    double mteSigma_;
    double mteDegFreedom_;
    std::optional<Budget> process_; // none if they overflow
    int falseAcceptOption_;
};

/// Risks that rounding has made negative are 0; none where they are further below it.
std::optional<Risks> quietRisks(Risks risks);
/// Those of these probabilities, or of exact integration, by the same rules.
std::optional<Risks> quietRisks(const Probabilities& p, int falseAcceptOption);
std::optional<Risks> quietRisks(const ExactRisks& exact, int falseAcceptOption);

} // namespace metrisk
