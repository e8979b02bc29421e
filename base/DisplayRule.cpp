#include "base/DisplayRule.h"

namespace metrisk {

namespace {

constexpr double smallRisk = 0.001;

} // namespace

ShownRisk shownRisk(double fraction) {
    if (fraction < smallRisk) return {fraction * perMillion, ppmUnits};
    return {fraction * perHundred, percentUnits};
}

double riskFraction(double value, std::string_view units) {
    return value / (units == ppmUnits ? perMillion : perHundred);
}

std::string riskPicture(std::string_view units) {
    return units == ppmUnits ? "##0" : "##0.00";
}

std::string baselinePicture(std::string_view units) {
    return units == ppmUnits ? "##0" : "##0.0000";
}

double notNegative(double fraction) {
    return fraction < 0 ? negativeRiskStandIn : fraction;
}

} // namespace metrisk
