#include "desk/compute/DataGate.h"

#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/PlotMessages.h"
#include "desk/kit/Session.h"

namespace metrisk {

namespace {

bool hasSubjectData(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_UpperLimit != 0 || r.SU_LowerLimit != 0 || r.SU_PctInTol != 0;
}

bool hasMeasuringData(const Analysis& r) {
    return r.MTE_PctInTol != 0 || r.MTE_Mode != 0 || r.MTE_Offset != 0;
}

} // namespace

bool haveData(Session& session, Needs needs) {
    Analysis& r = session.record;
    const bool subjectOnly = needs == Needs::Subject;
    if (needs != Needs::Both && !hasSubjectData(r) && (subjectOnly || !hasMeasuringData(r))) {
        tell(session.ui, noPlotData);
        return false;
    }
    r.ComputeScope = subjectOnly ? "SU" : "Both";
    const bool fitted = r.SU_Sigma > 0 && (subjectOnly || r.MTE_Sigma > 0);
    if (!fitted) r.ComputeNeeded = true;
    ValidateAndFit(session);
    return !r.AbortFlag;
}

} // namespace metrisk
