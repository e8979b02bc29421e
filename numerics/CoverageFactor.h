// The coverage factor between an expanded and a standard uncertainty.
#pragma once

namespace metrisk {

/// From this many degrees of freedom on, Student's t counts as normal.
inline constexpr double infiniteDegFreedom = 5000;

/// sqrt(3): a confidence of exactly 100 % is that of a rectangular distribution.
double StandardFactor100();

/// k such that +/- k standard uncertainties hold `pctConfidence` (percent): the t quantile for
/// 0 < degFreedom < 5000, else the normal one. 0 when there is no such factor. Raises RuntimeFault on
/// a numeric fault.
double CoverageFactor(double pctConfidence, double degFreedom);

} // namespace metrisk
