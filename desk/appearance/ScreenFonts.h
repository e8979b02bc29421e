// How the fonts of the screens follow the size of the desktop.
#pragma once

#include <string_view>

namespace metrisk {

/// The desktop beside the one that the screens were designed on, 1024 by 768 pixels of which 120 make an
/// inch.
struct ScreenScale {
    double x;
    double y;

    /// Bold strokes run together in the small.
    bool allowsBold() const { return x >= 1; }
    /// What fonts are multiplied with: a larger desktop shows more, not larger texts.
    double ofFonts() const { return y < 1 ? y : 1; }
};
ScreenScale screenScale(double pixelsAcross, double pixelsDown, double pixelsPerInch);

/// Font sizes go in twelve steps, of which a desktop with a font of 8.25 points has a row of its own. The
/// size so many steps above or below one, in its proportion; the steps end at 36 points and at the smallest.
/// Points.
double steppedFontSize(double points, int steps);

/// "Arial" for "MS Sans Serif", which cannot be read in the small; any other name is its own.
std::string_view substituteFont(std::string_view name);

} // namespace metrisk
