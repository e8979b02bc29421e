#include "drawing/Drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace metrisk {

namespace {

constexpr double unitsPerPoint = 96.0 / 72;

/// Four digits, with what is nothing but rounding told as 0.
std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", std::abs(value) < 1e-9 ? 0.0 : value);
    return text;
}

std::string at(Point point) {
    return number(point.x) + " " + number(point.y);
}

std::string name(Colour colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
    return text;
}

struct AsText {
    std::string operator()(const ClearOp& op) const { return "clear " + name(op.colour); }
    std::string operator()(const LineOp& op) const {
        return "line " + at(op.from) + " " + at(op.to) + " " + name(op.colour) + " width " + number(op.width);
    }
    std::string operator()(const BoxOp& op) const {
        return "box " + at(op.corner) + " " + at(op.opposite) + " " + name(op.colour);
    }
    std::string operator()(const TextOp& op) const {
        return "text " + at(op.topLeft) + " " + name(op.colour) + " " + number(op.font.Size) +
               (op.font.Bold ? " bold \"" : " \"") + op.text + "\"";
    }
};

} // namespace

std::string Drawing::text() const {
    std::string lines;
    for (const DrawingOp& op : operations_) lines += std::visit(AsText{}, op) + "\n";
    return lines;
}

void Drawing::clear() {
    operations_.assign(1, ClearOp{BackColor});
}

void Drawing::drawLine(Point from, Point to, Colour colour) {
    operations_.push_back(LineOp{from, to, colour, DrawWidth});
}

void Drawing::drawBox(Point corner, Point opposite, Colour colour) {
    operations_.push_back(BoxOp{corner, opposite, colour});
}

void Drawing::drawText(Point topLeft, std::string_view text) {
    operations_.push_back(TextOp{topLeft, std::string(text), ForeColor, Font});
}

double Drawing::measureText(std::string_view text) const {
    // The bytes that begin a character.
    const auto characters =
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
    return 0.55 * Font.Size * unitsPerPoint * static_cast<double>(characters);
}

double Drawing::measureLine() const {
    return 1.2 * Font.Size * unitsPerPoint;
}

} // namespace metrisk
