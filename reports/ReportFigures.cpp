#include "reports/ReportFigures.h"

#include "base/NumberText.h"
#include "uncertainty/EffectiveFreedom.h"

namespace metrisk {

std::string figureText(double value, int decimals, const Regional& regional) {
    return FormatNumber(value, PictureForDecimals(DecimalsOfValue(value, decimals)), regional);
}

std::string shortFigure(double value, const Regional& regional) {
    return figureText(value, 0, regional);
}

std::string freedomText(double degFreedom, std::string_view picture, const Regional& regional) {
    if (degFreedom == 0 || degFreedom > largestDegFreedom) return "Infinite";
    return FormatNumber(degFreedom, picture, regional);
}

} // namespace metrisk
