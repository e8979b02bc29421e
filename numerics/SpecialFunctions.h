// The incomplete beta and gamma functions, the t coverage factor and the plotted densities.
//
// These routines own no trap: a numeric fault in them leaves as a RuntimeFault for the trap of the caller.
#pragma once

#include <string_view>

namespace metrisk {

/// The regularised incomplete beta function I_x(a, b), a fraction (Abramowitz and Stegun 26.5). An x
/// outside [0, 1] is a fault.
double BetaI(double a, double b, double x);

/// The continued fraction behind BetaI (Abramowitz and Stegun 26.5.8), to a relative change of 1e-10
/// between passes; after 1000 passes the last value stands.
double BetaContinuedFraction(double a, double b, double x);

/// The integral of t^(a - 1) e^-t from 0 to x, not regularised, by its power series. a = 0 is a
/// fault, and so is an x in the hundreds, which overflows.
double LowerGammaSeries(double a, double x);

/// The k for which P(|T| <= k) = p, a fraction, with nu degrees of freedom, to 1e-11 on the content.
/// 0 if StudentsT has no answer.
double InverseStudentT(double nu, double p);

/// The density at x of the curve named "Normal" or "t" (also "Student's t", with at least one degree of
/// freedom) about `centre`; `sigma` in the units of x. 0 for any other name and for a parameter out of
/// range. The constant of the t curve has nu + 1 under its root and the result is not divided by sigma:
/// the plots are scaled to that.
double DensityAt(double x, std::string_view name, double sigma, double centre, double nu);

} // namespace metrisk
