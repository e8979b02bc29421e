#include "desk/compute/BaselineRisks.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/RiskMessages.h"

namespace metrisk {

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
