// A map of levels over a grid as a value, and how it is drawn: bands, contour lines, axes and a scale.
#pragma once

#include "drawing/Chart.h"

#include <span>
#include <string>
#include <vector>

namespace metrisk {

/// Where two bands meet.
struct ContourLevel {
    double value;
    std::string name;
};

struct ContourMap {
    std::string title;
    std::string scaleTitle;
    Axis x, y;
    std::size_t columns = 0;     // of the grid, whose outer points stand on the ends of the axes
    std::size_t rows = 0;        // from the lower end of y
    std::vector<float> values{}; // row by row, none below 0; not a number: hatched
    std::vector<ContourLevel> levels{};
    std::optional<Point> here{}; // in units of the axes

    bool empty() const { return values.empty(); }
};

/// Round numbers between the least and the greatest value, at most a dozen: in equal steps, or 1, 2 and 5 of
/// each decade where the values span more than one.
std::vector<double> roundLevels(std::span<const float> values);

/// Fills the surface and returns where its parts lie. An empty map leaves it blank.
PlotFrame DrawContourMap(DrawingSurface& surface, const ContourMap& map, const Regional& regional);

/// A place of the picture (shares of its width and height from the top left) as shares of the axes; none
/// outside of them.
std::optional<Point> placeOnMap(const PlotFrame& frame, double x, double y);

} // namespace metrisk
