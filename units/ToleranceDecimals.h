// How many decimals a picture grows by when a value is shown in tolerance units.
#pragma once

namespace metrisk {

struct Analysis;

/// Sets SU_TolDecimalShift from the units, the factor and the mode.
void UpdateToleranceDecimals(Analysis& record);
/// Sets SU_SigDigits likewise for the measuring parameter.
void UpdateMTEToleranceDecimals(Analysis& record);

} // namespace metrisk
