// Risks of the reference case: normal parameters, symmetric limits, a stated accuracy ratio.
#pragma once

#include "risk/RiskModel.h"

#include <optional>

namespace metrisk {

struct Session;

/// What is said of a ratio or a percentage that the reference case does not allow.
inline constexpr const char* ratioTooLowText = "Accuracy Ratio Entry must be greater than Zero";
inline constexpr const char* pctRangeText = "Must be between 0.0001% and 99.9999%.";

/// Both in-tolerance figures are fractions strictly between 0 and 1.
struct BaselineCase {
    double ratio; // accuracy ratio
    double subjectInTol;
    double measuringInTol;
};

/// The risks under the record's false accept option, never negative. None for a figure out of range, without
/// a word, and after a failure, which is told. AbortFlag is left clear.
std::optional<Risks> ComputeBaselineRisks(Session& session, const BaselineCase& baseline);

/// The reference model at fixed in-tolerance figures, for one ratio after another.
class BaselineModel {
  public:
    /// Fractions strictly between 0 and 1. Raises RuntimeFault of the kind Argument otherwise.
    BaselineModel(double subjectInTol, double measuringInTol);

    /// Raises RuntimeFault on a numeric fault.
    Probabilities at(double ratio) const;

    double inTolerance() const { return inTolerance_; }

  private:
    double zSubject_;
    double zMeasuring_;
    double inTolerance_;
};

} // namespace metrisk
