#include "persistence/BaselineDefaults.h"

#include "model/DisplayRule.h"
#include "model/NumberText.h"
#include "model/Text.h"

#include <algorithm>
#include <cmath>

namespace metrisk {
namespace {

constexpr int bufferLength = 60;

constexpr const char* pctPicture = "##0.0000";
constexpr const char* riskFigurePicture = "#,##0.0000";
constexpr const char* conventionSection = "RiskOption";
constexpr const char* conventionKey = "FalseAcceptConvention";
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
    using namespace baselineKeys;
    const auto text = [&](const char* key, const char* otherwise) {
        return withoutQuotes(settings.ReadSetting(section, key, otherwise, bufferLength));
    };
    const auto number = [&](const char* key, const char* otherwise) { return figure(text(key, otherwise)); };

    BaselineDefaults defaults;
    Baseline& base = defaults.figures;
    const std::string ratio = text(accuracyRatio, "4:1");
    const std::size_t colon = ratio.find(':');
    base.Base_AccRatNum = figure(ratio.substr(0, colon));
    base.Base_AccRatDen = colon == ratio.npos ? 0 : figure(ratio.substr(colon + 1));
    const double target = base.Base_AccRatNum / base.Base_AccRatDen;
    base.Base_EqRatioTarget = std::isfinite(target) ? target : formerTarget;
    base.Base_MTEPctInTol = number(mtePctInTol, "85");
    base.Base_SUPctInTol = number(suPctInTol, "72");
    base.Base_FalseAccept = number(falseAcceptRisk, "4.1");
    base.Base_AcceptUnits = text(falseAcceptUnits, "%");
    base.Base_FalseReject = number(falseRejectRisk, "3.75");
    base.Base_RejectUnits = text(falseRejectUnits, "%");
    base.Base_Accept_fmt = baselinePicture(base.Base_AcceptUnits);
    base.Base_Reject_fmt = baselinePicture(base.Base_RejectUnits);

    defaults.FalseAcceptOption = optionOf(text(falseAcceptCriterion, "Consumer"));
    defaults.UserOption = text(userOption, "User");
    if (base.Base_RejectUnits != percentUnits && base.Base_RejectUnits != ppmUnits)
        defaults.UserOption = "User";
    return defaults;
}

void WriteBaselineDefaults(Settings& settings, const BaselineDefaults& defaults) {
    using namespace baselineKeys;
    const auto write = [&](const char* key, std::string_view value) {
        settings.WriteSetting(section, key, value);
    };
    const auto number = [&](const char* key, double value, const char* picture) {
        write(key, FormatNumber(value, picture, neutral));
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
}

int ReadFalseAcceptConvention(const Settings& settings) {
    return optionOf(settings.ReadSetting(conventionSection, conventionKey, consumerWord, bufferLength));
}

void WriteFalseAcceptConvention(Settings& settings, int falseAcceptOption) {
    settings.WriteSetting(conventionSection, conventionKey, wordOf(falseAcceptOption));
}

} // namespace metrisk
