// Draws a plot with QPainter: on the screen, on a printer, into a picture of the clipboard.
#pragma once

#include "drawing/DrawingSurface.h"

#include <QColor>
#include <QSizeF>

class QPainter;

namespace metrisk {

QColor qt(Colour colour);

/// Fills the rectangle (0, 0) to `size` in the painter's units. The painter's font gives the family of the
/// texts, its device their resolution. The painter must outlive the surface.
class PainterSurface final : public DrawingSurface {
  public:
    PainterSurface(QPainter& painter, QSizeF size, QColor ink = Qt::black, QColor paper = Qt::white);
    /// For a painter scaled to units of 1/96 inch, whatever its device's resolution.
    static PainterSurface onPaper(QPainter& painter, QSizeF size);

    double deviceWidth() const override { return size_.width(); }
    double deviceHeight() const override { return size_.height(); }

  private:
    void clear() override;
    void drawLine(Point from, Point to, Colour colour) override;
    void drawBox(Point corner, Point opposite, Colour colour) override;
    void drawText(Point topLeft, std::string_view text) override;
    double measureText(std::string_view text) const override;
    double measureLine() const override;
    void takeFont() const;
    PainterSurface(QPainter& painter, QSizeF size, QColor ink, QColor paper, bool scaled);

    QPainter& painter_;
    QSizeF size_;
    bool scaled_; // a point is 96/72 units
};

} // namespace metrisk
