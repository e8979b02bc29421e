// Whether the fixed and the percent part of a tolerance make it up.
#pragma once

#include "record/Analysis.h"

#include <cmath>

namespace metrisk {

/// To 1e-9 of the tolerance. Offset, mode and fixed part in nominal units, the other part in percent of the
/// mode.
inline bool partsMakeUp(double offset, double mode, double fixed, double pctReading) {
    const double sum = fixed + std::fabs(mode) * pctReading / 100;
    return std::fabs(sum - offset) <= 1e-9 * std::fabs(offset);
}

/// Parts of the measuring tolerance that another one was composed of; entered as an uncertainty it has none.
inline bool measuringPartsAreOthers(const Analysis& record) {
    return !record.MTE_EntryByUncertainty &&
           !partsMakeUp(record.MTE_Offset, record.SU_Mode, record.MTE_FixedOffset, record.MTE_PctReading);
}

} // namespace metrisk
