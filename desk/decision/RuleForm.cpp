#include "desk/decision/RuleForm.h"

#include "base/ExactText.h"
#include "base/NumberFormat.h"
#include "persistence/SettingKeys.h"
#include "risk/decision/RuleText.h"

#include <algorithm>

namespace metrisk {

const RuleOffer& offerOf(RuleKind kind) {
    return *std::ranges::find(ruleOffers, kind, &RuleOffer::kind);
}

DecisionRequest readRule(const Settings& settings) {
    DecisionRequest request;
    if (const auto rule = decisionRuleOf(settings.read(readingSettings::rule))) request.rule = *rule;
    request.rule.reject = numberIn(settings.read(readingSettings::reject));
    const std::string outcomes = settings.read(readingSettings::outcomes);
    if (outcomes == "2" || outcomes == "3" || outcomes == "4") request.rule.outcomes = outcomes[0] - '0';
    if (refusedRule(request.rule)) request.rule = {};
    request.withPrior = settings.read(readingSettings::prior) == "Yes";
    const auto coverage = coverageChoiceOf(settings.read(readingSettings::coverage));
    if (coverage && coverageFactor(*coverage, 0)) request.coverage = *coverage;
    return request;
}

void writeRule(Settings& settings, const DecisionRequest& request) {
    const DecisionRule& rule = request.rule;
    const auto value = [](const TextSetting& setting, std::string text) {
        return SettingValue{std::string(setting.section), std::string(setting.key), std::move(text)};
    };
    const SettingValue values[] = {
        value(readingSettings::rule, textOf(rule)),
        value(readingSettings::reject, rule.reject ? exactText(*rule.reject) : ""),
        value(readingSettings::outcomes, rule.outcomes ? std::to_string(*rule.outcomes) : ""),
        value(readingSettings::prior, request.withPrior ? "Yes" : "No"),
        value(readingSettings::coverage, coverageText(request.coverage))};
    settings.write(values);
}

std::string coverageText(const CoverageChoice& coverage) {
    if (coverage.factor) return exactText(*coverage.factor);
    return coverage.pct ? exactText(*coverage.pct) + "%" : "";
}

} // namespace metrisk
