// How a picture is divided into a plot and the texts around it.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

class DrawingSurface;

/// Where the picture's edges lie in coordinates whose plot is the square from (0, 0) to (1, 1).
struct PlotFrame {
    double left = -0.16, top = 1.22, right = 1.06, bottom = -0.26;
};

/// What the texts beside the plot need, in device units.
struct TextRoom {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// The frame, with more room where a small picture leaves too little for its texts; the plot keeps a third of
/// it each way. Sets the surface's coordinates.
PlotFrame setFrame(DrawingSurface& surface, const PlotFrame& usual, const TextRoom& needed);

/// A title in as many lines as it needs in that width, device units: broken before "vs." and before a
/// parenthesis, between words where that is not enough. In the font of titles.
std::vector<std::string> titleLines(DrawingSurface& surface, const std::string& title, double room);

/// Those lines in bold above the plot, in the middle of the picture.
void drawTitle(DrawingSurface& surface, const PlotFrame& frame, const std::vector<std::string>& lines);

/// The height that the title and the line of axis titles below it take, device units.
double titleRoom(DrawingSurface& surface, std::size_t lines);

} // namespace metrisk
