// What follows when the reading changes: tolerances that are parts of it, and the factors of relative units.
#pragma once

namespace metrisk {

struct Analysis;
struct Session;

/// After the mode has changed from `before`: tolerances that are parts of the reading, nominal units. Limits
/// are not formed. Raises RuntimeFault.
void followModeInTolerances(Analysis& record, double before);

/// After that: the factors of relative units and both decimal shifts.
void followModeInUnits(Session& session);

} // namespace metrisk
