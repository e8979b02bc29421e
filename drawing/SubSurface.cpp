#include "drawing/SubSurface.h"

#include <cmath>

namespace metrisk {

SubSurface::SubSurface(DrawingSurface& parent, Point corner, double width, double height, double zoom)
    : DrawingSurface(parent.ink(), parent.paper()), parent_(parent), corner_(corner), width_(width),
      height_(height), zoom_(zoom), deviceWidth_(parent.deviceLengthX(width) / zoom),
      deviceHeight_(parent.deviceLengthY(height) / zoom) {}

Point SubSurface::toParent(Point user) const {
    const Point device = toDevice(user);
    return {corner_.x + device.x / deviceWidth_ * width_, corner_.y + device.y / deviceHeight_ * height_};
}

void SubSurface::lendFont() const {
    parent_.Font = Font;
    parent_.Font.Size *= zoom_;
    if (parent_.Font.Family.empty()) parent_.Font.Family = family_;
}

void SubSurface::clear() {
    parent_.Box(corner_.x, corner_.y, corner_.x + width_, corner_.y + height_, BackColor);
}

void SubSurface::drawLine(Point from, Point to, Colour colour) {
    const Point a = toParent(from);
    const Point b = toParent(to);
    parent_.DrawWidth = DrawWidth * zoom_;
    parent_.Line(a.x, a.y, b.x, b.y, colour);
}

void SubSurface::drawBox(Point corner, Point opposite, Colour colour) {
    const Point a = toParent(corner);
    const Point b = toParent(opposite);
    parent_.Box(a.x, a.y, b.x, b.y, colour);
}

void SubSurface::drawText(Point topLeft, std::string_view text) {
    const Point at = toParent(topLeft);
    lendFont();
    parent_.ForeColor = ForeColor;
    parent_.CurrentX = at.x;
    parent_.CurrentY = at.y;
    parent_.Print(text);
}

double SubSurface::measureText(std::string_view text) const {
    lendFont();
    return parent_.deviceLengthX(parent_.TextWidth(text)) / zoom_;
}

double SubSurface::measureLine() const {
    lendFont();
    return parent_.deviceLengthY(parent_.TextHeight()) / zoom_;
}

} // namespace metrisk
