// The baseline risks that a record holds, beside those of its reference case.
#pragma once

#include "base/DisplayRule.h"
#include "risk/BaselineModel.h"

#include <optional>

namespace metrisk {

struct Analysis;
struct Baseline;

/// By the convention of that number; none where nothing is accepted or in tolerance. Raises RuntimeFault.
std::optional<Risks> baselineRisks(const BaselineCase& baseline, int falseAcceptOption);

/// With their units and pictures.
void putBaselineRisks(Baseline& baseline, const ShownRisk& accept, const ShownRisk& reject);

/// They are those of its ratio, percentages and convention, as rounded as they may have been stored: to 0.01
/// %, or 1 ppm. A reference case that cannot be computed has none.
bool baselineIsCurrent(const Analysis& record);

/// Stores those of the reference case; the others stay where it cannot be computed.
void storeBaselineRisks(Analysis& record);

} // namespace metrisk
