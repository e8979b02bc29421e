// A rectangle of another surface as a surface of its own.
#pragma once

#include "drawing/DrawingSurface.h"

namespace metrisk {

/// What is drawn here comes to stand in a rectangle of `parent`, whose own state changes by it. Text sizes
/// and line widths are enlarged `zoom` times on the way, so that a picture keeps its proportions in any size.
class SubSurface final : public DrawingSurface {
  public:
    /// Corner and sizes in the coordinates of the parent, which must outlive it.
    SubSurface(DrawingSurface& parent, Point corner, double width, double height, double zoom = 1);

    /// The font of texts that name none.
    void setFamily(std::string family) { family_ = std::move(family); }

    double deviceWidth() const override { return deviceWidth_; }
    double deviceHeight() const override { return deviceHeight_; }

  private:
    void clear() override;
    void drawLine(Point from, Point to, Colour colour) override;
    void drawBox(Point corner, Point opposite, Colour colour) override;
    void drawText(Point topLeft, std::string_view text) override;
    double measureText(std::string_view text) const override;
    double measureLine() const override;
    Point toParent(Point user) const;
    void lendFont() const;

    DrawingSurface& parent_;
    Point corner_;
    double width_, height_;
    double zoom_;
    double deviceWidth_, deviceHeight_;
    std::string family_;
};

} // namespace metrisk
