// False accept and false reject risk of a test with given acceptance limits.
#pragma once

namespace metrisk {

struct Session;
struct SubjectBias;

enum class RiskReport { Shown, Quiet };

enum class RiskOutcome {
    Computed,
    NoSpread,         // no scale to compute with: flags clear, outputs as the caller left them
    Negative,         // a probability came out negative: the same
    Failed,           // AbortFlag is set; the caller tells the user
    FailedAndReported // AbortFlag is set; the user has been told, unless quiet
};

/// With J the probability of being in tolerance and accepted, A of being accepted, I of being in
/// tolerance: falseReject = I - |J|; falseAccept = 1 - J/A for the Consumer (the risk that an accepted
/// item is out of tolerance), A - J for the Producer (the risk of being out of tolerance and
/// accepted), 0 for a uniform parameter. Both are fractions and may be slightly negative by rounding.
///
/// `lower` and `upper` are acceptance limits in nominal units; an absent side's limit is not read.
/// Both parameters have been fitted. The outputs are written only when the outcome is Computed.
/// Quiet shows no box (sweeps and solvers).
RiskOutcome ComputeRisks(Session& session, double lower, double upper, double& falseAccept,
                         double& falseReject, RiskReport report = RiskReport::Shown) noexcept;

/// I of the fitted subject parameter, a fraction. Raises RuntimeFault on a numeric fault.
double inTolerance(const SubjectBias& subject);

} // namespace metrisk
