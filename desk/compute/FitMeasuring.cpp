#include "desk/compute/FitMeasuring.h"

#include "desk/compute/CoveragePatience.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Session.h"
#include "risk/MeasuringFit.h"

#include <optional>

namespace metrisk {

namespace {

/// Raises RuntimeFault.
void fit(Session& session) {
    Analysis& r = session.record;
    std::optional<Budget> process;
    if (r.IncludeUncertainty) process = budgetOf(r, session.regional);
    const CoveragePatience patience(session.ui, r.MTE_DegFreedom);
    const MeasuringFit found = fitMeasuring(measuringEntryOf(r), process ? &*process : nullptr);
    r.MTE_kFactor = found.kFactor;
    r.MTE_StdUncertainty = found.stdUncertainty;
    r.MTE_Sigma = found.sigma;
}

} // namespace

void FitMeasuringParameter(Session& session) {
    Analysis& r = session.record;
    const MeasuringParameter before = r;
    try {
        r.SilentFault.clear();
        faultsNamed("FitMeasuringParameter", [&] { fit(session); });
    } catch (const RuntimeFault& fault) {
        static_cast<MeasuringParameter&>(r) = before;
        r.AbortFlag = true;
        r.ComputeNeeded = true;
        r.SilentFault = describe(fault);
        tellFault(session.ui, fault);
    }
}

} // namespace metrisk
