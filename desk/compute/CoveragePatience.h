// What a user sees while a coverage factor takes its time.
#pragma once

#include "desk/kit/Talk.h"

#include <optional>

namespace metrisk {

/// A word in the status line and the wait pointer, for the life of the object, where Student's t takes long.
class CoveragePatience {
  public:
    CoveragePatience(Talk& ui, double degFreedom);

  private:
    std::optional<WaitPointer> wait_;
    std::optional<StatusText> status_;
};

/// CoverageFactor with patience. Raises RuntimeFault on a numeric fault.
double SolveCoverageFactor(double pctConfidence, double degFreedom, Talk& ui);

} // namespace metrisk
