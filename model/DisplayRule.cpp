#include "model/DisplayRule.h"

#include "model/Analysis.h"

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

void publishRisks(Analysis& record, double falseAccept, double falseReject) {
    const ShownRisk accept = shownRisk(falseAccept);
    record.FalseAcceptRisk = accept.value;
    record.FalseAcceptUnits = accept.units;
    record.FalseAccept_fmt = riskPicture(accept.units);
    const ShownRisk reject = shownRisk(falseReject);
    record.FalseRejectRisk = reject.value;
    record.FalseRejectUnits = reject.units;
    record.FalseReject_fmt = riskPicture(reject.units);
}

} // namespace metrisk
