#include "cli/RiskText.h"

#include "model/DisplayRule.h"
#include "model/NumberFormat.h"

#include <cmath>

namespace metrisk::cli {

std::string riskText(double fraction, std::string (*picture)(std::string_view units)) {
    if (std::isnan(fraction)) return "not computed";
    const ShownRisk shown = shownRisk(fraction);
    if (shown.units == ppmUnits && shown.value < 1) return "< 1 ppm";
    return FormatNumber(shown.value, picture(shown.units), {}) + " " + shown.units;
}

} // namespace metrisk::cli
