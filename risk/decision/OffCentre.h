// A process that is off centre, and a measuring bias that is not corrected.
#pragma once

#include "risk/decision/GuardedRisks.h"

#include <optional>

namespace metrisk {

/// Nominal units.
struct OffCentre {
    double mean = 0;               // of the process; need not be the mode
    double bias = 0;               // reading = true value + bias + error: above 0 reads high
    std::optional<double> sigma{}; // of the process; none: that of the % in-tolerance
};

/// A normal distribution about the mean, in the form of a fit: offsets count from the mean. Where no sigma is
/// given it is the one that leaves the % in-tolerance of the basis between the limits; there is just one for
/// a mean within them. For unequal limits this is no LogNormal, even about the mode. Refused for a mean on or
/// beyond a limit, a sigma not above 0, a required physical limit, 100 %, and a single-sided tolerance of 50
/// % or less.
Result<SubjectBias> offCentreProcess(const DecisionBasis& basis, const OffCentre& process);

struct OffCentreRisks {
    double processSigma; // nominal units
    GuardedRisks risks;
};

/// Within the test limits of the basis, by exact integration. Refused as above, and where nothing is
/// accepted.
Result<OffCentreRisks> offCentreRisks(const DecisionBasis& basis, const OffCentre& process);

} // namespace metrisk
