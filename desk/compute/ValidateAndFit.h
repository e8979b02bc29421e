// The fit of both parameters, after the checks that their entries need.
#pragma once

namespace metrisk {

struct Session;

/// Validates (only if ComputeNeeded) and fits what ComputeScope names. Failure is AbortFlag.
void ValidateAndFit(Session& session);

} // namespace metrisk
