// The fit of the measuring parameter, as a value.
#pragma once

#include "risk/TestEntries.h"

namespace metrisk {

struct MeasuringFit {
    double kFactor = 0;
    double stdUncertainty = 0; // nominal units
    double sigma = 0;          // with the process errors, if there are any
};

/// `process` is null where process errors do not count. Raises RuntimeFault, of the kind Argument where the
/// entries allow no fit.
MeasuringFit fitMeasuring(const MeasuringEntry& entry, const Budget* process);

/// The entries of the record.
MeasuringEntry measuringEntryOf(const Analysis& record);

} // namespace metrisk
