#include "risk/BaselineRisks.h"

#include "model/DisplayRule.h"
#include "model/Session.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/FaultMessages.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "risk/RiskMessages.h"

#include <cmath>

namespace metrisk {

namespace {

bool isProbability(double p) {
    return p > 0 && p < 1;
}

/// Not 0: a content too small for the arithmetic is none.
double twoSidedLimit(double content) {
    const double z = isProbability(content) ? InvNorm((content + 1) / 2) : 0;
    if (!(z > 0)) throw RuntimeFault(FaultKind::Argument, "BaselineModel", content);
    return z;
}

} // namespace

BaselineModel::BaselineModel(double subjectInTol, double measuringInTol)
    : zSubject_(twoSidedLimit(subjectInTol)), zMeasuring_(twoSidedLimit(measuringInTol)),
      inTolerance_(2 * Normal(zSubject_) - 1) {}

Probabilities BaselineModel::at(double ratio) const {
    const double joint = std::fabs(BaselineJointProbability(ratio, zSubject_, zMeasuring_));
    const double spread = std::hypot(zSubject_ / zMeasuring_, ratio);
    return {joint, 2 * Normal(checked(zSubject_ * ratio / spread)) - 1, inTolerance_};
}

std::optional<Risks> ComputeBaselineRisks(Session& session, const BaselineCase& baseline) {
    if (!isProbability(baseline.subjectInTol) || !isProbability(baseline.measuringInTol)) return std::nullopt;
    session.record.AbortFlag = false;
    try {
        const Probabilities p =
            BaselineModel(baseline.subjectInTol, baseline.measuringInTol).at(baseline.ratio);
        if (p.joint != 0 && p.inTolerance != 0) {
            const Risks risks = risksOf(p, session.record.FalseAcceptOption);
            return Risks{notNegative(risks.falseAccept), notNegative(risks.falseReject)};
        }
        tell(session.ui, baselineUnrealistic);
    } catch (const RuntimeFault&) {
        tell(session.ui, integrationFault);
    }
    return std::nullopt;
}

} // namespace metrisk
