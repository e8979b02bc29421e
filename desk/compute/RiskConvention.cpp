#include "desk/compute/RiskConvention.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "persistence/BaselineDefaults.h"

#include <cmath>

namespace metrisk {

void ConvertRiskConvention(BaselineDefaults& defaults, int falseAcceptOption) {
    if (defaults.FalseAcceptOption == falseAcceptOption) return;
    Baseline& b = defaults.figures;
    const double p = b.Base_SUPctInTol / 100;
    const double fa = riskFraction(b.Base_FalseAccept, b.Base_AcceptUnits);
    const double fr = riskFraction(b.Base_FalseReject, b.Base_RejectUnits);
    // Of the accepted share A = (p - fr)/(1 - fa) the consumer's risk is the part fa; all units bear A fa.
    const double good = p - fr;
    const double restated = falseAcceptOption == 1 ? good * fa / (1 - fa) : 1 - good / (good + fa);
    if (!std::isfinite(restated)) return;
    const ShownRisk shown = shownRisk(restated);
    const Regional neutral{};
    b.Base_FalseAccept = ParseValue(FormatNumber(shown.value, riskPicture(shown.units), neutral), neutral);
    b.Base_AcceptUnits = shown.units;
    b.Base_Accept_fmt = baselinePicture(shown.units);
    defaults.FalseAcceptOption = falseAcceptOption;
}

} // namespace metrisk
