#include "risk/MeasuringFit.h"

#include "base/Real.h"
#include "numerics/CoverageFactor.h"

namespace metrisk {

MeasuringFit fitMeasuring(const MeasuringEntry& entry, const Budget* process) {
    const auto require = [](bool holds, double number) {
        if (!holds) throw RuntimeFault(FaultKind::Argument, "FitMeasuringParameter", number);
    };
    require(entry.pctInTol > 0 && entry.pctInTol <= 100, entry.pctInTol);
    require(entry.offset > 0, entry.offset);
    MeasuringFit fit;
    fit.kFactor = CoverageFactor(entry.pctInTol, entry.degFreedom);
    require(fit.kFactor != 0, fit.kFactor);
    fit.stdUncertainty = checked(entry.offset / fit.kFactor);
    fit.sigma = process ? process->with(fit.stdUncertainty) : fit.stdUncertainty;
    return fit;
}

MeasuringEntry measuringEntryOf(const Analysis& r) {
    return {r.MTE_Offset, r.MTE_PctInTol, r.MTE_DegFreedom, r.MTE_EntryByUncertainty};
}

} // namespace metrisk
