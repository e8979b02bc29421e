// Paper and margins of a report.
#pragma once

namespace metrisk {

/// Lengths in twips.
struct PageSetup {
    double width = 12240, height = 15840; // Letter
    double left = 1440, top = 1440, right = 1440, bottom = 1440;

    static PageSetup ofMillimetres(double across, double down) {
        return {.width = across / 25.4 * 1440, .height = down / 25.4 * 1440};
    }
    static PageSetup a4() { return ofMillimetres(210, 297); }

    /// The same with margins that leave room for text: none is negative, and two inches of paper remain
    /// across and down.
    PageSetup settled() const;
};

} // namespace metrisk
