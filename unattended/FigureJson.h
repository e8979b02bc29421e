// A figure beside its second one, and what stands where there is none.
#pragma once

#include "desk/kit/Message.h"
#include "risk/exact/Verified.h"
#include "unattended/Json.h"

#include <limits>
#include <optional>

namespace metrisk {

/// Stands for a figure that was not computed; null in JSON.
inline constexpr double noFigure = std::numeric_limits<double>::quiet_NaN();

inline constexpr Message noBaselineRisks{"The baseline's figures allow no risks.", "Baseline Not Computed"};

/// {"value", "bound"} of the second figure; null without one.
inline Json figureJson(const std::optional<VerifiedFigure>& figure) {
    if (!figure) return {};
    return {{"value", figure->exact.value}, {"bound", figure->exact.bound}};
}

} // namespace metrisk
