// Risks of the reference case: normal parameters, symmetric limits, a stated accuracy ratio.
#pragma once

namespace metrisk {

struct Session;

/// What is said of a ratio or a percentage that the reference case does not allow.
inline constexpr const char* ratioTooLowText = "Accuracy Ratio Entry must be greater than Zero";
inline constexpr const char* pctRangeText = "Must be between 0.0001% and 99.9999%.";

/// `ratio` is the accuracy ratio, both in-tolerance figures are fractions strictly between 0 and 1.
/// The risks are fractions, under the record's false accept option, never negative. On a figure out of range
/// or a failure the outputs are unchanged and false is returned; a result of 0 probability shows a message
/// unless `quiet`. AbortFlag is left clear.
bool ComputeBaselineRisks(Session& session, double ratio, double subjectInTol, double measuringInTol,
                          double& falseAccept, double& falseReject, bool quiet = false) noexcept;

/// The reference model at fixed in-tolerance figures, for one ratio after another.
class BaselineModel {
  public:
    /// Fractions strictly between 0 and 1. Raises RuntimeFault otherwise.
    BaselineModel(double subjectInTol, double measuringInTol);

    struct Probabilities {
        double joint; // in tolerance and accepted
        double accepted;
        double inTolerance;
    };

    /// Raises RuntimeFault on a numeric fault.
    Probabilities at(double ratio) const;

    double inTolerance() const { return inTolerance_; }

  private:
    double zSubject_;
    double zMeasuring_;
    double inTolerance_;
};

/// A - J for the Producer (option 1), else 1 - J/A.
double baselineFalseAccept(const BaselineModel::Probabilities& p, int falseAcceptOption);

} // namespace metrisk
