#include "desk/compute/ObservingUnit.h"

#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Session.h"

#include <utility>

namespace metrisk {

bool FitObservingUnit(Session& session) {
    Analysis& r = session.record;
    r.MTE_PctInTol = 100 * r.Obs_AOP;
    r.MTE_Offset = r.Obs_Offset;
    r.ComputeScope = "MTE";
    r.ComputeNeeded = true;
    ValidateAndFit(session);
    return !std::exchange(r.AbortFlag, false);
}

} // namespace metrisk
