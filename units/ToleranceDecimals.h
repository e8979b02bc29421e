// Decimals by which a picture grows when a value is shown in tolerance units.
#pragma once

#include "record/Analysis.h"

namespace metrisk {

/// Sets SU_TolDecimalShift from the subject parameter's units; a factor of 0 counts as 1. Units
/// without a meaning (a negative factor, an overflow) leave the shift.
void UpdateToleranceDecimals(Analysis& record);

/// Sets SU_SigDigits from the measuring parameter's units in the same way.
void UpdateMTEToleranceDecimals(Analysis& record);

} // namespace metrisk
