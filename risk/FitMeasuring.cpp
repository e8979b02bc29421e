#include "risk/FitMeasuring.h"

#include "model/Session.h"
#include "numerics/Real.h"
#include "risk/CoverageFactor.h"
#include "uncertainty/CombinedUncertainty.h"

namespace metrisk {

namespace {

void fit(Session& session, double pctInTol, double& sigma) {
    Analysis& r = session.record;
    if (!(pctInTol > 0) || pctInTol > 100 || !(r.MTE_Offset > 0)) throw RuntimeFault{};
    const double factor = CoverageFactor(pctInTol, r.MTE_DegFreedom, session.ui);
    if (factor == 0) throw RuntimeFault{};
    const double standard = checked(r.MTE_Offset / factor);
    // With the process uncertainty taken in, its figures must hold before any field changes.
    const double combined = r.IncludeUncertainty ? checked(combinedUncertainty(r, standard)) : standard;
    r.MTE_kFactor = factor;
    r.MTE_StdUncertainty = standard;
    sigma = combined;
}

} // namespace

void FitMeasuringParameter(Session& session, double pctInTol, double& sigma) noexcept {
    try {
        fit(session, pctInTol, sigma);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
        session.record.ComputeNeeded = true;
    }
}

} // namespace metrisk
