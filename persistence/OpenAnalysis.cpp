#include "persistence/OpenAnalysis.h"

#include "model/FlagGuard.h"

namespace metrisk {

ReadOutcome OpenAnalysis(Session& session, const std::string& path) {
    Analysis& r = session.record;
    r.AnalysisFileName = path;
    r.AbortFlag = false;
    ReadOutcome outcome;
    {
        const FlagGuard loading(r.LoadInProgress);
        outcome = ReadAnalysis(session, r.AnalysisFileName);
    }
    if (r.AbortFlag) {
        r.AnalysisFileName = untitledName;
        return outcome;
    }
    r.LastAnalysisName = r.AnalysisFileName;
    r.RisksNeedCompute = false;
    r.BaselineComputed = false;
    return outcome;
}

} // namespace metrisk
