// The rate at which the Gamma reliability model falls to a target.
#pragma once

namespace metrisk {

/// Solves target = c e^-lambda (1 + lambda + lambda^2/2 + lambda^3/6) for lambda, kept to four decimals.
/// Reliabilities are fractions. `failed` tells of a search that did not reach its tolerance (lambda is
/// then its last point) or of one whose bracket ran out of the numbers (lambda stays as it was). No box
/// is shown.
void SolveGammaRate(double& lambda, double c, double target, bool& failed) noexcept;

} // namespace metrisk
