#include "desk/compute/ValidateAndFit.h"

#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/compute/RatioPanels.h"
#include "desk/kit/Session.h"
#include "desk/kit/Validation.h"

namespace metrisk {

void ValidateAndFit(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    const bool both = r.ComputeScope == "Both";
    const bool subject = both || r.ComputeScope == "SU";
    const bool measuring = both || r.ComputeScope == "MTE";
    if (r.ComputeNeeded) {
        if (both) CheckDataPresent(session);
        if (r.AbortFlag) return;
        if (subject) ValidateSubject(session);
        if (r.AbortFlag) return;
        if (measuring) ValidateMeasuring(session);
        if (r.AbortFlag) return;
    }
    r.ComputeNeeded = false;
    if (measuring) FitMeasuringParameter(session);
    const bool measuringFailed = r.AbortFlag;
    if (subject && !measuringFailed) FitSubjectParameter(session);
    UpdateRatioPanels(session);
}

} // namespace metrisk
