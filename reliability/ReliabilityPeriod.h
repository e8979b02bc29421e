// Reliability at the beginning, over and at the end of a period, from the coefficients of a model.
#pragma once

#include "reliability/ReliabilityModels.h"

#include <optional>

namespace metrisk {

/// Fractions. AOP is the mean of R(t) over the period.
struct PeriodReliability {
    double bop = 0, aop = 0, eop = 0;
};

/// R(0), the mean over [0, interval] and R(interval); the interval in the unit of the coefficients. None
/// without an interval or without coefficients. Means have closed forms or are integrals over 40 points.
/// Raises RuntimeFault.
std::optional<PeriodReliability> periodReliability(int model, const Coefficients& theta, double interval);

/// Whether they are reliabilities: none above 1, the next never above the last, but for rounding.
bool falls(const PeriodReliability& period);

/// The mean over the period of R(t)/a of the Weibull model, x = 1/c > -1 and l = (b T)^c > 0: by Kummer's
/// transformation of its series (Abramowitz and Stegun 6.5.12, 13.1.27), whose terms are all positive, and
/// for a large l by the incomplete gamma function (6.5.22). Raises RuntimeFault.
double weibullMean(double x, double l);

/// The mean over the period of (1 + x t/T)^-q.
double mixedExponentialMean(double x, double q);

/// The mean over [0, interval] of what ReliabilityIntegrand gives, in panels of 40 points that shrink towards
/// 0: a curve may fall within a small share of its period. Raises RuntimeFault.
double meanOfIntegrand(int model, const Coefficients& theta, double interval);

} // namespace metrisk
