// The logarithm of the gamma function and the incomplete gamma function.
#pragma once

namespace metrisk {

/// ln Gamma(x) for x > 0, to full double precision also in the relative sense about its zeros 1 and 2.
/// Infinity at 0, nan below. Safe in any number of threads.
double Gammln(double x) noexcept;

/// The regularised lower incomplete gamma function P(a, x), a fraction, for a > 0 and x >= 0; nan
/// otherwise.
double Gammp(double a, double x) noexcept;

/// Gammln(x) - ((x - 1/2) ln x - x + ln(2 pi)/2), the small rest of Stirling's formula, for x >= 10
/// (Abramowitz and Stegun 6.1.41).
double stirlingRest(double x) noexcept;

} // namespace metrisk
