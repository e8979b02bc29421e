// Guardbands by the options in the record: which solve they ask for, and what becomes of its result.
#pragma once

#include "desk/compute/SolveGuardbands.h"

#include <optional>

namespace metrisk {

struct Analysis;
struct Session;

/// What GB_KeyOn, the sides and the symmetry flags ask for; both parameters have been fitted. `risk` is the
/// target of the risk keyed on, a fraction; without one such a solve ends without a word. Two sides without
/// any symmetry equalise to multipliers of 0. None on a failure, of which the user has been told.
std::optional<GuardbandPair> guardbandsAsked(Session& session, const std::optional<double>& risk);

/// Puts the multipliers into the record, for the sides that exist, with their k-factors.
void takeGuardbands(Session& session, const GuardbandPair& found);

/// The worksheet's risks, each in its own unit by the display rule.
void holdWorksheetRisks(Analysis& record, const Risks& risks);

} // namespace metrisk
