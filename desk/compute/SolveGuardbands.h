// The guardband solves on the record, with their messages.
#pragma once

#include "risk/guardband/Bisection.h"
#include "risk/guardband/GuardbandSolver.h"

#include <optional>
#include <string_view>

namespace metrisk {

struct Regional;
struct Session;

struct GuardbandPair {
    double lower = 0;
    double upper = 0;
};

/// The target that the options and the risk box of the one keyed on say. None where there is no positive
/// risk or units that are neither "%" nor "ppm"; a solve then ends without a word.
std::optional<double> enteredRisk(std::string_view text, std::string_view units, const Regional& regional);

/// Shows what a failure has to say and sets AbortFlag and SearchAbort.
void tellFailure(Session& session, const SolveFailure& failure);

/// Each works on the fits in the record, and on failure shows its message, sets AbortFlag and SearchAbort and
/// returns nothing. A target of 0 or less ends in silence, with AbortFlag set.

/// One multiplier for both sides.
std::optional<GuardbandPair> EqualizeRisksByMultipliers(Session& session);
std::optional<GuardbandPair> SolveMultipliersForRisk(Session& session, const GuardbandTarget& target);

/// Multipliers of one k-factor for both sides; that of a side that does not exist is as it was.
std::optional<GuardbandPair> EqualizeRisksByKFactors(Session& session);

/// One k-factor for both sides; 0 where an offset or the measuring sigma is 0.
std::optional<GuardbandPair> SolveKFactorsForRisk(Session& session, const GuardbandTarget& target);

} // namespace metrisk
