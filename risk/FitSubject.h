// Fit of the subject parameter: its bias distribution from mode, limits and % in-tolerance.
#pragma once

namespace metrisk {

struct Session;

/// Chooses the distribution and solves for its parameters; `sigma` receives the spread. pctInTol in
/// percent. Writes the fit fields of the record and, for unequal two-sided limits, PhysicalLimit. On
/// failure the message is shown, the focus goes to the box concerned, AbortFlag and ComputeNeeded are
/// set, and sigma and the earlier fit are unchanged; a numeric fault does the same without a message. A
/// spread of 0 is a failure.
///
/// Case codes: 1 LogNormal, limit between physical limit and mode; 2 LogNormal, limit beyond the mode;
/// 3 LogNormal two-sided; 4, 5, 6 Normal single lower, single upper, two-sided; 7, 8 Exponential away
/// from and towards the limit; 9 Uniform.
void FitSubjectParameter(Session& session, double pctInTol, double& sigma) noexcept;

} // namespace metrisk
