// Fit of the measuring parameter: its standard deviation from tolerance and % in-tolerance.
#pragma once

namespace metrisk {

struct Session;

/// pctInTol in percent; `sigma` receives the standard deviation in nominal units, with the process
/// uncertainty in it when that is included. Writes MTE_kFactor and MTE_StdUncertainty. On failure sets
/// AbortFlag and ComputeNeeded without a message and leaves sigma unchanged.
void FitMeasuringParameter(Session& session, double pctInTol, double& sigma) noexcept;

} // namespace metrisk
