// Confidence limits of a share by counts.
#pragma once

#include "numerics/mathlib/Binomial.h"

namespace metrisk {

/// The least share of which x or more of n trials succeed with a probability of `tail` (Clopper and Pearson,
/// Biometrika 26, 1934): the quantile of the beta distribution at `tail` with x and n - x + 1. x and n whole
/// numbers, 0 <= x <= n, n > 0; 0 for x = 0. Relative error of the share and of its complement below 1e-12.
Chance leastShare(double x, double n, double tail);

/// The greatest share of which x or fewer succeed with that probability; 1 for x = n.
inline Chance greatestShare(double x, double n, double tail) {
    const Chance failing = leastShare(n - x, n, tail);
    return {failing.q, failing.p};
}

} // namespace metrisk
