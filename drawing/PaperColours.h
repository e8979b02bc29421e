// What plots are drawn in, on white paper and on the dark ground of a desktop.
#pragma once

#include "drawing/DrawingSurface.h"

namespace metrisk {

/// A colour by its paper. Curves and limits keep 3 to 1 to either, texts 4.5.
struct PlotColour {
    Colour onLight, onDark;

    Colour on(Colour paper) const {
        constexpr int middle = 3 * 128;
        return paper.red + paper.green + paper.blue < middle ? onDark : onLight;
    }
    bool operator==(const PlotColour&) const = default;
};

namespace plotColours {

inline constexpr PlotColour limit{{128, 0, 0}, {255, 143, 134}};
inline constexpr PlotColour curve{{51, 56, 62}, {221, 225, 230}};
inline constexpr PlotColour grid{{218, 221, 225}, {54, 59, 65}};
inline constexpr PlotColour second{{79, 86, 94}, {174, 180, 187}};
// Told apart by a dash, a hatching or a name as well: they differ in hue alone.
inline constexpr PlotColour falseAccept{{31, 102, 184}, {111, 176, 242}};
inline constexpr PlotColour falseReject{{178, 78, 0}, {242, 152, 74}};

} // namespace plotColours

} // namespace metrisk
