#include "persistence/Fingerprint.h"

#include "base/Digest.h"
#include "base/Real.h"
#include "persistence/AnalysisContent.h"
#include "record/Analysis.h"

namespace metrisk {

std::string inputsFingerprint(const Analysis& record) {
    Analysis inputs = record;
    const Analysis none;
    static_cast<Snapshot&>(inputs) = none;
    const int convention = record.FalseAcceptOption;
    const Flag keyedOnAccept = record.EqRatioOnFalseAccept;
    const std::string baseline = record.UserOption;
    static_cast<RiskResults&>(inputs) = none;
    inputs.FalseAcceptOption = convention;
    inputs.EqRatioOnFalseAccept = keyedOnAccept;
    inputs.UserOption = baseline;
    inputs.GB_FARisk = inputs.GB_FRRisk = inputs.GB_EqAccRat = 0;
    inputs.GB_FARiskUnits = none.GB_FARiskUnits;
    inputs.GB_FRRiskUnits = none.GB_FRRiskUnits;
    inputs.GB_EqAccRatValid = none.GB_EqAccRatValid;
    // What a fit derives.
    inputs.MTE_Sigma = inputs.MTE_kFactor = 0;
    if (!inputs.MTE_EntryByUncertainty) {
        inputs.MTE_StdUncertainty = 0;
        inputs.MTE_StdUncertainty_fmt = none.MTE_StdUncertainty_fmt;
    }
    if (inputs.OptTwoSided) inputs.PhysicalLimit = 0;
    static_cast<BiasAnalysis&>(inputs) = none;
    static_cast<ReportFields&>(inputs) = none;
    static_cast<PlotOptions&>(inputs) = none;
    try {
        return sha256(AnalysisText(inputs));
    } catch (const RuntimeFault&) {
        return "";
    }
}

} // namespace metrisk
