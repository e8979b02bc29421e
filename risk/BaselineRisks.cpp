#include "risk/BaselineRisks.h"

#include "model/DisplayRule.h"
#include "model/Session.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/Real.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "risk/RiskMessages.h"

#include <cmath>

namespace metrisk {

namespace {

bool isProbability(double p) {
    return p > 0 && p < 1;
}

double twoSidedLimit(double content) {
    if (!isProbability(content)) throw RuntimeFault{};
    return checked(InvNorm((content + 1) / 2));
}

} // namespace

BaselineModel::BaselineModel(double subjectInTol, double measuringInTol)
    : zSubject_(twoSidedLimit(subjectInTol)), zMeasuring_(twoSidedLimit(measuringInTol)),
      inTolerance_(2 * Normal(zSubject_) - 1) {
    if (zMeasuring_ == 0) throw RuntimeFault{};
}

BaselineModel::Probabilities BaselineModel::at(double ratio) const {
    const AcceptanceIntegral joint = BaselineJointProbability(ratio, zSubject_, zMeasuring_, nullptr);
    if (joint.outcome == IntegralOutcome::Fault) throw RuntimeFault{};
    const double perMeasuring = zSubject_ / zMeasuring_;
    const double spread = std::hypot(perMeasuring, ratio);
    const double accepted = 2 * Normal(checked(zSubject_ * ratio / spread)) - 1;
    return {std::fabs(joint.value), accepted, inTolerance_};
}

double baselineFalseAccept(const BaselineModel::Probabilities& p, int falseAcceptOption) {
    return checked(falseAcceptOption == 1 ? p.accepted - p.joint : 1 - p.joint / p.accepted);
}

bool ComputeBaselineRisks(Session& session, double ratio, double subjectInTol, double measuringInTol,
                          double& falseAccept, double& falseReject, bool quiet) noexcept {
    if (!isProbability(subjectInTol) || !isProbability(measuringInTol)) return false;
    session.record.AbortFlag = false;
    const auto report = [&](const Message& message) {
        if (!quiet) tell(session.ui, message);
        return false;
    };
    try {
        const BaselineModel::Probabilities p = BaselineModel(subjectInTol, measuringInTol).at(ratio);
        if (p.joint == 0 || p.inTolerance == 0) return report(baselineUnrealistic);
        const double accept = baselineFalseAccept(p, session.record.FalseAcceptOption);
        falseReject = notNegative(p.inTolerance - p.joint);
        falseAccept = notNegative(accept);
        return true;
    } catch (const RuntimeFault&) {
        return report(integrationFault);
    }
}

} // namespace metrisk
