// The baseline risks that a record holds, beside those of its reference case.
#pragma once

namespace metrisk {

struct Analysis;

/// They are those of its ratio, percentages and convention, as rounded as they may have been stored: to 0.01
/// %, or 1 ppm. A reference case that cannot be computed has none.
bool baselineIsCurrent(const Analysis& record);

/// Stores those of the reference case; the others stay where it cannot be computed.
void storeBaselineRisks(Analysis& record);

} // namespace metrisk
