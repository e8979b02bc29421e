#include "plots/RiskMapPicture.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "plots/RiskChart.h"

namespace metrisk {

const char* nameOf(MapQuantity quantity) {
    switch (quantity) {
    case MapQuantity::Ratio: return "Accuracy Ratio";
    case MapQuantity::SubjectPct: return "Subject Parameter % In-Tolerance";
    case MapQuantity::MeasuringPct: return "Measuring Parameter % In-Tolerance";
    case MapQuantity::Multiplier: break;
    }
    return "Guardband Multiplier";
}

ContourMap riskMapPicture(const RiskGrid& grid, const MapRequest& request, MappedRisk risk,
                          int falseAcceptOption, const std::optional<MapPlace>& here) {
    ContourMap map;
    if (grid.empty()) return map;
    const bool accept = risk == MappedRisk::FalseAccept;
    map.scaleTitle = accept ? "False Accept Risk" : "False Reject Risk";
    map.title = map.scaleTitle + " " + optionTag(falseAcceptOption);
    map.x = roundAxisOver(nameOf(request.x.quantity), request.x.from, request.x.to);
    map.y = roundAxisOver(nameOf(request.y.quantity), request.y.from, request.y.to);
    map.columns = grid.columns;
    map.rows = grid.rows;
    const std::vector<double>& risks = accept ? grid.falseAccept : grid.falseReject;
    map.values.reserve(risks.size());
    for (const double value : risks) map.values.push_back(static_cast<float>(value));
    for (const double level : roundLevels(map.values)) {
        const ShownRisk shown = shownRisk(level);
        map.levels.push_back({level, GeneralText(shown.value, {}, 6) + " " + shown.units});
    }
    if (here) map.here = Point{(*here)[request.x.quantity], (*here)[request.y.quantity]};
    return map;
}

} // namespace metrisk
