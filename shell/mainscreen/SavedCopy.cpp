#include "shell/mainscreen/SavedCopy.h"

#include "model/Analysis.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr double sameUncertainty = 1e-14;

} // namespace

SavedCopy savedCopyOf(const Analysis& r) {
    return {
        .texts = {r.SU_Manufacturer, r.SU_ParameterName, r.SU_Qualifier1, r.SU_Qualifier2, r.NominalUnits,
                  r.SU_ToleranceUnits, r.MTE_Manufacturer, r.MTE_ParameterName, r.MTE_Qualifier1,
                  r.MTE_Qualifier2, r.MTE_ParameterUnits, r.MTE_ToleranceUnits},
        .numbers = {r.SU_Mode, r.SU_UpperLimit, r.SU_LowerLimit, r.SU_PctInTol, r.PhysicalLimit, r.MTE_Mode,
                    r.MTE_UpperLimit, r.MTE_LowerLimit, r.MTE_PctInTol, r.ProcessUncertainty, r.GB_UpperMult,
                    r.GB_LowerMult},
        .flags = {r.IncludeUncertainty, r.IncludeGuardbands, r.IncludeMTEBias, r.SymmetricTolerances},
        .MTE_StdUncertainty = r.MTE_StdUncertainty,
    };
}

bool differs(const SavedCopy& a, const SavedCopy& b) {
    return a.texts != b.texts || a.numbers != b.numbers || a.flags != b.flags ||
           std::fabs(a.MTE_StdUncertainty - b.MTE_StdUncertainty) >= sameUncertainty;
}

} // namespace metrisk
