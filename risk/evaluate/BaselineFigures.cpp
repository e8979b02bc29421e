#include "risk/evaluate/BaselineFigures.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "record/Analysis.h"

#include <cmath>

namespace metrisk {

namespace {

std::optional<Risks> referenceRisks(const Analysis& r) {
    const BaselineCase baseline{.ratio = r.Base_AccRatNum / r.Base_AccRatDen,
                                .subjectInTol = r.Base_SUPctInTol / 100,
                                .measuringInTol = r.Base_MTEPctInTol / 100};
    if (!isProbability(baseline.subjectInTol) || !isProbability(baseline.measuringInTol) ||
        !(baseline.ratio > 0))
        return std::nullopt;
    try {
        return baselineRisks(baseline, r.FalseAcceptOption);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

bool sameRisk(double stored, const std::string& units, double risk) {
    constexpr double halfPercentDigit = 0.005, halfPpm = 0.5, rounding = 1e-9;
    const bool ppm = units == ppmUnits;
    const double computed = risk * (ppm ? perMillion : 100);
    return std::fabs(stored - computed) <= (ppm ? halfPpm : halfPercentDigit) + rounding * computed;
}

} // namespace

std::optional<Risks> baselineRisks(const BaselineCase& baseline, int falseAcceptOption) {
    const Probabilities p = BaselineModel(baseline.subjectInTol, baseline.measuringInTol).at(baseline.ratio);
    if (p.joint == 0 || p.inTolerance == 0) return std::nullopt;
    const Risks risks = risksOf(p, falseAcceptOption);
    return Risks{notNegative(risks.falseAccept), notNegative(risks.falseReject)};
}

void putBaselineRisks(Baseline& baseline, const ShownRisk& accept, const ShownRisk& reject) {
    baseline.Base_FalseAccept = accept.value;
    baseline.Base_AcceptUnits = accept.units;
    baseline.Base_Accept_fmt = baselinePicture(accept.units);
    baseline.Base_FalseReject = reject.value;
    baseline.Base_RejectUnits = reject.units;
    baseline.Base_Reject_fmt = baselinePicture(reject.units);
}

bool baselineIsCurrent(const Analysis& r) {
    const auto risks = referenceRisks(r);
    return risks && sameRisk(r.Base_FalseAccept, r.Base_AcceptUnits, risks->falseAccept) &&
           sameRisk(r.Base_FalseReject, r.Base_RejectUnits, risks->falseReject);
}

void storeBaselineRisks(Analysis& r) {
    const auto risks = referenceRisks(r);
    if (risks) putBaselineRisks(r, shownRisk(risks->falseAccept), shownRisk(risks->falseReject));
}

} // namespace metrisk
