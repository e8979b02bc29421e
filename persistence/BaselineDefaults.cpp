#include "persistence/BaselineDefaults.h"

#include "model/NumberText.h"
#include "model/Text.h"

#include <cmath>

namespace metrisk {
namespace {

constexpr int bufferLength = 60;

int optionOf(std::string_view word) {
    return equalCaseBlind(word, "CONSUMER") ? 0 : 1;
}

const char* riskPicture(std::string_view units) {
    return units == "ppm" ? "##0" : "##0.0000";
}

} // namespace

BaselineDefaults ReadBaselineDefaults(const Settings& settings, const Regional& regional,
                                      double formerTarget) {
    using namespace baselineKeys;
    const auto text = [&](const char* key, const char* otherwise) {
        return settings.ReadSetting(section, key, otherwise, bufferLength);
    };
    const auto number = [&](const char* key, const char* otherwise) {
        return ParseValue(text(key, otherwise), regional);
    };

    BaselineDefaults defaults;
    Baseline& base = defaults.figures;
    const std::string ratio = text(accuracyRatio, "4:1");
    const std::size_t colon = ratio.find(':');
    base.Base_AccRatNum = ParseValue(ratio.substr(0, colon), regional);
    base.Base_AccRatDen = colon == ratio.npos ? 0 : ParseValue(ratio.substr(colon + 1), regional);
    const double target = base.Base_AccRatNum / base.Base_AccRatDen;
    base.Base_EqRatioTarget = std::isfinite(target) ? target : formerTarget;
    base.Base_MTEPctInTol = number(mtePctInTol, "85");
    base.Base_SUPctInTol = number(suPctInTol, "72");
    base.Base_FalseAccept = number(falseAcceptRisk, "4.1");
    base.Base_AcceptUnits = text(falseAcceptUnits, "%");
    base.Base_FalseReject = number(falseRejectRisk, "3.75");
    base.Base_RejectUnits = text(falseRejectUnits, "%");
    base.Base_Accept_fmt = riskPicture(base.Base_AcceptUnits);
    base.Base_Reject_fmt = riskPicture(base.Base_RejectUnits);

    defaults.FalseAcceptOption = optionOf(text(falseAcceptCriterion, "Consumer"));
    defaults.UserOption = text(userOption, "User");
    if (base.Base_RejectUnits != "%" && base.Base_RejectUnits != "ppm") defaults.UserOption = "User";
    return defaults;
}

int ReadFalseAcceptConvention(const Settings& settings) {
    return optionOf(settings.ReadSetting("RiskOption", "FalseAcceptConvention", "Consumer", bufferLength));
}

} // namespace metrisk
