// The readings that have been decided on since the program was started.
#pragma once

#include "risk/decision/Judge.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

/// As it was shown.
struct PastReading {
    std::string time, parameter, reading, rule, verdict, conformance;
};

/// Stored nowhere.
struct ReadingHistory {
    std::vector<PastReading> readings{};
    std::optional<DecisionRequest> last{}; // for a report
};

} // namespace metrisk
