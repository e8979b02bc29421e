#include "desk/compute/RunBiasAnalysis.h"

#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "uncertainty/BiasAnalysis.h"

namespace metrisk {

namespace {

constexpr Message missingPct{"Subject parameter and/or measuring parameter % in-tolerance missing.",
                             "Metrisk"};

void clearResults(BiasAnalysis& bias) {
    bias.SMPC_TrueOffset = bias.SMPC_MTEUncertainty = bias.SMPC_SUUncertainty = 0;
    for (auto* figures : {&bias.SMPC_Bias, &bias.SMPC_Limits, &bias.SMPC_InTolProb}) figures->fill(0);
    bias.SMPC_Computed = false;
}

} // namespace

void RunBiasAnalysis(Session& session) {
    Analysis& r = session.record;
    BiasAnalysis& bias = r;
    bias.SMPC_Computed = false;
    r.ComputeScope = "Both";
    ValidateAndFit(session);
    const bool fitted = !r.AbortFlag;
    r.AbortFlag = false;
    if (!anySample(r)) {
        clearResults(bias);
        return;
    }
    if (r.MTE_PctInTol == 0 || r.SU_PctInTol == 0) {
        tell(session.ui, missingPct);
        return;
    }
    if (!fitted) return; // the fit has spoken
    try {
        if (auto results = analysedBias(r, session.regional))
            bias = *std::move(results);
        else
            clearResults(bias);
    } catch (const RuntimeFault&) {
        clearResults(bias);
    }
}

} // namespace metrisk
