// The width of a guard band at which a falling quantity is met.
#pragma once

#include "base/FunctionRef.h"
#include "risk/decision/DecisionBasis.h"

#include <optional>

namespace metrisk {

/// The width w (nominal units, the same on all sides) at which `excess`, a logarithm of a risk or of a ratio
/// of risks, passes from above 0 to below; it must fall with w. Looks from `from` towards more guard band,
/// and where `widen` is set towards less as well. To 1e-12 of d. None where it is above 0 for any width that
/// leaves an acceptance zone, below 0 for any, or not-a-number.
std::optional<double> widthWhere(const DecisionBasis& basis, FunctionRef<double(double)> excess, double from,
                                 bool widen);

} // namespace metrisk
