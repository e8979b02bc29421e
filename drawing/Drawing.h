// A surface that keeps what was drawn, with text metrics of its own: the same list on every machine.
#pragma once

#include "drawing/DrawingSurface.h"

#include <string>
#include <variant>
#include <vector>

namespace metrisk {

struct ClearOp {
    Colour colour;
};
struct LineOp {
    Point from, to;
    Colour colour;
    double width;
};
struct BoxOp {
    Point corner, opposite;
    Colour colour;
};
struct TextOp {
    Point topLeft;
    std::string text;
    Colour colour;
    TextFont font;
};
using DrawingOp = std::variant<ClearOp, LineOp, BoxOp, TextOp>;

/// Positions are in the coordinates that were set when they were drawn. A character is 0.55 of the text size
/// wide, a line 1.2 of it high, at 96 device units to the inch.
class Drawing final : public DrawingSurface {
  public:
    explicit Drawing(double width = 640, double height = 480)
        : DrawingSurface(black, white), width_(width), height_(height) {}

    double deviceWidth() const override { return width_; }
    double deviceHeight() const override { return height_; }

    const std::vector<DrawingOp>& operations() const { return operations_; }
    /// An operation a line, numbers with four significant digits.
    std::string text() const;

  private:
    void clear() override;
    void drawLine(Point from, Point to, Colour colour) override;
    void drawBox(Point corner, Point opposite, Colour colour) override;
    void drawText(Point topLeft, std::string_view text) override;
    double measureText(std::string_view text) const override;
    double measureLine() const override;

    double width_, height_;
    std::vector<DrawingOp> operations_;
};

} // namespace metrisk
