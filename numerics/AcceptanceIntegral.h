// The probability integrals of a test: 100-point Gauss-Legendre over the standard variable.
#pragma once

#include "numerics/AcceptanceIntegrand.h"

#include <string_view>

namespace metrisk {

class Interaction;

inline constexpr const char* integrationErrorTitle = "Function Integration Error";
inline constexpr const char* integrationErrorText =
    "A fatal math error occurred during integration.  Please try a different set of inputs.";

enum class IntegralOutcome {
    Done,
    NoScale, // a scale parameter is 0; the result is 0
    Fault    // a numeric fault, already reported unless quiet; the result is 0
};

struct AcceptanceIntegral {
    IntegralOutcome outcome = IntegralOutcome::Done;
    double value = 0;
};

/// `kind` "xy": probability that the subject parameter is in tolerance and accepted; any other text:
/// probability that it is accepted. `lo` and `hi` are the acceptance bounds in the distribution's
/// unit, `mteSigma` is in nominal units, `eps` ends the walks to an open end. A fault shows its
/// message on `ui`, or none when `ui` is null.
AcceptanceIntegral IntegrateAcceptance(std::string_view kind, const SubjectBias& subject, double lo,
                                       double hi, double mteSigma, double eps, Interaction* ui) noexcept;

/// Joint probability of being in tolerance and accepted in the plain normal model with symmetric
/// limits: `ratio` is the accuracy ratio, zSubject and zMeasuring the two-sided standard limits.
///   1/sqrt(2 pi) int_{-z}^{z} [Phi((x/z + 1) K) + Phi((1 - x/z) K) - 1] exp(-x^2/2) dx, K = ratio zM
AcceptanceIntegral BaselineJointProbability(double ratio, double zSubject, double zMeasuring,
                                            Interaction* ui) noexcept;

} // namespace metrisk
