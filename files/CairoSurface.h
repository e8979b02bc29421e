// Draws a plot with Cairo and Pango.
#pragma once

#include "drawing/DrawingSurface.h"

#include <memory>

// The libraries' own names.
typedef struct _cairo cairo_t;           // NOLINT(bugprone-reserved-identifier)
typedef struct _PangoLayout PangoLayout; // NOLINT(bugprone-reserved-identifier)

namespace metrisk {

/// Fills the rectangle (0, 0) to (width, height) in units of 1/96 inch of the context, which must outlive it.
class CairoSurface final : public DrawingSurface {
  public:
    CairoSurface(cairo_t* context, double width, double height);

    double deviceWidth() const override { return width_; }
    double deviceHeight() const override { return height_; }

  private:
    void clear() override;
    void drawLine(Point from, Point to, Colour colour) override;
    void drawBox(Point corner, Point opposite, Colour colour) override;
    void drawText(Point topLeft, std::string_view text) override;
    double measureText(std::string_view text) const override;
    double measureLine() const override;
    /// The layout, holding the text in the present font.
    PangoLayout* laidOut(std::string_view text) const;

    cairo_t* context_;
    double width_, height_;
    std::unique_ptr<PangoLayout, void (*)(void*)> layout_;
    mutable TextFont shaped_{.Size = 0};
};

} // namespace metrisk
