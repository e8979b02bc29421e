// A map of risks as it is drawn.
#pragma once

#include "drawing/ContourMap.h"
#include "risk/sweeps/RiskMap.h"

namespace metrisk {

/// "Accuracy Ratio" and its like.
const char* nameOf(MapQuantity quantity);

enum class MappedRisk { FalseAccept, FalseReject };

/// `here` is marked, unless there is none or it lies beyond the axes.
ContourMap riskMapPicture(const RiskGrid& grid, const MapRequest& request, MappedRisk risk,
                          int falseAcceptOption, const std::optional<MapPlace>& here);

} // namespace metrisk
