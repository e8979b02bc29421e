#include "drawing/Chart.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "drawing/PlotScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace metrisk {

namespace {

constexpr int divisions = 5;
constexpr int mostTicks = 8;   // at round numbers
constexpr double tick = 0.015; // in shares of the other axis
constexpr double thinLine = 1, thickLine = 3;
constexpr double markSize = 0.006;
constexpr double dotSize = 8;           // device units
constexpr double dash = 7, dashGap = 4; // device units

double shareOf(double value, const Axis& axis) {
    return axis.to == axis.from ? 0 : (value - axis.from) / (axis.to - axis.from);
}

/// Two digits of the step, or fewer if they tell all of it.
int decimalsFor(double step, int atLeast) {
    if (!(step > 0)) return atLeast;
    const int twoDigits =
        std::clamp(1 - static_cast<int>(std::floor(std::log10(step))), 0, maxPictureDecimals);
    return std::max(atLeast, std::min(DecimalsOfValue(step, atLeast), twoDigits));
}

/// Calls draw(place, value), the place as a share of the axis.
template <class Draw>
void forTicks(const Axis& axis, Draw draw) {
    const double count = (axis.to - axis.firstTick) / axis.step;
    if (!(count >= 0 && count < 100)) return;
    for (int i = 0; i <= count + 1e-6; ++i) {
        const double value = axis.firstTick + i * axis.step;
        draw(shareOf(value, axis), value);
    }
}

class Drawer {
  public:
    Drawer(DrawingSurface& surface, const Chart& chart, const Regional& regional)
        : surface_(surface), chart_(chart), regional_(regional) {
        surface.ForeColor = surface.ink();
        surface.Font = {};
        title_ = titleLines(surface, chart.title, surface.deviceWidth() - 4);
        const double line = surface.deviceLengthY(surface.TextHeight());
        double lastLabel = labelWidth(surface, chart.x, regional) / 2;
        for (const Series& each : chart.series)
            lastLabel = std::max(lastLabel, surface.deviceLengthX(surface.TextWidth(each.atEnd)) + 10);
        const double besideTick = 0.03 * surface.deviceWidth();
        const auto beside = [&](const Axis& axis) {
            return labelWidth(surface, axis, regional) + besideTick;
        };
        frame_ = setFrame(surface, {-0.16, 1.22, chart.right ? 1.16 : 1.06, -0.26},
                          {.left = beside(chart.left),
                           .top = titleRoom(surface, title_.size()),
                           .right = std::max(lastLabel, chart.right ? beside(*chart.right) : 0),
                           .bottom = line * (bottomAxisLines + (chart.series.size() > 1 ? 1.5 : 0))});
    }

    void draw() {
        grid();
        DrawAxis(surface_, chart_.x, AxisSide::Bottom, frame_, regional_);
        DrawAxis(surface_, chart_.left, AxisSide::Left, frame_, regional_);
        if (chart_.right) DrawAxis(surface_, *chart_.right, AxisSide::Right, frame_, regional_);
        drawTitle(surface_, frame_, title_);
        if (chart_.series.size() > 1) legend();
        for (const Series& each : chart_.series) curve(each);
        present();
        for (const Series& each : chart_.series) marks(each);
        crossing();
        endNames();
    }

  private:
    void grid() {
        surface_.DrawWidth = thinLine;
        const Colour faint = plotColours::grid.on(surface_.paper());
        forTicks(chart_.x, [&](double at, double) { surface_.Line(at, 0, at, 1, faint); });
        forTicks(chart_.left, [&](double at, double) { surface_.Line(0, at, 1, at, faint); });
    }

    void legend() {
        constexpr double sample = 0.05, gap = 0.02;
        double width = -2 * gap;
        for (const Series& each : chart_.series) width += sample + 3 * gap + surface_.TextWidth(each.name);
        double x = 0.5 - width / 2;
        const double y = -tick + 3.1 * surface_.TextHeight();
        surface_.DrawWidth = thickLine;
        for (const Series& each : chart_.series) {
            const double middle = y + surface_.TextHeight() / 2;
            const double step = each.dashed ? sample / 2.4 : sample;
            for (double from = x; from < x + sample * 0.99; from += 1.4 * step)
                surface_.Line(from, middle, std::min(from + step, x + sample), middle,
                              each.colour.on(surface_.paper()));
            PrintAt(surface_, each.name, x + sample + gap, y, 0);
            x += sample + 3 * gap + surface_.TextWidth(each.name);
        }
    }

    Point place(const Series& series, Point point) const {
        const Axis& y = series.onRight && chart_.right ? *chart_.right : chart_.left;
        return {shareOf(point.x, chart_.x), shareOf(point.y, y)};
    }

    void curve(const Series& series) {
        surface_.DrawWidth = chart_.thick ? thickLine : thinLine;
        const Colour colour = series.colour.on(surface_.paper());
        double drawn = 0; // device units of the present dash or gap
        bool inDash = true;
        for (std::size_t i = 1; i < series.points.size(); ++i) {
            Point from = place(series, series.points[i - 1]);
            const Point to = place(series, series.points[i]);
            while (true) {
                const double length =
                    std::hypot(surface_.deviceLengthX(to.x - from.x), surface_.deviceLengthY(to.y - from.y));
                const double left = (inDash ? dash : dashGap) - drawn;
                if (!series.dashed || !(length > left)) {
                    if (inDash) surface_.Line(from.x, from.y, to.x, to.y, colour);
                    drawn += length;
                    break;
                }
                const double part = left / length;
                const Point next{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
                if (inDash) surface_.Line(from.x, from.y, next.x, next.y, colour);
                from = next;
                drawn = 0;
                inDash = !inDash;
            }
        }
    }

    /// The round ends of a line of next to no length.
    void dot(Point at, Colour colour) {
        surface_.DrawWidth = dotSize;
        surface_.Line(at.x, at.y, at.x + 0.1 / std::max(1.0, surface_.deviceLengthX(1)), at.y, colour);
        surface_.DrawWidth = thinLine;
    }

    void present() {
        if (!chart_.present) return;
        const double x = shareOf(chart_.present->x, chart_.x);
        if (!(x >= 0 && x <= 1)) return;
        const Colour second = plotColours::second.on(surface_.paper());
        const double step = 3 / std::max(1.0, surface_.deviceLengthY(1));
        surface_.DrawWidth = thinLine;
        for (double y = 0; y < 1; y += 2 * step) surface_.Line(x, y, x, std::min(1.0, y + step), second);
        for (std::size_t i = 0; i < chart_.series.size() && i < chart_.present->heights.size(); ++i) {
            const Series& series = chart_.series[i];
            const Point at = place(series, {chart_.present->x, chart_.present->heights[i]});
            if (at.y >= 0 && at.y <= 1) dot(at, series.colour.on(surface_.paper()));
        }
        // Between the titles of the axes, which stand in the same line.
        const double width = surface_.TextWidth(chart_.present->told);
        const double left = 0.5 * surface_.TextWidth(chart_.left.title) + 0.02;
        const double right = chart_.right ? 1 - 0.5 * surface_.TextWidth(chart_.right->title) - 0.02 : 1;
        if (width > right - left) return;
        surface_.ForeColor = second;
        PrintAt(surface_, chart_.present->told, std::clamp(x - width / 2, left, right - width), 1, -1.2);
        surface_.ForeColor = surface_.ink();
    }

    /// In free space, with a line that leads to it.
    void crossing() {
        if (!chart_.crossing || chart_.series.empty()) return;
        const Point at = place(chart_.series.front(), chart_.crossing->at);
        const double line = -surface_.TextHeight();
        const double width = surface_.TextWidth(chart_.crossing->name);
        for (const double up : {0.32, 0.24, 0.42, 0.16})
            for (const double aside : {0.08, -0.08, 0.16, -0.16}) {
                const double left = aside > 0 ? at.x + aside : at.x + aside - width;
                const Name name{left, left + width, at.y + up, at.y + up - line};
                if (name.left < 0.01 || name.right > 0.99 || name.top > 0.99 || !isFree(name)) continue;
                const Colour second = plotColours::second.on(surface_.paper());
                surface_.DrawWidth = thinLine;
                surface_.Line(at.x, at.y, aside > 0 ? left : name.right, name.bottom, second);
                surface_.ForeColor = second;
                PrintAt(surface_, chart_.crossing->name, name.left, name.top, 0);
                surface_.ForeColor = surface_.ink();
                names_.push_back(name);
                return;
            }
    }

    /// Behind the last points, a line apart.
    void endNames() {
        const double line = -surface_.TextHeight();
        std::vector<double> taken;
        for (const Series& each : chart_.series) {
            if (each.atEnd.empty() || each.points.empty()) continue;
            const Point at = place(each, each.points.back());
            double y = std::clamp(at.y, 0.5 * line, 1 - 0.5 * line);
            for (const double other : taken)
                if (std::abs(y - other) < line) y = y >= other ? other + line : other - line;
            taken.push_back(y);
            surface_.ForeColor = each.colour.on(surface_.paper());
            surface_.Font.Bold = true;
            PrintAt(surface_, each.atEnd, 1 + 6 / std::max(1.0, surface_.deviceLengthX(1)), y, -0.5);
            surface_.Font.Bold = false;
        }
        surface_.ForeColor = surface_.ink();
    }

    void marks(const Series& series) {
        for (const ChartMark& mark : series.marks) {
            const Point at = place(series, mark.at);
            surface_.Box(at.x - markSize, at.y - markSize, at.x + markSize, at.y + markSize,
                         series.colour.on(surface_.paper()));
            if (mark.name.empty()) continue;
            const Name name = nameAt(at, surface_.TextWidth(mark.name), mark.above);
            names_.push_back(name);
            surface_.ForeColor = series.colour.on(surface_.paper());
            PrintAt(surface_, mark.name, name.left, name.top, 0);
            surface_.ForeColor = surface_.ink();
        }
    }

    struct Name {
        double left, right, top, bottom;
    };

    /// Beside its mark, within the axes, where neither another name nor a curve is; right above it if there
    /// is no such place.
    Name nameAt(Point at, double width, bool above) const {
        constexpr double edge = 2 * markSize;
        const double line = -surface_.TextHeight();
        const auto name = [&](double x, double top) {
            const double left = std::clamp(x, edge, std::max(1 - edge - width, edge));
            return Name{left, left + width, top, top - line};
        };
        for (const double away : {0.0, 1.2, 2.4, 3.6, 4.8})
            for (const bool up : {above, !above})
                for (const double x : {at.x - width / 2, at.x - width - 2 * edge, at.x + 2 * edge,
                                       at.x - width - 0.08, at.x - width - 0.16}) {
                    const double top = up ? at.y + (1.3 + away) * line : at.y - (0.3 + away) * line;
                    const Name found = name(x, top);
                    if (found.bottom > edge && found.top < 1 && isFree(found)) return found;
                }
        return name(at.x - width / 2, at.y + 1.3 * line);
    }

    bool isFree(const Name& name) const {
        for (const Name& other : names_)
            if (name.left < other.right && other.left < name.right && name.bottom < other.top &&
                other.bottom < name.top)
                return false;
        for (const Series& series : chart_.series)
            for (std::size_t i = 1; i < series.points.size(); ++i)
                if (crosses(place(series, series.points[i - 1]), place(series, series.points[i]), name))
                    return false;
        return true;
    }

    static bool crosses(Point a, Point b, const Name& name) {
        if (b.x < a.x) std::swap(a, b);
        if (b.x < name.left || a.x > name.right) return false;
        const auto at = [&](double x) {
            return b.x > a.x ? a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x) : b.y;
        };
        const double first = at(std::max(a.x, name.left));
        const double last = at(std::min(b.x, name.right));
        return std::max(first, last) > name.bottom && std::min(first, last) < name.top;
    }

    DrawingSurface& surface_;
    const Chart& chart_;
    const Regional& regional_;
    PlotFrame frame_;
    std::vector<std::string> title_;
    std::vector<Name> names_;
};

} // namespace

namespace {

std::string tickLabel(const Axis& axis, double value, const Regional& regional) {
    return FormatNumber(value, PictureForDecimals(axis.decimals), regional);
}

} // namespace

double labelWidth(const DrawingSurface& surface, const Axis& axis, const Regional& regional) {
    double widest = 0;
    forTicks(axis, [&](double, double value) {
        widest = std::max(widest, surface.deviceLengthX(surface.TextWidth(tickLabel(axis, value, regional))));
    });
    return widest;
}

void DrawAxis(DrawingSurface& surface, const Axis& axis, AxisSide side, const PlotFrame& frame,
              const Regional& regional) {
    // Begun so that it ends within the picture.
    const auto begin = [&](const std::string& text, double middle) {
        const double width = surface.TextWidth(text);
        const double edge = 0.01;
        return std::max(frame.left + edge, std::min(middle - width / 2, frame.right - edge - width));
    };
    if (side == AxisSide::Bottom) {
        surface.Line(0, 0, 1, 0);
        forTicks(axis, [&](double at, double value) {
            surface.Line(at, 0, at, -tick);
            const std::string text = tickLabel(axis, value, regional);
            PrintAt(surface, text, begin(text, at), -tick, 0.2);
        });
        PrintAt(surface, axis.title, begin(axis.title, 0.5), -tick, 1.6);
        return;
    }
    const bool right = side == AxisSide::Right;
    const double x = right ? 1 : 0;
    const double out = right ? tick : -tick;
    surface.Line(x, 0, x, 1);
    const Colour before = surface.ForeColor;
    surface.ForeColor = axis.colour ? axis.colour->on(surface.paper()) : before;
    forTicks(axis, [&](double at, double value) {
        surface.Line(x, at, x + out, at, before);
        const std::string text = tickLabel(axis, value, regional);
        PrintAt(surface, text, x + 1.6 * out - (right ? 0 : surface.TextWidth(text)), at, -0.5);
    });
    PrintAt(surface, axis.title, begin(axis.title, x), 1, -1.7);
    surface.ForeColor = before;
}

Axis axisOver(std::string title, double from, double to, int decimals) {
    const double step = (to - from) / divisions;
    return {std::move(title), from, to, from, step, decimalsFor(step, decimals)};
}

Axis roundAxisOver(std::string title, double from, double to) {
    const double least = (to - from) / mostTicks;
    if (!(least > 0)) return axisOver(std::move(title), from, to);
    const double decade = std::pow(10, std::floor(std::log10(least)));
    double step = 10 * decade;
    for (const double digit : {5.0, 2.0, 1.0})
        if (digit * decade >= least * (1 - 1e-9)) step = digit * decade;
    return {std::move(title), from, to, std::ceil(from / step - 1e-9) * step, step, decimalsFor(step, 0)};
}

std::string inWords(const Chart& chart, const Regional& regional) {
    const auto span = [&](const Axis& axis) {
        const std::string picture = PictureForDecimals(axis.decimals);
        return axis.title + " from " + FormatNumber(axis.from, picture, regional) + " to " +
               FormatNumber(axis.to, picture, regional);
    };
    std::string text = chart.title + ". " + span(chart.x) + "; " + span(chart.left);
    if (chart.right) text += "; " + span(*chart.right);
    for (const Series& each : chart.series)
        for (const ChartMark& mark : each.marks)
            text += "; " + (mark.name.empty()
                                ? each.name + " at " +
                                      FormatNumber(mark.at.x, PictureForDecimals(chart.x.decimals), regional)
                                : mark.name);
    return text;
}

void DrawChart(DrawingSurface& surface, const Chart& chart, const Regional& regional,
               const std::string& whenEmpty) {
    if (!chart.empty()) return Drawer(surface, chart, regional).draw();
    surface.Scale(0, 1, 1, 0);
    surface.Font = {};
    surface.ForeColor = plotColours::second.on(surface.paper());
    PrintCentredAt(surface, whenEmpty, 0.5, 0.5, -0.5);
    surface.ForeColor = surface.ink();
}

} // namespace metrisk
