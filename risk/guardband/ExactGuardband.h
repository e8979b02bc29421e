// What exact integration says of solved guardbands, and the guardbands that it would find.
#pragma once

#include "base/Regional.h"
#include "risk/exact/ExactRisks.h"
#include "risk/guardband/GuardbandSolver.h"

#include <optional>
#include <string>

namespace metrisk {

struct Analysis;

/// Test limits by one multiplier, or by one k-factor, of every side that exists.
enum class GuardbandForm { Multiplier, KFactor };

/// The multiplier or k-factor at which the exact risk keyed on is the target, or both exact risks are equal:
/// the one nearest to `near` in the direction in which it is met first. None if there is none as far as test
/// limits keep their order, or if the fits of the record give no risks. Raises nothing.
std::optional<double> exactGuardband(const Analysis& record, GuardbandForm form,
                                     const GuardbandTarget& target, double near);

/// Where the exact risk at the record's multipliers misses the target of the solve by more than the last
/// digit that the guardband worksheet shows of it.
struct MissedTarget {
    GuardbandForm form;
    BoundedFigure risk;              // keyed on; when risks were to be equal, the larger of the two
    std::optional<double> guardband; // that meets the target
};

/// None where the target is met, or where there are no exact risks. The record holds the solution, by `form`.
std::optional<MissedTarget> missedTarget(const Analysis& record, GuardbandForm form,
                                         const GuardbandTarget& target);

/// "Exact integration gives 0.6800 % for these guardbands; a multiplier of 0.87654321 meets the target."
std::string missedTargetText(const MissedTarget& missed, const Regional& regional);

} // namespace metrisk
