// Published figures of readings, decision rules, worst cases, strategies and counts.
#pragma once

#include "selfcheck/CheckInputs.h"

namespace metrisk {

/// None for a group that is not one of these. Raises Unknown for a figure or an input that is none.
std::optional<Computed> decisionCase(const std::string& group, const std::string& figure,
                                     const Fields& inputs);

} // namespace metrisk
