#include "risk/BaselineRisks.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "model/Message.h"
#include "model/Session.h"
#include "numerics/FaultMessages.h"
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
