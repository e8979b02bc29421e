// Student's t: two-sided content, upper tail and one-sided quantile.
#pragma once

namespace metrisk {

/// P(|T| <= t) for nu degrees of freedom, a fraction; 0 for t <= 0. Relative error below 1e-12 for
/// 0.1 <= nu <= 1e6; nan for nu <= 0 or a nan.
double tDistribution(double t, double nu) noexcept;

/// P(T > t) for nu degrees of freedom, a fraction, of either sign of t. Relative error below 1e-12 for 0.1 <=
/// nu
/// <= 1e6, however small it is; nan for nu <= 0 or a nan.
double studentsTail(double t, double nu) noexcept;

/// The t with P(T <= t) = p for nu degrees of freedom; negative below p = 0.5 and exactly 0 there.
/// Relative error below 1e-12 for 0.1 <= nu <= 1e6. 0 means no answer: nu not above 0, p not strictly
/// inside (0, 1), or a quantile beyond the largest double.
double StudentsT(double nu, double p) noexcept;

} // namespace metrisk
