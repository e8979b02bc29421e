#include "desk/appearance/ScreenFonts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace metrisk {

namespace {

constexpr double designWidth = 1024;
constexpr double designHeight = 768;
constexpr double designPixelsPerInch = 120;
constexpr double smallSystemFont = 8.25;
using FontSizeSteps = std::array<double, 12>;
constexpr FontSizeSteps smallSteps = {6.6, 7.8, 9.6, 10.8, 12, 13.8, 14.4, 18, 19.2, 24, 30, 36};
constexpr FontSizeSteps largeSteps = {7.1, 8.25, 9.75, 12, 13.5, 15, 17.25, 18, 22.5, 24, 30, 36};

} // namespace

ScreenScale screenScale(double pixelsAcross, double pixelsDown, double pixelsPerInch) {
    const double ofInch = designPixelsPerInch / pixelsPerInch;
    return {pixelsAcross / designWidth * ofInch, pixelsDown / designHeight * ofInch};
}

double steppedFontSize(double points, int steps) {
    const FontSizeSteps& row = points == smallSystemFont ? smallSteps : largeSteps;
    const auto nearest = std::ranges::min_element(
        row, {}, [points](double size) { return std::fabs(std::log(size / points)); });
    const int last = static_cast<int>(row.size()) - 1;
    const int index = std::clamp(static_cast<int>(nearest - row.begin()) + steps, 0, last);
    return points * row[static_cast<std::size_t>(index)] / *nearest;
}

std::string_view substituteFont(std::string_view name) {
    return name == "MS Sans Serif" ? "Arial" : name;
}

} // namespace metrisk
