#include "reliability/ReliabilityTexts.h"

#include "base/DecimalForm.h"
#include "base/NumberText.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int coefficientDigits = 6;
constexpr double exponentBelow = 1e-6;
constexpr int fewestTimeDigits = 3;
constexpr int mostTimeDigits = 5;
constexpr const char* defaultPicture = "#,##0.000";
constexpr int mostDecimals = 13;

} // namespace

std::string coefficientText(double value, const Regional& regional) {
    if (std::fabs(value) < exponentBelow) return GeneralText(value, regional, coefficientDigits);
    const DecimalForm form = DecimalForm::of(value, coefficientDigits);
    const int decimals = static_cast<int>(form.digits.size()) - form.point;
    return FormatNumber(value, PictureForDecimals(decimals), regional);
}

std::string timeText(double time, const Regional& regional) {
    const DecimalForm form = DecimalForm::of(time, mostTimeDigits);
    const int digits = std::max(static_cast<int>(form.digits.size()), fewestTimeDigits);
    return FormatNumber(time, PictureForDecimals(time == 0 ? 1 : digits - form.point), regional);
}

std::string reliabilityText(double fraction, std::string_view picture, const Regional& regional) {
    const double pct = DecimalForm::of(100 * fraction).value();
    int decimals = PictureDecimals(picture.empty() ? defaultPicture : picture);
    while (pct < 100 && roundedToDecimals(pct, decimals) >= 100 && decimals < mostDecimals) ++decimals;
    return FormatNumber(pct, PictureForDecimals(decimals), regional);
}

} // namespace metrisk
