// The unit that has observed the subject parameter: the measuring parameter's own, or another.
#pragma once

namespace metrisk {

struct Session;

/// Fits the measuring parameter anew with the tolerance and % in-tolerance of the other unit, which then
/// stand in MTE_Offset and MTE_PctInTol. False if validation refuses them, in its own words where it speaks,
/// or they have no fit; AbortFlag is clear afterwards.
bool FitObservingUnit(Session& session);

} // namespace metrisk
