// What is said when risks cannot be computed.
#pragma once

#include "base/Box.h"

namespace metrisk {

inline constexpr const char* computeFailedTitle = "Compute Failed";
inline constexpr Message guardbandUnrealistic{"Unable to compute risks.  Guardband may be unrealistic.",
                                              computeFailedTitle};
inline constexpr Message limitsUnrealistic{"Unable to compute risks.  Limits may be unrealistic.",
                                           computeFailedTitle};
inline constexpr Message baselineUnrealistic{"Unable to compute risks.  Baseline may be unrealistic.",
                                             computeFailedTitle};

inline constexpr Message noRisks{"Unable to compute risks.", computeFailedTitle};

} // namespace metrisk
