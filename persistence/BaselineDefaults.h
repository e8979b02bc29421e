// The stored default baseline and false accept convention.
#pragma once

#include "base/Settings.h"
#include "record/ResultGroups.h"

#include <string>

namespace metrisk {

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
/// Written together with the default false accept option.
void WriteBaselineDefaults(Settings& settings, const BaselineDefaults& defaults, int falseAcceptOption);

/// The default false accept option: 0 Consumer, 1 Producer.
int ReadFalseAcceptConvention(const Settings& settings);
void WriteFalseAcceptConvention(Settings& settings, int falseAcceptOption);

} // namespace metrisk
