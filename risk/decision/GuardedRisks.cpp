#include "risk/decision/GuardedRisks.h"

namespace metrisk {

namespace {

/// The physical limit of an exponential parameter is its mode: no item is accepted with a limit beyond.
bool beyondPhysicalLimit(const SubjectBias& subject, const Interval& limits) {
    if (subject.distribution != Distribution::Exponential) return false;
    return subject.singleUpper ? !(limits.upper > 0) : !(limits.lower < 0);
}

} // namespace

GuardedRisks guardedRisksOf(const ExactRisks& exact) {
    return {.consumer = exact.falseAccept(0).value,
            .producer = exact.falseAccept(1).value,
            .falseReject = exact.falseReject().value,
            .accepted = exact.accepted.value,
            .inTolerance = exact.inTolerance.value};
}

std::optional<GuardedRisks> guardedRisks(const SubjectBias& subject, double sigma,
                                         const Interval& testLimits) {
    if (beyondPhysicalLimit(subject, testLimits)) return std::nullopt;
    const auto exact = exactRisks(subject, sigma, {testLimits.lower, testLimits.upper});
    if (!exact || !(exact->accepted.value > 0)) return std::nullopt;
    return guardedRisksOf(*exact);
}

} // namespace metrisk
