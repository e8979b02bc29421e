// The road from the compute button to the figures in the result boxes.
#pragma once

#include "risk/Risks.h"

namespace metrisk {

struct Session;
class ComputingScreen;

/// The compute button: compares with the snapshot, validates, fits, and runs the compute behind the
/// progress screen. A numeric fault ends it silently with AbortFlag set.
void ComputeResults_Click(Session& session) noexcept;

/// A whole risk compute without the progress screen and without the ratio search; results go to the
/// record. Failure is AbortFlag, with the earlier results in place.
void ComputeRisksDirect(Session& session) noexcept;

/// What the progress screen does once it is active, if ComputeRequested is set (which it consumes).
void ComputingActivated(Session& session, ComputingScreen& screen) noexcept;

/// Risks, snapshot and ratio search of the main screen.
void RiskComputeStep(Session& session, ComputingScreen& screen) noexcept;
/// The ratio search on behalf of the guardband worksheet: from GB_FARisk and GB_FRRisk (fractions at
/// that time) into GB_EqAccRat.
void GuardbandComputeStep(Session& session, ComputingScreen& screen) noexcept;

/// The tolerance limits or, with `guardbanded`, the test limits.
AcceptanceLimits acceptanceLimits(const Session& session, bool guardbanded);

/// The risks there. False when there are none: the user has been told, AbortFlag is set and `risks` unchanged.
bool risksAtLimits(Session& session, bool guardbanded, Risks& risks);

/// Opens the progress screen and computes behind it.
void requestCompute(Session& session);

} // namespace metrisk
