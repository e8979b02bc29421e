// The area under the curve of a distribution, with what a test decides falsely standing out, and its key.
#pragma once

#include "plots/DistributionPlot.h"
#include "plots/TextPlaces.h"

#include <array>
#include <string>

namespace metrisk {

class DecisionShading {
  public:
    /// Densities are divided by `scale`. Without decisions there is the area alone.
    DecisionShading(DrawingSurface& surface, const DistributionPlot& plot, const FalseDecisions* decisions,
                    TextPlaces& places, double scale)
        : surface_(surface), plot_(plot), decisions_(decisions), places_(places), scale_(scale) {}

    /// Faint under the curve. What is falsely accepted out of tolerance is filled, what is falsely rejected
    /// in it is hatched, if the plot has them.
    void fill() const;
    /// What the shading means, where there is room for it; nothing without false decisions.
    void drawKey(const Regional& regional) const;

  private:
    struct Column;
    template <class Draw>
    void forColumns(Draw draw) const;
    bool isInTolerance(double x) const;
    void hatch(double left, double width, double from, double to, int index) const;
    using Entries = std::array<std::string, 3>;
    void drawSample(int entry, double left, double top, double line) const;
    /// False where there is no room.
    bool drawInCorner(const Entries& entries) const;
    bool drawInLine(const Entries& entries) const;
    void drawLine(const Entries& entries, const Place& room, double gap) const;
    double highest(double from, double to) const;
    bool crossesLimit(const Place& room) const;

    DrawingSurface& surface_;
    const DistributionPlot& plot_;
    const FalseDecisions* decisions_;
    TextPlaces& places_;
    double scale_;
};

} // namespace metrisk
