// Texts of a plot that keep clear of each other and of the picture's edges.
#pragma once

#include "drawing/DrawingSurface.h"

#include <string>
#include <vector>

namespace metrisk {

/// A rectangle in the plot's coordinates, with y upward.
struct Place {
    double left, right, bottom, top;

    bool touches(const Place& other, double gapX, double gapY) const {
        return left < other.right + gapX && other.left < right + gapX && bottom < other.top + gapY &&
               other.bottom < top + gapY;
    }
};

/// What a picture shows around its axes, which run from 0 to 1 and from 0 to `height`.
struct PlotEdges {
    double left, right; // left of 0 by so much; right, where it ends
    double top, bottom; // in shares of the height: where it ends, and by how much it begins below 0
    double height;
};

/// Texts of the font that the surface has.
class TextPlaces {
  public:
    TextPlaces(DrawingSurface& surface, const PlotEdges& edges) : surface_(surface), edges_(edges) {}

    const PlotEdges& edges() const { return edges_; }
    /// A device unit.
    double pixelX() const;
    double pixelY() const;

    /// Centred at x, so many lines below y.
    Place placeOf(const std::string& text, double x, double y, double lines) const;
    /// Moved sideways into the picture.
    Place insideSideways(Place place) const;
    bool isInside(const Place& place) const;
    bool isFree(const Place& place) const;
    bool fits(const Place& place) const { return isInside(place) && isFree(place); }

    /// Nothing else finds room there from now on.
    void take(const Place& place) { taken_.push_back(place); }
    void print(const std::string& text, const Place& place);
    /// If it is within the picture from top to bottom, over whatever is there.
    void printCentred(const std::string& text, double x, double y, double lines);

  private:
    DrawingSurface& surface_;
    PlotEdges edges_;
    std::vector<Place> taken_;
};

} // namespace metrisk
