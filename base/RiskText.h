// The text of a risk wherever one is shown.
#pragma once

#include "base/DisplayRule.h"
#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// The value in its picture, without its units; a ppm value below 1 is " < 1".
std::string riskText(const ShownRisk& risk, std::string_view picture, const Regional& regional);

} // namespace metrisk
