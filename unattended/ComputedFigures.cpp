#include "unattended/ComputedFigures.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/EquivalentRatio.h"
#include "record/ToleranceUnits.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"

#include <cmath>

namespace metrisk {

namespace {

std::string ratioNumber(double ratio) {
    return FormatNumber(ratio, "#,##0.00", {});
}

void computeBaseline(AnalysisRun& run, ComputedFigures& figures) {
    const Analysis& r = run.record;
    const std::size_t told = run.ui.messages().size();
    std::optional<Risks> risks;
    if (r.Base_AccRatNum > 0 && r.Base_AccRatDen > 0)
        risks = ComputeBaselineRisks(run.session, {.ratio = r.Base_AccRatNum / r.Base_AccRatDen,
                                                   .subjectInTol = r.Base_SUPctInTol / 100,
                                                   .measuringInTol = r.Base_MTEPctInTol / 100});
    if (risks)
        figures.baselineFalseAccept = risks->falseAccept, figures.baselineFalseReject = risks->falseReject;
    else if (run.ui.messages().size() == told)
        tell(run.ui, noBaselineRisks);
}

/// The second figures of what has been computed.
void verify(const Analysis& r, ComputedFigures& figures) {
    figures.verified = verifyRisks(r);
    if (!figures.computed)
        figures.verified.falseAccept = figures.verified.falseReject = {}, figures.verified.exact = {};
    if (std::isnan(figures.baselineFalseAccept))
        figures.verified.baselineFalseAccept = figures.verified.baselineFalseReject = {};
    if (!figures.computed || !r.ComputeEqRatio || !figures.verified.falseReject) return;
    figures.exactRatio = exactRatio(r, figures.verified);
    figures.ratioRemark = exactRatioRemark(r.EqAccRat, ratioNumber(r.EqAccRat), figures.exactRatio, {});
}

Json verifiedJson(const ComputedFigures& figures) {
    const Verified& v = figures.verified;
    Json object = {{"FalseAccept", figureJson(v.falseAccept)},
                   {"FalseReject", figureJson(v.falseReject)},
                   {"BaselineFalseAccept", figureJson(v.baselineFalseAccept)},
                   {"BaselineFalseReject", figureJson(v.baselineFalseReject)},
                   {"EqAccRat", figures.exactRatio ? Json(*figures.exactRatio) : Json()}};
    putVerified(object, figures.both);
    return object;
}

} // namespace

bool computeAfresh(AnalysisRun& run) {
    return withReason(run, "no finite risk", [&] {
        run.record.RisksNeedCompute = true;
        run.record.RisksComputed = false;
        run.record.SubjectFitValid = false;
        run.record.MTE_Sigma = 0;
        ComputeResults_Click(run.session);
        return static_cast<bool>(run.record.RisksComputed);
    });
}

ComputedFigures computeFigures(AnalysisRun& run, const CoverageChoice& coverage, bool verified) {
    const Analysis& r = run.record;
    ComputedFigures figures{.computed = computeAfresh(run)};
    figures.subjectFitted = r.SubjectFitValid;
    figures.measuringFitted = r.MTE_Sigma > 0;
    if (figures.computed) {
        figures.falseAccept = riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits);
        figures.falseReject = riskFraction(r.FalseRejectRisk, r.FalseRejectUnits);
    }
    computeBaseline(run, figures);
    if (verified) verify(r, figures);
    if (figures.computed)
        figures.both = bothConventions(run, coverage, figures.falseAccept, figures.verified.exact);
    return figures;
}

Json figuresJson(const Analysis& r, const ComputedFigures& figures) {
    const auto given = [](bool there, const auto& value) { return there ? Json(value) : Json(); };
    const auto subject = [&](const auto& value) { return given(figures.subjectFitted, value); };
    const auto measuring = [&](const auto& value) { return given(figures.measuringFitted, value); };
    const bool computed = figures.computed;
    const bool ratio = computed && r.ComputeEqRatio;
    const std::optional<int> digits = agreeingDigits(figures.verified);
    Json object = {{"FalseAccept", figures.falseAccept},
                   {"FalseReject", figures.falseReject},
                   {"BaselineFalseAccept", figures.baselineFalseAccept},
                   {"BaselineFalseReject", figures.baselineFalseReject},
                   {"SU_Distribution", subject(r.SU_Distribution)},
                   {"SU_CaseCode", subject(r.SU_CaseCode)},
                   {"SU_Sigma", subject(r.SU_Sigma)},
                   {"SU_LogSigma", subject(r.SU_LogSigma)},
                   {"SU_LogOmega", subject(r.SU_LogOmega)},
                   {"SU_ExpExponent", subject(r.SU_ExpExponent)},
                   {"SU_ExpRate", subject(r.SU_ExpRate)},
                   {"PhysicalLimit", subject(r.PhysicalLimit)},
                   {"MTE_Sigma", measuring(r.MTE_Sigma)},
                   {"MTE_kFactor", measuring(r.MTE_kFactor)},
                   {"MTE_StdUncertainty", measuring(r.MTE_StdUncertainty)},
                   {"FalseAcceptRisk", given(computed, r.FalseAcceptRisk)},
                   {"FalseAcceptUnits", given(computed, r.FalseAcceptUnits)},
                   {"FalseRejectRisk", given(computed, r.FalseRejectRisk)},
                   {"FalseRejectUnits", given(computed, r.FalseRejectUnits)},
                   {"EqAccRat", given(ratio, r.EqAccRat)},
                   {"EqAccRatDen", given(ratio, r.EqAccRatDen)},
                   {"EqAccRatAttained", given(ratio, ratioAttained(r.EqAccRat))},
                   {"FalseAcceptOption", r.FalseAcceptOption},
                   {"Verified", verifiedJson(figures)},
                   {"AgreeingDigits", digits ? Json(*digits) : Json()}};
    putBoth(object, figures.both);
    return object;
}

} // namespace metrisk
