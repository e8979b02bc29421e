// The inverse of the standard normal cumulative distribution.
#pragma once

namespace metrisk {

/// The z with Normal(z) = p for 0 < p < 1, a fraction; negative below 0.5 and exactly 0 at 0.5.
/// Relative error below 1e-14. p = 0 and p = 1 give the infinities, anything else outside gives nan.
///
/// Wichura, "Algorithm AS 241: The Percentage Points of the Normal Distribution", PPND16,
/// Applied Statistics 37 (1988) 477-484.
double InvNorm(double p) noexcept;

} // namespace metrisk
