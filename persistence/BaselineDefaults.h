// The stored default baseline and false accept convention.
#pragma once

#include "model/ResultGroups.h"
#include "model/Session.h"

#include <string>

namespace metrisk {

/// Section and keys of the default baseline in the settings file.
namespace baselineKeys {
inline constexpr const char* section = "BaselineDefaults";
inline constexpr const char* accuracyRatio = "Metrisk";
inline constexpr const char* mtePctInTol = "MTEPctInTol";
inline constexpr const char* suPctInTol = "SUPctInTol";
inline constexpr const char* falseAcceptRisk = "FalseAcceptRisk";
inline constexpr const char* falseAcceptUnits = "FalseAcceptUnits";
inline constexpr const char* falseAcceptCriterion = "FalseAcceptCriterion";
inline constexpr const char* falseRejectRisk = "FalseRejectRisk";
inline constexpr const char* falseRejectUnits = "FalseRejectUnits";
inline constexpr const char* userOption = "UserOption";
} // namespace baselineKeys

struct BaselineDefaults {
    Baseline figures;          // Base_EqRatioTarget included
    int FalseAcceptOption = 0; // 0 Consumer, 1 Producer
    std::string UserOption = "User";
};

/// The default baseline of the settings file: 4:1, 85 %, 72 %, 4.1 %, 3.75 %, Consumer, "User" where
/// it says nothing. If the two figures of the ratio have no quotient, `formerTarget` stays the target.
/// Figures are read with either decimal symbol and written with a period, so that they keep their
/// meaning when the user's language changes.
BaselineDefaults ReadBaselineDefaults(const Settings& settings, double formerTarget);
void WriteBaselineDefaults(Settings& settings, const BaselineDefaults& defaults);

/// The default false accept option (section RiskOption): 0 Consumer, 1 Producer.
int ReadFalseAcceptConvention(const Settings& settings);
void WriteFalseAcceptConvention(Settings& settings, int falseAcceptOption);

} // namespace metrisk
