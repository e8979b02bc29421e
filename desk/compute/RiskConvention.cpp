#include "desk/compute/RiskConvention.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "persistence/BaselineDefaults.h"

#include <cmath>

namespace metrisk {

namespace {

/// A figure in ppm is divided twice; stored defaults have always been restated so.
double restatedFraction(double value, const std::string& units) {
    if (units == ppmUnits) value /= 1000000;
    return value / 100;
}

} // namespace

void ConvertRiskConvention(BaselineDefaults& defaults, int falseAcceptOption) {
    if (defaults.FalseAcceptOption == falseAcceptOption) return;
    Baseline& b = defaults.figures;
    const double p = b.Base_SUPctInTol / 100;
    const double fa = restatedFraction(b.Base_FalseAccept, b.Base_AcceptUnits);
    const double fr = restatedFraction(b.Base_FalseReject, b.Base_RejectUnits);
    const double restated = 1 - (p - fr) / (p + fa - fr);
    if (!std::isfinite(restated)) return;
    const ShownRisk shown = shownRisk(restated);
    const Regional neutral{};
    b.Base_FalseAccept = ParseValue(FormatNumber(shown.value, riskPicture(shown.units), neutral), neutral);
    b.Base_AcceptUnits = shown.units;
    b.Base_Accept_fmt = baselinePicture(shown.units);
    defaults.FalseAcceptOption = falseAcceptOption;
}

} // namespace metrisk
