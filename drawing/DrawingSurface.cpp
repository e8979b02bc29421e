#include "drawing/DrawingSurface.h"

#include <cmath>

namespace metrisk {

Colour between(Colour a, Colour b, double shareOfB) {
    const auto mix = [&](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(from + (to - from) * shareOfB));
    };
    return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

DrawingSurface::Edges DrawingSurface::edges() const {
    return edges_.value_or(Edges{0, 0, deviceWidth(), deviceHeight()});
}

void DrawingSurface::Scale(double left, double top, double right, double bottom) {
    if (left != right && top != bottom) edges_ = {left, top, right, bottom};
}

void DrawingSurface::Line(double x1, double y1, double x2, double y2, std::optional<Colour> colour) {
    if (!isEmpty()) drawLine({x1, y1}, {x2, y2}, colour.value_or(ForeColor));
    CurrentX = x2;
    CurrentY = y2;
}

void DrawingSurface::Box(double x1, double y1, double x2, double y2, Colour colour) {
    if (!isEmpty()) drawBox({x1, y1}, {x2, y2}, colour);
}

void DrawingSurface::Print(std::string_view text) {
    if (!isEmpty()) drawText({CurrentX, CurrentY}, text);
    CurrentX += TextWidth(text);
}

double DrawingSurface::TextWidth(std::string_view text) const {
    if (isEmpty()) return 0;
    const auto [left, top, right, bottom] = edges();
    const double width = measureText(text) * (right - left) / deviceWidth();
    return width < 0 ? -width : width;
}

double DrawingSurface::TextHeight() const {
    if (isEmpty()) return 0;
    const auto [left, top, right, bottom] = edges();
    return measureLine() * (bottom - top) / deviceHeight();
}

double DrawingSurface::deviceLengthX(double users) const {
    const auto [left, top, right, bottom] = edges();
    return isEmpty() ? 0 : std::fabs(users / (right - left) * deviceWidth());
}

double DrawingSurface::deviceLengthY(double users) const {
    const auto [left, top, right, bottom] = edges();
    return isEmpty() ? 0 : std::fabs(users / (bottom - top) * deviceHeight());
}

Point DrawingSurface::toDevice(Point user) const {
    const auto [left, top, right, bottom] = edges();
    return {(user.x - left) / (right - left) * deviceWidth(),
            (user.y - top) / (bottom - top) * deviceHeight()};
}

} // namespace metrisk
