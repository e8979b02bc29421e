#include "persistence/BaselineDefaults.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "persistence/SettingKeys.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace metrisk {
namespace {

constexpr const char* pctPicture = "##0.0000";
constexpr const char* riskFigurePicture = "#,##0.0000";
constexpr const char* consumerWord = "Consumer";
constexpr const char* producerWord = "Producer";
const Regional neutral{};

/// No figure here is grouped without decimals, so a comma alone is a decimal mark.
double figure(std::string text) {
    if (text.find('.') == text.npos) std::replace(text.begin(), text.end(), ',', '.');
    return ParseValue(text, neutral);
}

const char* wordOf(int falseAcceptOption) {
    return falseAcceptOption == 0 ? consumerWord : producerWord;
}

int optionOf(std::string_view word) {
    return equalCaseBlind(word, "CONSUMER") ? 0 : 1;
}

} // namespace

BaselineDefaults ReadBaselineDefaults(const Settings& settings, double formerTarget) {
    using namespace baselineSettings;
    const auto text = [&](const TextSetting& setting) { return withoutQuotes(settings.read(setting)); };
    const auto number = [&](const TextSetting& setting) { return figure(text(setting)); };

    BaselineDefaults defaults;
    Baseline& base = defaults.figures;
    const std::string ratio = text(accuracyRatio);
    const std::size_t colon = ratio.find(':');
    base.Base_AccRatNum = figure(ratio.substr(0, colon));
    base.Base_AccRatDen = colon == ratio.npos ? 0 : figure(ratio.substr(colon + 1));
    const double target = base.Base_AccRatNum / base.Base_AccRatDen;
    base.Base_EqRatioTarget = std::isfinite(target) ? target : formerTarget;
    base.Base_MTEPctInTol = number(mtePctInTol);
    base.Base_SUPctInTol = number(suPctInTol);
    base.Base_FalseAccept = number(falseAcceptRisk);
    base.Base_AcceptUnits = text(falseAcceptUnits);
    base.Base_FalseReject = number(falseRejectRisk);
    base.Base_RejectUnits = text(falseRejectUnits);
    base.Base_Accept_fmt = baselinePicture(base.Base_AcceptUnits);
    base.Base_Reject_fmt = baselinePicture(base.Base_RejectUnits);

    defaults.FalseAcceptOption = optionOf(text(falseAcceptCriterion));
    defaults.UserOption = text(userOption);
    if (base.Base_RejectUnits != percentUnits && base.Base_RejectUnits != ppmUnits)
        defaults.UserOption = "User";
    return defaults;
}

void WriteBaselineDefaults(Settings& settings, const BaselineDefaults& defaults, int falseAcceptOption) {
    using namespace baselineSettings;
    std::vector<SettingValue> values;
    const auto write = [&](const TextSetting& setting, const std::string& value) {
        values.push_back({std::string(setting.section), std::string(setting.key), value});
    };
    const auto number = [&](const TextSetting& setting, double value, const char* picture) {
        write(setting, FormatNumber(value, picture, neutral));
    };
    const Baseline& base = defaults.figures;
    write(accuracyRatio,
          GeneralText(base.Base_AccRatNum, neutral) + ":" + GeneralText(base.Base_AccRatDen, neutral));
    number(mtePctInTol, base.Base_MTEPctInTol, pctPicture);
    number(suPctInTol, base.Base_SUPctInTol, pctPicture);
    number(falseAcceptRisk, base.Base_FalseAccept, riskFigurePicture);
    write(falseAcceptUnits, base.Base_AcceptUnits);
    write(falseAcceptCriterion, wordOf(defaults.FalseAcceptOption));
    number(falseRejectRisk, base.Base_FalseReject, riskFigurePicture);
    write(falseRejectUnits, base.Base_RejectUnits);
    write(userOption, defaults.UserOption);
    write(falseAcceptConvention, wordOf(falseAcceptOption));
    settings.write(values);
}

int ReadFalseAcceptConvention(const Settings& settings) {
    return optionOf(settings.read(falseAcceptConvention));
}

void WriteFalseAcceptConvention(Settings& settings, int falseAcceptOption) {
    settings.write(falseAcceptConvention, wordOf(falseAcceptOption));
}

} // namespace metrisk
