#include "risk/TestRisks.h"

#include "base/Real.h"
#include "risk/RiskMessages.h"

namespace metrisk {

namespace {

Refusal refused(const Message& message) {
    Refusal refusal(RefusalKind::NoAnswer, "risksAt");
    refusal.title = message.title;
    refusal.text = message.text;
    return refusal;
}

} // namespace

Result<TestRisks> risksAt(const SubjectBias& subject, double mteSigma, AcceptanceRange range) {
    try {
        const auto p = RiskModel(subject, mteSigma).at(range);
        if (!p || p->inTolerance == 0) return refused(limitsUnrealistic);
        if (!(p->joint > 0) || !(p->accepted > 0)) return refused(guardbandUnrealistic);
        return TestRisks{*p, risksOf(*p, 0), risksOf(*p, 1)};
    } catch (const RuntimeFault& fault) {
        return Refusal(fault.kind == FaultKind::Argument ? RefusalKind::Entry : RefusalKind::Arithmetic,
                       fault.routine, fault.number);
    }
}

} // namespace metrisk
