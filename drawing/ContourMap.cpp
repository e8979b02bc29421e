#include "drawing/ContourMap.h"

#include "drawing/PlotScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace metrisk {

namespace {

constexpr std::size_t mostLevels = 12;
constexpr Colour lineColour{70, 40, 20};
constexpr Colour hereColour{0, 70, 190};
constexpr std::array<Colour, 5> ramp{
    {{255, 255, 225}, {254, 217, 118}, {253, 141, 60}, {189, 40, 40}, {90, 10, 50}}};

constexpr Colour hatchColour{130, 130, 130};
constexpr double hatchStep = 7;    // device units
constexpr double mostUnits = 2000; // that are coloured one by one
constexpr const char* notComputed = "Not computed";

Colour rampAt(double share) {
    const double at = std::clamp(share, 0.0, 1.0) * (ramp.size() - 1);
    const auto i = std::min(static_cast<std::size_t>(at), ramp.size() - 2);
    return between(ramp[i], ramp[i + 1], at - static_cast<double>(i));
}

/// How far a level lies from a to b; risks fall by decades, so by logarithms where there are any.
double crossing(double a, double b, double level) {
    if (a > 0 && b > 0) return std::log(level / a) / std::log(b / a);
    return (level - a) / (b - a);
}

class Drawer {
  public:
    Drawer(DrawingSurface& surface, const ContourMap& map, const Regional& regional)
        : surface_(surface), map_(map), regional_(regional) {
        surface.ForeColor = surface.ink();
        surface.Font = {};
        surface.DrawWidth = 1;
        for (const float each : map.values) logarithms_.push_back(std::log(static_cast<double>(each)));
        hasHoles_ = std::ranges::any_of(map.values, [](float value) { return std::isnan(value); });
        title_ = titleLines(surface, map.title, surface.deviceWidth() - 4);
        double names = 0;
        for (const ContourLevel& level : map.levels)
            names = std::max(names, surface.deviceLengthX(surface.TextWidth(level.name)));
        const double width = surface.deviceWidth();
        const double line = surface.deviceLengthY(surface.TextHeight());
        frame_ = setFrame(surface, {-0.16, 1.22, 1.28, -0.18},
                          {.left = labelWidth(surface, map.y, regional) + 0.03 * width,
                           .top = titleRoom(surface, title_.size()),
                           .right = names + 0.12 * width,
                           .bottom = line * (bottomAxisLines + (hasHoles_ ? 1.4 : 0))});
    }

    PlotFrame draw() {
        bands();
        if (hasHoles_) holes();
        for (const ContourLevel& level : map_.levels) contour(level.value);
        DrawAxis(surface_, map_.x, AxisSide::Bottom, frame_, regional_);
        DrawAxis(surface_, map_.y, AxisSide::Left, frame_, regional_);
        drawTitle(surface_, frame_, title_);
        scale();
        if (hasHoles_) key();
        if (map_.here) here(*map_.here);
        return frame_;
    }

  private:
    double value(std::size_t column, std::size_t row) const {
        return static_cast<double>(map_.values[row * map_.columns + column]);
    }
    double xOf(double column) const { return column / static_cast<double>(map_.columns - 1); }
    double yOf(double row) const { return row / static_cast<double>(map_.rows - 1); }

    /// -1 where there is no value, else the number of levels below it.
    int bandOf(double value) const {
        if (std::isnan(value)) return -1;
        const auto above =
            std::upper_bound(map_.levels.begin(), map_.levels.end(), value,
                             [](double v, const ContourLevel& level) { return v < level.value; });
        return static_cast<int>(above - map_.levels.begin());
    }
    Colour colourOf(int band) const {
        return rampAt(static_cast<double>(band) /
                      std::max<double>(1, static_cast<double>(map_.levels.size())));
    }

    /// The value between four points, by logarithms where they have any, as the lines run; that of the
    /// nearest where one of them has none.
    double valueAt(double x, double y) const {
        const double column = x * static_cast<double>(map_.columns - 1);
        const double row = y * static_cast<double>(map_.rows - 1);
        const auto left = std::min(static_cast<std::size_t>(column), map_.columns - 2);
        const auto low = std::min(static_cast<std::size_t>(row), map_.rows - 2);
        const double across = column - static_cast<double>(left);
        const double up = row - static_cast<double>(low);
        const std::size_t at = low * map_.columns + left;
        const std::array<std::size_t, 4> places{at, at + 1, at + map_.columns, at + map_.columns + 1};
        std::array<double, 4> corners{};
        for (std::size_t i = 0; i < 4; ++i) corners[i] = static_cast<double>(map_.values[places[i]]);
        if (std::ranges::any_of(corners, [](double corner) { return std::isnan(corner); }))
            return corners[(across < 0.5 ? 0u : 1u) + (up < 0.5 ? 0u : 2u)];
        const bool byLogarithms = std::ranges::all_of(corners, [](double corner) { return corner > 0; });
        if (byLogarithms)
            for (std::size_t i = 0; i < 4; ++i) corners[i] = logarithms_[places[i]];
        const double between = (corners[0] * (1 - across) + corners[1] * across) * (1 - up) +
                               (corners[2] * (1 - across) + corners[3] * across) * up;
        return byLogarithms ? std::exp(between) : between;
    }

    /// Each device unit has the colour of the value in its middle; equal ones in a row are one box. A box
    /// reaches under the next, so that no seam shows between them.
    void bands() {
        const auto units = [](double length) {
            return static_cast<int>(std::clamp(std::ceil(length), 1.0, mostUnits));
        };
        const int columns = units(surface_.deviceLengthX(1));
        const int rows = units(surface_.deviceLengthY(1));
        const auto bandAt = [&](int column, int row) {
            return bandOf(valueAt((column + 0.5) / columns, (row + 0.5) / rows));
        };
        for (int row = 0; row < rows; ++row) {
            const double low = static_cast<double>(row) / rows;
            const double high = std::min(1.0, (row + 2.0) / rows);
            int band = bandAt(0, row);
            for (int first = 0, last = 1; first < columns; first = last++) {
                int next = band;
                while (last < columns && (next = bandAt(last, row)) == band) ++last;
                surface_.Box(static_cast<double>(first) / columns, low, std::min(1.0, (last + 1.0) / columns),
                             high, band < 0 ? surface_.paper() : colourOf(band));
                band = next;
            }
        }
    }

    /// Lines at an angle over the rectangle, which go on in one beside it.
    void hatch(double left, double low, double right, double high) {
        const double x = surface_.deviceLengthX(1);
        const double y = surface_.deviceLengthY(1);
        if (!(x > 0 && y > 0)) return;
        const double from = left * x + low * y;
        const double to = right * x + high * y;
        for (double at = std::ceil(from / hatchStep) * hatchStep; at <= to; at += hatchStep) {
            const double begin = std::max(left, (at - high * y) / x);
            const double end = std::min(right, (at - low * y) / x);
            if (end > begin) surface_.Line(begin, (at - begin * x) / y, end, (at - end * x) / y, hatchColour);
        }
    }

    /// What could not be computed is told from the least risk.
    void holes() {
        for (std::size_t row = 0; row < map_.rows; ++row) {
            const double y = static_cast<double>(row);
            for (std::size_t first = 0, last = 0; first < map_.columns; first = std::max(last, first + 1)) {
                last = first;
                while (last < map_.columns && std::isnan(value(last, row))) ++last;
                if (last == first) continue;
                hatch(std::max(0.0, xOf(static_cast<double>(first) - 0.5)), std::max(0.0, yOf(y - 0.5)),
                      std::min(1.0, xOf(static_cast<double>(last) - 0.5)), std::min(1.0, yOf(y + 0.5)));
            }
        }
    }

    void key() {
        const double line = -surface_.TextHeight();
        const double top = -bottomAxisLines * line;
        hatch(0, top - line, 0.06, top);
        PrintAt(surface_, notComputed, 0.08, top, 0);
    }

    /// The line through each cell of four points: in at one side, out at another.
    void contour(double level) {
        surface_.DrawWidth = 1;
        for (std::size_t row = 0; row + 1 < map_.rows; ++row)
            for (std::size_t column = 0; column + 1 < map_.columns; ++column) cell(column, row, level);
    }

    void cell(std::size_t column, std::size_t row, double level) {
        const std::array<double, 4> corners{value(column, row), value(column + 1, row),
                                            value(column + 1, row + 1), value(column, row + 1)};
        int below = 0;
        for (const double corner : corners) {
            if (std::isnan(corner)) return;
            below += corner < level ? 1 : 0;
        }
        if (below == 0 || below == 4) return;
        constexpr std::array<Point, 4> places{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        std::array<Point, 4> ends;
        std::size_t found = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            const std::size_t j = (i + 1) % 4;
            if ((corners[i] < level) == (corners[j] < level)) continue;
            const double t = crossing(corners[i], corners[j], level);
            ends[found++] = {xOf(static_cast<double>(column) + places[i].x + t * (places[j].x - places[i].x)),
                             yOf(static_cast<double>(row) + places[i].y + t * (places[j].y - places[i].y))};
        }
        for (std::size_t i = 0; i + 1 < found; i += 2)
            surface_.Line(ends[i].x, ends[i].y, ends[i + 1].x, ends[i + 1].y, lineColour);
    }

    void scale() {
        constexpr double left = 1.05, right = 1.1;
        const double bands = static_cast<double>(map_.levels.size() + 1);
        for (std::size_t i = 0; i <= map_.levels.size(); ++i) {
            const double low = static_cast<double>(i) / bands;
            surface_.Box(left, low, right, low + 1 / bands, colourOf(static_cast<int>(i)));
            if (i > 0) PrintAt(surface_, map_.levels[i - 1].name, right + 0.01, low, -0.5);
        }
        // Where it would touch the title of the axis, the picture's own title says the same.
        const double width = surface_.TextWidth(map_.scaleTitle);
        const double begin = std::min(right - width / 2, frame_.right - 0.01 - width);
        if (begin > frame_.left + surface_.TextWidth(map_.y.title) + 0.04)
            PrintAt(surface_, map_.scaleTitle, begin, 1, -1.7);
    }

    void here(Point point) {
        const double x = (point.x - map_.x.from) / (map_.x.to - map_.x.from);
        const double y = (point.y - map_.y.from) / (map_.y.to - map_.y.from);
        if (!(x >= 0 && x <= 1 && y >= 0 && y <= 1)) return;
        constexpr double arm = 0.02;
        for (const auto& [colour, width] : {std::pair{white, 5.0}, std::pair{hereColour, 2.0}}) {
            surface_.DrawWidth = width;
            surface_.Line(x - arm, y, x + arm, y, colour);
            surface_.Line(x, y - arm, x, y + arm, colour);
        }
        surface_.DrawWidth = 1;
    }

    DrawingSurface& surface_;
    const ContourMap& map_;
    const Regional& regional_;
    std::vector<double> logarithms_; // of the values
    bool hasHoles_ = false;
    std::vector<std::string> title_;
    PlotFrame frame_;
};

} // namespace

std::vector<double> roundLevels(std::span<const float> values) {
    double least = std::numeric_limits<double>::infinity(), greatest = 0, leastAbove = least;
    for (const float value : values) {
        if (std::isnan(value)) continue;
        const auto v = static_cast<double>(value);
        least = std::min(least, v);
        greatest = std::max(greatest, v);
        if (v > 0) leastAbove = std::min(leastAbove, v);
    }
    std::vector<double> levels;
    if (!(greatest > least)) return levels;
    if (greatest <= 10 * leastAbove && least > 0) {
        const Axis ticks = roundAxisOver("", least, greatest);
        for (int i = 0; ticks.firstTick + i * ticks.step < greatest; ++i)
            if (const double level = ticks.firstTick + i * ticks.step; level > least) levels.push_back(level);
        return levels;
    }
    // From the greatest down, so that the risks that matter keep their levels.
    for (int decade = static_cast<int>(std::floor(std::log10(greatest))); levels.size() < mostLevels;
         --decade) {
        const double power = std::pow(10, decade);
        if (10 * power <= leastAbove) break;
        for (const double digit : {5.0, 2.0, 1.0})
            if (const double level = digit * power;
                level < greatest && level > least && level > leastAbove && levels.size() < mostLevels)
                levels.push_back(level);
    }
    std::reverse(levels.begin(), levels.end());
    return levels;
}

PlotFrame DrawContourMap(DrawingSurface& surface, const ContourMap& map, const Regional& regional) {
    return map.empty() ? PlotFrame{} : Drawer(surface, map, regional).draw();
}

std::optional<Point> placeOnMap(const PlotFrame& frame, double x, double y) {
    const Point place{frame.left + x * (frame.right - frame.left),
                      frame.top + y * (frame.bottom - frame.top)};
    const bool inside = place.x >= 0 && place.x <= 1 && place.y >= 0 && place.y <= 1;
    return inside ? std::optional(place) : std::nullopt;
}

} // namespace metrisk
