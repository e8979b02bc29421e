// The rule of a reading as it is chosen and typed, and kept in the settings.
#pragma once

#include "risk/decision/Judge.h"

#include <array>
#include <string>

namespace metrisk {

class Settings;

/// What the screen offers of each rule.
struct RuleOffer {
    RuleKind kind;
    const char* name;
    const char* value; // caption of its parameter; null where it has none
    double usual;      // that parameter
    bool percent = false;
};
inline constexpr std::array<RuleOffer, 9> ruleOffers{
    {{RuleKind::Simple, "Simple acceptance", nullptr, 0},
     {RuleKind::Guard, "Guard band of a multiple of U", "Multiple of U", 1},
     {RuleKind::Iso14253, "ISO 14253-1", nullptr, 0},
     {RuleKind::Conformance, "Least probability of conformance", "Probability, %", 0.95, true},
     {RuleKind::Analysis, "Test limits of the analysis", nullptr, 0},
     {RuleKind::Rss, "Root sum of squares (RSS)", nullptr, 0},
     {RuleKind::ManagedRisk, "Managed risk (M6)", nullptr, 0},
     {RuleKind::LeastRatio, "Simple with a least ratio", "Least ratio to U", 4},
     {RuleKind::LargestU, "Simple with a largest u", "Largest u", 0}}};

const RuleOffer& offerOf(RuleKind kind);

/// What does not depend on the reading. An unreadable setting is as if it were not there.
DecisionRequest readRule(const Settings& settings);
void writeRule(Settings& settings, const DecisionRequest& request);

/// "2.1", "95 %", empty for the usual one.
std::string coverageText(const CoverageChoice& coverage);

} // namespace metrisk
