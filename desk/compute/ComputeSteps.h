// What a compute does behind the progress screen.
#pragma once

#include "desk/compute/Risks.h"

namespace metrisk {

struct Session;
class ComputingScreen;

/// Results and ratio in the record are those of the entries, by the comparison made last.
bool everythingUnchanged(const Analysis& record);

/// The risks at the record's acceptance limits. False when there are none: the user has been told, AbortFlag
/// is set and `risks` stays.
bool risksAtLimits(Session& session, bool guardbanded, Risks& risks);

/// What the progress screen does once it is active, if ComputeRequested is set (which it consumes).
void ComputingActivated(Session& session, ComputingScreen& screen);

/// Risks, snapshot and ratio search of the main screen.
void RiskComputeStep(Session& session, ComputingScreen& screen);

/// The ratio search on behalf of the guardband worksheet: from GB_FARisk and GB_FRRisk (fractions at
/// that time) into GB_EqAccRat, which is 0 where the risk that the search is keyed on is not above 0.
void GuardbandComputeStep(Session& session, ComputingScreen& screen);

} // namespace metrisk
