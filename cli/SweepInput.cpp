#include "cli/SweepInput.h"

#include <charconv>

namespace metrisk::cli {

RiskSweep sweepOf(const AnalysisRun& run, Swept swept) {
    const Analysis& r = run.record;
    return RiskSweep(r, run.session.regional, swept,
                     {.includeGuardbands = r.IncludeGuardbands,
                      .includeProcess = r.IncludeUncertainty,
                      .baselineSubjectPct = r.Base_SUPctInTol,
                      .baselineMeasuringPct = r.Base_MTEPctInTol});
}

std::string exactNumber(double value) {
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    return {text, written.ptr};
}

} // namespace metrisk::cli
