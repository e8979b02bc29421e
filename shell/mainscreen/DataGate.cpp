#include "shell/CommandGate.h"

#include "model/Session.h"
#include "risk/ValidateAndFit.h"

namespace metrisk {

namespace {

constexpr const char* noDataTitle = "No Data Available";
constexpr const char* noDataText = "No data to plot.";

bool hasSubjectData(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_UpperLimit != 0 || r.SU_LowerLimit != 0 || r.SU_PctInTol != 0;
}

bool hasMeasuringData(const Analysis& r) {
    return r.MTE_PctInTol != 0 || r.MTE_Mode != 0 || r.MTE_Offset != 0;
}

} // namespace

bool commandMayRun(Session& session, GatedCommand command) {
    Analysis& r = session.record;
    const bool subjectOnly = command == GatedCommand::SubjectPlot;
    if (command != GatedCommand::Print && !hasSubjectData(r) && (subjectOnly || !hasMeasuringData(r))) {
        session.ui.show({.text = noDataText, .title = noDataTitle});
        return false;
    }
    r.ComputeScope = subjectOnly ? "SU" : "Both";
    const bool fitted = r.SU_Sigma > 0 && (subjectOnly || r.MTE_Sigma > 0);
    if (!fitted) r.ComputeNeeded = true;
    ValidateAndFit(session);
    return !r.AbortFlag;
}

} // namespace metrisk
