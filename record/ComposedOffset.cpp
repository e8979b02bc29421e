#include "record/ComposedOffset.h"

#include "base/DecimalForm.h"
#include "base/Picture.h"
#include "base/Real.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

ComposedOffset composeOffset(const OffsetParts& parts, double mode) {
    const double value = checked(parts.fixed + std::fabs(mode) * parts.pctReading / 100);
    // A percent is two decimals away from the reading that it is a part of.
    const int pctDecimals = parts.pctReading == 0 ? 0 : PictureDecimals(parts.pctPicture) + 2;
    const int decimals = std::max(PictureDecimals(parts.fixedPicture), pctDecimals);
    return {value, fullPicture(value, PictureForDecimals(decimals))};
}

std::string fullPicture(double value, std::string_view picture) {
    if (value == 0 || !std::isfinite(value)) return std::string(picture);
    const DecimalForm six = DecimalForm::of(value, 6);
    const int needed = static_cast<int>(six.digits.size()) - six.point;
    return needed > PictureDecimals(picture) ? PictureForDecimals(needed) : std::string(picture);
}

void followReading(double& offset, double& fixed, double pctReading, bool ppm, double before, double mode) {
    const double scale = ppm && before != 0 && mode != 0 ? std::fabs(mode / before) : 1;
    double rest = offset - std::fabs(before) * pctReading / 100;
    if (std::fabs(rest - fixed) <= 1e-12 * std::fabs(offset)) rest = fixed; // no trace of the difference
    offset = checked(rest * scale + std::fabs(mode) * pctReading / 100);
    fixed = checked(fixed * scale);
}

} // namespace metrisk
