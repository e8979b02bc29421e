#include "risk/RiskConvention.h"

#include "model/NumberText.h"
#include "persistence/DefaultBaseline.h"
#include "risk/DisplayRule.h"

#include <cmath>

namespace metrisk {

namespace {

/// A figure in ppm is divided twice; stored defaults have always been restated so.
double restatedFraction(double value, const std::string& units) {
    if (units == ppmUnits) value /= 1000000;
    return value / 100;
}

} // namespace

void ConvertRiskConvention(DefaultBaseline& b, int falseAcceptOption) {
    if (b.FalseAcceptOption == falseAcceptOption) return;
    const double p = b.SUPctInTol / 100;
    const double fa = restatedFraction(b.FalseAccept, b.AcceptUnits);
    const double fr = restatedFraction(b.FalseReject, b.RejectUnits);
    const double restated = 1 - (p - fr) / (p + fa - fr);
    if (!std::isfinite(restated)) return;
    const ShownRisk shown = shownRisk(restated);
    const Regional neutral{};
    b.FalseAccept = ParseValue(FormatNumber(shown.value, riskPicture(shown.units), neutral), neutral);
    b.AcceptUnits = shown.units;
    b.FalseAcceptOption = falseAcceptOption;
}

} // namespace metrisk
