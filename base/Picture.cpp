#include "base/Picture.h"

#include "base/DecimalForm.h"

#include <algorithm>
#include <cmath>

namespace metrisk {
namespace {

/// A double shows 15 digits; at 14 decimals every value of daily size is complete.
constexpr int allDecimals = 14;
constexpr int widestDecimals = 11;

} // namespace

std::string PictureForDecimals(int n) {
    std::string picture = "#,##0";
    if (n >= 1) picture += '.' + std::string(static_cast<std::size_t>(std::min(n, maxPictureDecimals)), '0');
    return picture;
}

int PictureDecimals(std::string_view picture) {
    const std::size_t point = picture.find('.');
    if (point == picture.npos) return 0;
    const auto isPlace = [](char c) { return c == '0' || c == '#'; };
    const auto places = std::ranges::count_if(picture.substr(point), isPlace);
    return static_cast<int>(std::min<std::ptrdiff_t>(places, maxPictureDecimals));
}

std::string WidenPicture(double value, std::string_view picture) {
    if (value == 0 || !std::isfinite(value)) return std::string(picture);
    const int decimals = PictureDecimals(picture);
    const int firstDigit = 1 - DecimalForm::of(value).point;
    if (firstDigit <= decimals) return std::string(picture);
    return PictureForDecimals(std::max(decimals, std::min(firstDigit, widestDecimals)));
}

std::string RatioPicture(double value, double tolerance) {
    if (value == 0 || !std::isfinite(value)) return "###";
    const double magnitude = std::fabs(value);
    const double target = roundedToDecimals(magnitude, allDecimals);
    if (target == 0) return "##0";
    int n = 0;
    while (n < allDecimals && !(std::fabs(roundedToDecimals(magnitude, n) - target) <= tolerance * target))
        ++n;
    return PictureForDecimals(n);
}

int DecimalsOfValue(double value, int n) {
    const double target = roundedToDecimals(value, allDecimals);
    n = std::max(n, 0);
    while (n < allDecimals && roundedToDecimals(value, n) != target) ++n;
    return n;
}

std::string HeldOffsetPicture(int decimalsTyped, int shift) {
    return PictureForDecimals(decimalsTyped + shift);
}

std::string ShownOffsetPicture(std::string_view heldPicture, int shift) {
    return PictureForDecimals(PictureDecimals(heldPicture) - shift);
}

} // namespace metrisk
