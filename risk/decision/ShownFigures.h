// Probabilities as a decision shows them.
#pragma once

#include "risk/decision/Conformance.h"

#include <optional>
#include <string>

namespace metrisk {

/// "88.49 %": two decimals, and one more each until a probability that is neither 0 nor 100 % does not read
/// as one of them, nor as the level (a fraction) that it is compared with. "< 1e-30" for anything smaller, as
/// a fraction;
/// "> 99.99999999 %" where the difference to 100 % is smaller than that.
std::string shownPercent(const Conformance& probability, std::optional<double> level = {});

} // namespace metrisk
