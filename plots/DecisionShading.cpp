#include "plots/DecisionShading.h"

#include "drawing/PaperColours.h"
#include "drawing/PlotScale.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace metrisk {

namespace {

constexpr double fillShare = 16.0 / 255; // of the curve's colour, under it
constexpr double tintShare = 0.35;       // of a hatching's colour, between its lines
constexpr double hatchStep = 5;          // device units
constexpr int sampleWidth = 14;          // device units, of the key
constexpr double sampleGap = 6;

Colour tint(const DrawingSurface& surface, PlotColour colour, double share) {
    return between(surface.paper(), colour.on(surface.paper()), share);
}

} // namespace

/// What is drawn in columns, at one place of the axis.
struct DecisionShading::Column {
    double height;
    double accepted; // probability; below 0 where none is known
};

/// Calls draw(x, width, column, index) for a column a device unit.
template <class Draw>
void DecisionShading::forColumns(Draw draw) const {
    const std::vector<PlotPoint>& line = plot_.line.empty() ? plot_.points : plot_.line;
    if (line.size() < 2) return;
    std::size_t next = 1;
    int index = 0;
    for (double x = 0; x < 1; x += places_.pixelX(), ++index) {
        const double middle = x + places_.pixelX() / 2;
        while (next + 1 < line.size() && static_cast<double>(line[next].x) < middle) ++next;
        const double from = static_cast<double>(line[next - 1].x), to = static_cast<double>(line[next].x);
        const double part = to > from ? std::clamp((middle - from) / (to - from), 0.0, 1.0) : 1;
        const auto mixed = [part](double a, double b) { return a + (b - a) * part; };
        const double accepted =
            decisions_ ? mixed(decisions_->accepted[next - 1], decisions_->accepted[next]) : -1;
        draw(middle, std::min(places_.pixelX(), 1 - x),
             Column{mixed(line[next - 1].density / scale_, line[next].density / scale_), accepted}, index);
    }
}

bool DecisionShading::isInTolerance(double x) const {
    return (!plot_.lowerExists || x >= static_cast<double>(plot_.positions.lower)) &&
           (!plot_.upperExists || x <= static_cast<double>(plot_.positions.upper));
}

/// The hatching is one of the whole picture and made of its own lines: a clipped pattern is drawn over the
/// whole page by some readers of files.
void DecisionShading::fill() const {
    const Colour faint = tint(surface_, plotColours::curve, fillShare);
    const Colour accept = plotColours::falseAccept.on(surface_.paper());
    forColumns([&](double middle, double width, const Column& column, int index) {
        const double left = middle - places_.pixelX() / 2;
        if (column.height < places_.pixelY()) return;
        surface_.Box(left, 0, left + width, column.height, faint);
        const double accepted = column.height * column.accepted;
        if (column.accepted < 0) return;
        if (isInTolerance(middle))
            hatch(left, width, accepted, column.height, index);
        else if (accepted > places_.pixelY() / 2)
            surface_.Box(left, 0, left + width, accepted, accept);
    });
}

void DecisionShading::hatch(double left, double width, double from, double to, int index) const {
    const double pixel = places_.pixelY();
    if (to - from < pixel / 2) return;
    surface_.Box(left, from, left + width, to, tint(surface_, plotColours::falseReject, tintShare));
    const double step = hatchStep * pixel;
    const double phase = std::fmod(static_cast<double>(index), hatchStep) * pixel;
    const Colour line = plotColours::falseReject.on(surface_.paper());
    for (double y = std::ceil((from - phase) / step) * step + phase; y + pixel <= to; y += step)
        surface_.Box(left, y, left + width, y + pixel, line);
}

double DecisionShading::highest(double from, double to) const {
    double greatest = 0;
    for (const PlotPoint& point : plot_.line)
        if (static_cast<double>(point.x) >= from && static_cast<double>(point.x) <= to)
            greatest = std::max(greatest, point.density / scale_);
    return greatest;
}

bool DecisionShading::crossesLimit(const Place& room) const {
    for (const auto& [there, at] : {std::pair{plot_.lowerExists, plot_.positions.lower},
                                    {plot_.upperExists, plot_.positions.upper},
                                    {true, plot_.positions.central}})
        if (there && static_cast<double>(at) > room.left && static_cast<double>(at) < room.right) return true;
    return false;
}

void DecisionShading::drawSample(int entry, double left, double top, double line) const {
    const double lower = top - 0.7 * line, upper = top - 0.1 * line, pixel = places_.pixelX();
    if (entry == 0)
        surface_.Box(left, lower, left + sampleWidth * pixel, upper,
                     plotColours::falseAccept.on(surface_.paper()));
    for (int column = 0; entry == 1 && column < sampleWidth; ++column)
        hatch(left + column * pixel, pixel, lower, upper, column);
}

/// Its entries below each other in the first corner that is free, else in one line above or below the plot.
void DecisionShading::drawKey(const Regional& regional) const {
    if (!decisions_) return;
    const auto share = [&](double fraction) { return shownPercent({fraction, 1 - fraction}, {}, regional); };
    const Entries entries{"falsely accepted " + share(decisions_->falselyAccepted),
                          "falsely rejected " + share(decisions_->falselyRejected), "of all units tested"};
    for (const double size : {8., 7.}) {
        surface_.Font = {.Size = size};
        if (drawInCorner(entries) || drawInLine(entries)) break;
    }
    surface_.ForeColor = surface_.ink();
}

bool DecisionShading::drawInCorner(const Entries& entries) const {
    const PlotEdges& edges = places_.edges();
    const double line = -1.3 * surface_.TextHeight();
    const double sample = sampleWidth * places_.pixelX(), gap = sampleGap * places_.pixelX();
    double width = 0;
    for (const std::string& text : entries) width = std::max(width, surface_.TextWidth(text));
    width += sample + gap;
    const double below = 4.5 * surface_.TextHeight();
    for (const auto& [left, top] : {std::pair{1 - width - gap, edges.height - 0.2 * line},
                                    {gap, edges.height - 0.2 * line},
                                    {-edges.left + gap, below},
                                    {edges.right - gap - width, below}}) {
        const Place room{left, left + width, top - 3.2 * line, top};
        const bool onCurve = top > 0 && (highest(room.left, room.right) > room.bottom || crossesLimit(room));
        if (onCurve || !places_.fits(room)) continue;
        for (int i = 0; i < 3; ++i) {
            const double row = room.top - i * line;
            drawSample(i, left, row, line);
            if (i == 2) surface_.ForeColor = plotColours::second.on(surface_.paper());
            PrintAt(surface_, entries[static_cast<std::size_t>(i)], left + sample + gap, row, 0);
        }
        places_.take(room);
        return true;
    }
    return false;
}

bool DecisionShading::drawInLine(const Entries& entries) const {
    const double sample = sampleWidth * places_.pixelX(), gap = sampleGap * places_.pixelX();
    double width = 2 * (sample + 3 * gap);
    for (const std::string& text : entries) width += surface_.TextWidth(text);
    const double line = -surface_.TextHeight();
    // Between the title and the values of the limits, below the statistics.
    for (const double top : {places_.edges().height + 2.3 * line, -6.5 * line}) {
        const Place room = places_.insideSideways({0.5 - width / 2, 0.5 + width / 2, top - line, top});
        if (!places_.fits(room)) continue;
        drawLine(entries, room, gap);
        return true;
    }
    return false;
}

void DecisionShading::drawLine(const Entries& entries, const Place& room, double gap) const {
    const double line = -surface_.TextHeight();
    double left = room.left;
    for (int i = 0; i < 3; ++i) {
        const std::string& text = entries[static_cast<std::size_t>(i)];
        drawSample(i, left, room.top, line);
        if (i < 2) left += sampleWidth * places_.pixelX() + gap;
        if (i == 2) surface_.ForeColor = plotColours::second.on(surface_.paper());
        PrintAt(surface_, text, left, room.top, 0);
        left += surface_.TextWidth(text) + 2 * gap;
    }
    places_.take(room);
}

} // namespace metrisk
