// True and observed % in-tolerance of the record, with their messages.
#pragma once

#include "risk/observed/ObservedModel.h"

#include <optional>
#include <string>

namespace metrisk {

struct Session;

/// The entry that a refusal blames.
enum class ObservedEntry { ObservedPct, MeasuringLimit, MeasuringPct };

/// The measuring parameter has been fitted for the observing unit. Each returns false when it has refused:
/// the user has been told, and the record is as it was. Texts are those of the boxes, in percent.

/// Writes SU_PctInTol with its fit, Obs_PctInTol and their pictures; with GuardbandUse::Equalize the
/// multipliers too.
bool ObservedFromTrue(Session& session, GuardbandUse use, const std::string& trueText);

/// Writes Obs_PctInTol, SU_PctInTol with its fit, and their pictures.
bool TrueFromObserved(Session& session, GuardbandUse use, const std::string& observedText,
                      ObservedEntry lastChanged);

/// The multiplier of both sides that makes both percentages the same at a true share, a fraction. On failure
/// AbortFlag is set and the user told; a share of 0 fails in silence.
std::optional<double> SolveObservedGuardbands(Session& session, double trueShare);

} // namespace metrisk
