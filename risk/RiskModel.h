// The probabilities of a test as values, and the risks made of them.
#pragma once

#include "numerics/Distribution.h"

#include <optional>

namespace metrisk {

/// Fractions.
struct Probabilities {
    double joint;       // in tolerance and accepted
    double accepted;    // 0 where the joint probability is not above 0
    double inTolerance; // of the fit, whatever the acceptance limits
};

/// Fractions; by rounding they may be slightly negative.
struct Risks {
    double falseAccept;
    double falseReject;
};

/// 1 - J/A for the Consumer (option 0: the risk that an accepted item is out of tolerance), A - J for the
/// Producer (option 1: the risk of being out of tolerance and accepted), with J the joint probability and A
/// that of being accepted. Raises RuntimeFault when there is none.
double falseAcceptOf(const Probabilities& p, int falseAcceptOption);
/// I - |J|, I being the in-tolerance probability: the risk of being in tolerance and rejected.
double falseRejectOf(const Probabilities& p);
Risks risksOf(const Probabilities& p, int falseAcceptOption);

/// Acceptance limits as deviations from the subject parameter's mode, in nominal units, so that a large mode
/// does not round them. An absent side's limit is not read.
struct AcceptanceRange {
    double lower;
    double upper;
};

/// A fitted subject parameter measured with a normal error.
class RiskModel {
  public:
    /// `mteSigma` in nominal units.
    RiskModel(const SubjectBias& subject, double mteSigma) : su_(subject), mteSigma_(mteSigma) {}

    /// None when a spread is 0: there is no scale to compute with. A uniform parameter counts as never
    /// accepted out of tolerance. Raises RuntimeFault on a numeric fault.
    std::optional<Probabilities> at(AcceptanceRange range) const;

  private:
    SubjectBias su_;
    double mteSigma_;
};

/// The in-tolerance probability of the fitted subject parameter, a fraction. Raises RuntimeFault.
double inTolerance(const SubjectBias& subject);

} // namespace metrisk
