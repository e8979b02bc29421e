#include "desk/compute/BaselineRisks.h"

#include "base/Real.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/RiskMessages.h"
#include "risk/evaluate/BaselineFigures.h"

namespace metrisk {

std::optional<Risks> ComputeBaselineRisks(Session& session, const BaselineCase& baseline) {
    if (!isProbability(baseline.subjectInTol) || !isProbability(baseline.measuringInTol)) return std::nullopt;
    session.record.AbortFlag = false;
    try {
        if (const auto risks = baselineRisks(baseline, session.record.FalseAcceptOption)) return risks;
        tell(session.ui, baselineUnrealistic);
    } catch (const RuntimeFault&) {
        tell(session.ui, integrationFault);
    }
    return std::nullopt;
}

} // namespace metrisk
