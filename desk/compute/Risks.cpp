#include "desk/compute/Risks.h"

#include "desk/kit/FaultMessages.h"
#include "desk/kit/Session.h"
#include "risk/FittedSubject.h"
#include "risk/RiskMessages.h"
#include "risk/TestRisks.h"

namespace metrisk {

namespace {

constexpr const char* computingText = "Computing risks...";

RiskOutcome computeRisks(Session& session, AcceptanceRange range, Risks& risks) {
    Analysis& r = session.record;
    const auto failed = [&r](RiskOutcome outcome) {
        r.AbortFlag = true;
        return outcome;
    };
    const auto refused = [&](const Message& message) {
        tell(session.ui, message);
        return failed(RiskOutcome::FailedAndReported);
    };
    if (const auto found = risksAt(subjectBiasOf(r), r.MTE_Sigma, range)) {
        risks = found->by(r.FalseAcceptOption);
        return RiskOutcome::Computed;
    }
    // Why there are none decides what the caller does.
    const std::optional<Probabilities> p = RiskModel(subjectBiasOf(r), r.MTE_Sigma).at(range);
    if (!p) return RiskOutcome::NoSpread;
    if (p->joint < 0 || p->accepted < 0) return RiskOutcome::Negative;
    if (p->joint == 0) {
        r.SearchAbort = true;
        return failed(RiskOutcome::Failed);
    }
    if (p->accepted == 0) return refused(guardbandUnrealistic);
    return refused(limitsUnrealistic);
}

} // namespace

AcceptanceRange acceptanceRange(const Analysis& r, bool guardbanded) {
    const double lowerMult = guardbanded ? r.GB_LowerMult : 1;
    const double upperMult = guardbanded ? r.GB_UpperMult : 1;
    return {checked(-lowerMult * r.SU_LowerOffset), checked(upperMult * r.SU_UpperOffset)};
}

RiskOutcome ComputeRisks(Session& session, AcceptanceRange range, Risks& risks) {
    session.record.AbortFlag = false;
    try {
        const StatusText status(session.ui, computingText);
        return computeRisks(session, range, risks);
    } catch (const RuntimeFault& fault) {
        session.record.AbortFlag = true;
        if (!messageOf(fault)) return RiskOutcome::Failed;
        tellFault(session.ui, fault);
        return RiskOutcome::FailedAndReported;
    }
}

} // namespace metrisk
