#include "risk/FitMeasuring.h"

#include "model/Session.h"
#include "numerics/Real.h"
#include "risk/CoverageFactor.h"
#include "uncertainty/CombinedUncertainty.h"

namespace metrisk {

namespace {

/// The standard deviation; raises RuntimeFault.
double fit(Session& session, double pctInTol) {
    Analysis& r = session.record;
    if (!(pctInTol > 0) || pctInTol > 100 || !(r.MTE_Offset > 0)) throw RuntimeFault{};
    const double factor = CoverageFactor(pctInTol, r.MTE_DegFreedom, session.ui);
    if (factor == 0) throw RuntimeFault{};
    r.MTE_kFactor = factor;
    r.MTE_StdUncertainty = checked(r.MTE_Offset / factor);
    if (!r.IncludeUncertainty) return r.MTE_StdUncertainty;
    return checked(CombinedUncertainty(r, session.regional).uncertainty);
}

} // namespace

void FitMeasuringParameter(Session& session, double pctInTol, double& sigma) noexcept {
    Analysis& r = session.record;
    const MeasuringParameter before = r;
    try {
        sigma = fit(session, pctInTol);
    } catch (const RuntimeFault&) {
        static_cast<MeasuringParameter&>(r) = before;
        r.AbortFlag = true;
        r.ComputeNeeded = true;
    }
}

} // namespace metrisk
