// False accept and false reject risk of a test with given acceptance limits.
#pragma once

#include "risk/RiskModel.h"

namespace metrisk {

struct Session;
struct Analysis;

enum class RiskOutcome {
    Computed,
    NoSpread,         // no scale to compute with: flags clear, the risks as the caller left them
    Negative,         // a probability came out negative: the same
    Failed,           // AbortFlag is set; the caller tells the user
    FailedAndReported // AbortFlag is set; the user has been told
};

/// The tolerance limits or, with `guardbanded`, the test limits. Raises RuntimeFault on overflow.
AcceptanceRange acceptanceRange(const Analysis& record, bool guardbanded);

/// The risks under the record's false accept option. Both parameters have been fitted. `risks` is written
/// only when the outcome is Computed.
RiskOutcome ComputeRisks(Session& session, AcceptanceRange range, Risks& risks);

} // namespace metrisk
