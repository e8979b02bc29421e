// Fit of the measuring parameter: its standard deviation from tolerance and % in-tolerance.
#pragma once

namespace metrisk {

struct Session;

/// Writes MTE_Sigma, the standard deviation in nominal units with the process uncertainty in it when that
/// is included, MTE_kFactor and MTE_StdUncertainty. On failure sets AbortFlag and ComputeNeeded and leaves
/// the earlier fit.
void FitMeasuringParameter(Session& session);

} // namespace metrisk
