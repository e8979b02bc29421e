#include "base/RiskText.h"

#include "base/NumberFormat.h"
#include "base/RelativeUnits.h"

namespace metrisk {

namespace {

constexpr const char* belowOneText = " < 1";

} // namespace

std::string riskText(const ShownRisk& risk, std::string_view picture, const Regional& regional) {
    if (risk.units == ppmUnits && risk.value < 1) return belowOneText;
    return FormatNumber(risk.value, picture, regional);
}

} // namespace metrisk
