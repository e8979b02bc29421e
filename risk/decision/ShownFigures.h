// Probabilities as a decision shows them.
#pragma once

#include "base/Regional.h"
#include "risk/decision/Conformance.h"

#include <optional>
#include <string>

namespace metrisk {

/// "88.49 %": two decimals, and one more each until it reads neither as 0 nor as 100 %, nor as the level (a
/// fraction) that it is compared with. "< 1e-30" for anything smaller, as a fraction, and "> 99.99999999 %"
/// where the difference to 100 % does not show: no probability of a measured value is 0 or 1, though a double
/// may be.
std::string shownPercent(const Conformance& probability, std::optional<double> level = {},
                         const Regional& regional = {});

} // namespace metrisk
