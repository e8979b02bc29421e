// What the process uncertainty worksheet refuses, in its words.
#pragma once

#include "base/Box.h"

namespace metrisk {

inline constexpr Message negativeError{"Must be greater that zero", "Improper Input", BoxIcon::Information};
inline constexpr Message confidenceOutside{"Must be between 0 and 100.", "Confidence Level"};
inline constexpr Message unlawfulCorrelation{"The correlation coefficient must be between -1 and 1.",
                                             "Unlawful Entry", BoxIcon::Information};
inline constexpr Message noTotal{"The figures of the table allow no total.",
                                 "Measurement Process Uncertainty"};
inline constexpr const char* notANumber = " is not a valid number."; // behind the text

} // namespace metrisk
