// Which unit has observed the subject parameter: the measuring parameter's own, or another.
#pragma once

#include "record/Analysis.h"

namespace metrisk {

/// Values of Obs_ObservingUnitOption.
inline constexpr int otherUnit = 0;
inline constexpr int currentUnit = 1;

/// Another unit has observed; without a tolerance it is no unit.
inline bool anotherUnitObserves(const Analysis& record) {
    return record.Obs_ObservingUnitOption == otherUnit && record.Obs_Offset != 0;
}

} // namespace metrisk
