#include "desk/compute/Reliability.h"

#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "reliability/ReliabilityInterval.h"

namespace metrisk {

namespace {

void refuse(Session& session, const Message& message) {
    tell(session.ui, message);
    session.record.AbortFlag = true;
}

/// The work's value; none if it faults.
template <class Work>
auto unlessFaulty(Session& session, Work work) -> std::optional<decltype(work())> {
    try {
        return work();
    } catch (const RuntimeFault& fault) {
        tellFault(session.ui, fault);
        session.record.AbortFlag = true;
        return std::nullopt;
    }
}

} // namespace

std::optional<double> ReliabilityAt(Session& session, int model, const Coefficients& theta, double t) {
    return unlessFaulty(session, [&] { return reliabilityAt(model, theta, t); });
}

SolveStatus SolveReliabilityCoefficients(Session& session, int model, PeriodReliability& period,
                                         double interval, Coefficients& theta) {
    session.record.AbortFlag = false;
    const auto solution = unlessFaulty(session, [&] { return solveReliability(model, period, interval); });
    theta = solution ? solution->theta : Coefficients{};
    if (!solution) return SolveStatus::Refused;
    if (solution->message) refuse(session, *solution->message);
    return solution->status;
}

std::optional<PeriodReliability> ReliabilityOverPeriod(Session& session, int model, const Coefficients& theta,
                                                       double interval) {
    const auto period = unlessFaulty(session, [&] { return periodReliability(model, theta, interval); });
    if (!period) return std::nullopt;
    if (*period && falls(**period)) return *period;
    refuse(session, illDefinedReliability);
    return std::nullopt;
}

std::optional<double> IntervalForReliability(Session& session, int model, const Coefficients& theta,
                                             double eop) {
    try {
        return timeForReliability(model, theta, eop);
    } catch (const IntervalRefusal& refusal) {
        refuse(session, *refusal.message);
        return std::nullopt;
    }
}

} // namespace metrisk
