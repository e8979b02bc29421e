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

/// What is asked where the search of the equivalent ratio has ended without one; without a user there is
/// none.
inline constexpr const char* ratioFailureTitle = "Equivalent Accuracy Ratio Failure";
inline constexpr const char* ratioFailureOnAccept = "Unable to compute a precise equivalent accuracy ratio\n"
                                                    "based on false accept risks.  Basing the equivalent\n"
                                                    "accuracy search on false reject risks might provide\n"
                                                    "better results.\n"
                                                    "Try again using false reject?";
inline constexpr const char* ratioFailureOnReject = "Unable to compute a precise equivalent accuracy ratio\n"
                                                    "based on false reject risks.  Basing the equivalent\n"
                                                    "accuracy search on false accept risks might provide\n"
                                                    "better results.\n"
                                                    "Try again using false accept?";

} // namespace metrisk
