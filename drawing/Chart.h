// Curves over one quantity as a value, and how they are drawn: axes, grid, curves, marks and legend.
#pragma once

#include "base/Regional.h"
#include "drawing/DrawingSurface.h"
#include "drawing/PaperColours.h"
#include "drawing/PlotFrame.h"

#include <optional>
#include <string>
#include <vector>

namespace metrisk {

struct Axis {
    std::string title;
    double from = 0, to = 1;
    double firstTick = 0, step = 1;     // ticks stand at equal steps up to the end
    int decimals = 0;                   // of the labels at its ticks
    std::optional<PlotColour> colour{}; // of its texts, if not the surface's own
};

/// An axis in five parts, whose labels have at least so many decimals, and enough to tell a tick from the
/// next.
Axis axisOver(std::string title, double from, double to, int decimals = 0);
/// An axis with ticks at round numbers.
Axis roundAxisOver(std::string title, double from, double to);

enum class AxisSide { Bottom, Left, Right };

/// Draws it around the square from (0, 0) to (1, 1): line, ticks, labels and title.
void DrawAxis(DrawingSurface& surface, const Axis& axis, AxisSide side, const PlotFrame& frame,
              const Regional& regional);

/// The width of the widest label at its ticks, device units.
double labelWidth(const DrawingSurface& surface, const Axis& axis, const Regional& regional);

/// Lines of text below the bottom axis: its labels and its title.
inline constexpr double bottomAxisLines = 2.9;

/// A point that stands out, and what it is called, if by a name of its own.
struct ChartMark {
    Point at;
    std::string name;
    bool above = true; // where the name stands
};

struct Series {
    std::string name; // in the legend
    PlotColour colour;
    bool onRight = false; // belongs to the right axis
    bool dashed = false;
    std::string atEnd{}; // its name behind its last point
    std::vector<Point> points{};
    std::vector<ChartMark> marks{};
};

/// A value of the axis that stands out: a dotted line, what is told of it above, and dots on the curves.
struct ChartLine {
    double x = 0;
    std::string told;
    std::vector<double> heights{}; // one a series, on its axis
};

struct Chart {
    std::string title;
    Axis x, left;
    std::optional<Axis> right{}; // none: all curves stand on the left axis
    std::vector<Series> series{};
    bool thick = false;
    std::optional<ChartLine> present{};
    std::optional<ChartMark> crossing{}; // of the first two series, on the left axis

    bool empty() const { return series.empty(); }
};

/// What a chart shows, for those who do not see it.
std::string inWords(const Chart& chart, const Regional& regional);

/// Fills the surface: the axes span from (0, 0) to (1, 1) in its coordinates. An empty chart leaves it blank
/// but for those words in its middle.
void DrawChart(DrawingSurface& surface, const Chart& chart, const Regional& regional,
               const std::string& whenEmpty = "");

} // namespace metrisk
