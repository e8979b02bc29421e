// The probability integrals of a test: 100-point Gauss-Legendre over the standard variable.
#pragma once

#include "numerics/AcceptanceIntegrand.h"

#include <optional>

namespace metrisk {

enum class Integral {
    Joint,   // probability that the subject parameter is in tolerance and accepted
    Marginal // probability that it is accepted
};

/// `lo` and `hi` are the acceptance bounds in the distribution's unit, `mteSigma` is in nominal units.
/// Nothing when a scale parameter is 0. Raises RuntimeFault on a numeric fault.
std::optional<double> IntegrateAcceptance(Integral kind, const SubjectBias& subject, double lo, double hi,
                                          double mteSigma);

/// Joint probability of being in tolerance and accepted in the plain normal model with symmetric
/// limits: `ratio` is the accuracy ratio, zSubject and zMeasuring the two-sided standard limits.
///   1/sqrt(2 pi) int_{-z}^{z} [Phi((x/z + 1) K) + Phi((1 - x/z) K) - 1] exp(-x^2/2) dx, K = ratio zM
/// Raises RuntimeFault on a numeric fault.
double BaselineJointProbability(double ratio, double zSubject, double zMeasuring);

} // namespace metrisk
