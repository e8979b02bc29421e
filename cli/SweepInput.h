// What the commands over ranges share: the fit before them, and how they print a number.
#pragma once

#include "cli/AnalysisRun.h"
#include "risk/sweeps/RiskSweep.h"

#include <string>

namespace metrisk::cli {

/// The sweep with guardbands and process errors as the file includes them, and its own reference case.
RiskSweep sweepOf(const AnalysisRun& run, Swept swept);

/// The shortest text that reads back as the same number; "nan" for none.
std::string exactNumber(double value);

} // namespace metrisk::cli
