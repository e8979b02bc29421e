// Reference values by Boost.Math in 113-bit arithmetic, of the normal distribution in 50 digits, rounded to
// long double.
#pragma once

namespace metrisk::testing::oracle {

using Value = long double;

Value phi(double x);
/// Of the standard normal distribution.
Value density(double x);
/// The z with phi(z) = p.
Value phiInverse(double p);
Value logGamma(double x);
Value gammaP(double a, double x);
/// P(|T| <= t).
Value tContent(double t, double nu);
/// P(T > t), t not below 0.
Value tTail(double t, double nu);
/// The regularised incomplete beta function I_x(a, b).
Value betaI(double a, double b, double x);
/// By how much ln t must change for P(T <= t) to be p, to first order: the relative error of a
/// quantile t. Each tail is taken by itself.
Value tQuantileError(double t, double nu, double p);

} // namespace metrisk::testing::oracle
