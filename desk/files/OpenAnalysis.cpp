#include "desk/files/OpenAnalysis.h"

#include "base/FlagGuard.h"

#include <utility>

namespace metrisk {

namespace {

template <class Read>
ReadOutcome open(Session& session, const std::string& path, Read read) {
    Analysis& r = session.record;
    r.AnalysisFileName = path;
    r.AbortFlag = false;
    session.fileStamp = stampOf(path); // of the file before it is read: a change in between will be seen
    ReadOutcome outcome;
    {
        const FlagGuard loading(r.LoadInProgress);
        outcome = read();
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

} // namespace

ReadOutcome OpenAnalysis(Session& session, const std::string& path) {
    return open(session, path, [&] { return ReadAnalysis(session, path); });
}

ReadOutcome OpenAnalysisText(Session& session, std::string content, const std::string& name) {
    return open(session, untitledName, [&] { return ReadAnalysisText(session, std::move(content), name); });
}

} // namespace metrisk
