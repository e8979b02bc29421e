#include "risk/FitMeasuring.h"

#include "model/Session.h"
#include "numerics/FaultMessages.h"
#include "risk/CoverageFactor.h"
#include "uncertainty/CombinedUncertainty.h"

namespace metrisk {

namespace {

/// Raises RuntimeFault.
void fit(Session& session) {
    Analysis& r = session.record;
    const auto require = [](bool holds, double number) {
        if (!holds) throw RuntimeFault(FaultKind::Argument, "FitMeasuringParameter", number);
    };
    require(r.MTE_PctInTol > 0 && r.MTE_PctInTol <= 100, r.MTE_PctInTol);
    require(r.MTE_Offset > 0, r.MTE_Offset);
    r.MTE_kFactor = SolveCoverageFactor(r.MTE_PctInTol, r.MTE_DegFreedom, session.ui);
    require(r.MTE_kFactor != 0, r.MTE_kFactor);
    r.MTE_StdUncertainty = checked(r.MTE_Offset / r.MTE_kFactor);
    r.MTE_Sigma =
        r.IncludeUncertainty ? CombinedUncertainty(r, session.regional).uncertainty : r.MTE_StdUncertainty;
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
