#include "risk/evaluate/BaselineFigures.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "record/Analysis.h"
#include "risk/BaselineModel.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace metrisk {

namespace {

std::optional<Risks> referenceRisks(const Analysis& r) {
    const double subject = r.Base_SUPctInTol / 100, measuring = r.Base_MTEPctInTol / 100;
    const double ratio = r.Base_AccRatNum / r.Base_AccRatDen;
    if (!isProbability(subject) || !isProbability(measuring) || !(ratio > 0)) return std::nullopt;
    try {
        const Probabilities p = BaselineModel(subject, measuring).at(ratio);
        if (p.joint == 0 || p.inTolerance == 0) return std::nullopt;
        return risksOf(p, r.FalseAcceptOption);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

bool sameRisk(double stored, const std::string& units, double risk) {
    constexpr double halfPercentDigit = 0.005, halfPpm = 0.5, rounding = 1e-9;
    const bool ppm = units == ppmUnits;
    const double computed = std::max(risk, 0.0) * (ppm ? perMillion : 100);
    return std::fabs(stored - computed) <= (ppm ? halfPpm : halfPercentDigit) + rounding * computed;
}

} // namespace

bool baselineIsCurrent(const Analysis& r) {
    const auto risks = referenceRisks(r);
    return risks && sameRisk(r.Base_FalseAccept, r.Base_AcceptUnits, risks->falseAccept) &&
           sameRisk(r.Base_FalseReject, r.Base_RejectUnits, risks->falseReject);
}

void storeBaselineRisks(Analysis& r) {
    const auto risks = referenceRisks(r);
    if (!risks) return;
    const ShownRisk accept = shownRisk(notNegative(risks->falseAccept)),
                    reject = shownRisk(notNegative(risks->falseReject));
    r.Base_FalseAccept = accept.value;
    r.Base_AcceptUnits = accept.units;
    r.Base_Accept_fmt = baselinePicture(accept.units);
    r.Base_FalseReject = reject.value;
    r.Base_RejectUnits = reject.units;
    r.Base_Reject_fmt = baselinePicture(reject.units);
}

} // namespace metrisk
