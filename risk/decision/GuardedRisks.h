// The risks of a test within any test limits, both conventions at once, by exact integration.
#pragma once

#include "risk/decision/DecisionBasis.h"
#include "risk/exact/ExactRisks.h"

#include <optional>

namespace metrisk {

/// Fractions.
struct GuardedRisks {
    double consumer; // of the accepted items: conditional
    double producer; // of all items: joint
    double falseReject;
    double accepted;
    double inTolerance;

    double falseAccept(Convention convention) const {
        return convention == Convention::Producer ? producer : consumer;
    }
};

/// Test limits as deviations from the mode, nominal units. None where nothing is accepted: crossed limits,
/// and a limit beyond the physical one.
std::optional<GuardedRisks> guardedRisks(const SubjectBias& subject, double sigma,
                                         const Interval& testLimits);

GuardedRisks guardedRisksOf(const ExactRisks& exact);

} // namespace metrisk
