#include "plots/SamplePicture.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr Colour barColour{70, 130, 180};
constexpr Colour meanColour{220, 120, 0};
constexpr Colour limitColour{200, 50, 50};

/// Half the bars that would show each value alone, as many as the root of their number.
std::size_t barCount(std::size_t values) {
    return static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(values)))) + 1;
}

} // namespace

void drawSamples(DrawingSurface& surface, const SamplePicture& picture) {
    surface.Cls();
    if (picture.values.size() < 2) return;
    const auto [low, high] = std::minmax_element(picture.values.begin(), picture.values.end());
    const double width = *high - *low;
    const double from = std::min(*low, picture.mean - picture.limit);
    const double to = std::max(*high, picture.mean + picture.limit);
    if (!(width > 0) || !std::isfinite(to - from)) return;

    std::vector<int> bars(barCount(picture.values.size()));
    for (const double value : picture.values) {
        const double place = (value - *low) / width * static_cast<double>(bars.size());
        ++bars[std::min(static_cast<std::size_t>(place), bars.size() - 1)];
    }
    const double highest = *std::max_element(bars.begin(), bars.end());

    // From 0 to 1 across, whatever the values are; room for the mean's text above.
    const double margin = 0.04;
    surface.Scale(-margin, 1.3, 1 + margin, -margin);
    const auto across = [&](double value) { return (value - from) / (to - from); };
    const double step = width / static_cast<double>(bars.size());
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (bars[i] == 0) continue;
        const double left = across(*low + step * static_cast<double>(i));
        surface.Box(left, 0, left + 0.92 * step / (to - from), bars[i] / highest, barColour);
    }
    surface.Line(0, 0, 1, 0, surface.ink());
    surface.DrawWidth = 2;
    if (picture.limit > 0)
        for (const double end : {picture.mean - picture.limit, picture.mean + picture.limit})
            surface.Line(across(end), 0, across(end), 1, limitColour);
    const double mean = across(picture.mean);
    surface.Line(mean, 0, mean, 1.05, meanColour);
    surface.DrawWidth = 1;
    surface.ForeColor = surface.ink();
    surface.CurrentY = 1.28;
    surface.CurrentX = std::clamp(mean - surface.TextWidth(picture.meanText) / 2, 0.0,
                                  std::max(1 - surface.TextWidth(picture.meanText), 0.0));
    surface.Print(picture.meanText);
}

} // namespace metrisk
