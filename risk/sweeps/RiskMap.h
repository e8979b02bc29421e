// Risks of an analysis over two of its quantities, and at any values of all four.
#pragma once

#include "risk/sweeps/RiskParts.h"

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <stop_token>
#include <string_view>
#include <vector>

namespace metrisk {

enum class MapQuantity { Ratio, SubjectPct, MeasuringPct, Multiplier };
inline constexpr std::size_t mapQuantities = 4;

/// A value of each quantity: tolerance of the subject parameter over that of the measuring parameter,
/// percent in-tolerance of both, and the multiplier of the guardbands.
struct MapPlace {
    std::array<double, mapQuantities> values{};

    double& operator[](MapQuantity quantity) { return values[static_cast<std::size_t>(quantity)]; }
    double operator[](MapQuantity quantity) const { return values[static_cast<std::size_t>(quantity)]; }
    friend bool operator==(const MapPlace&, const MapPlace&) = default;
};

/// What may be entered: a ratio or multiplier above 0, a percentage between 0 and 100.
bool isMapValue(MapQuantity quantity, double value);

struct MapAxis {
    MapQuantity quantity;
    double from;
    double to;

    double at(std::size_t i, std::size_t points) const;
    /// Where a value stands, as a share of the axis.
    double shareOf(double value) const { return (value - from) / (to - from); }
    double valueAt(double share) const { return from + share * (to - from); }
};

/// Two different quantities. At least two points each way.
struct MapRequest {
    MapAxis x;
    MapAxis y;
    std::size_t columns;
    std::size_t rows;
    MapPlace others; // read for the two that are on no axis
};

/// Row by row from the least y; fractions by exact integration, not a number where there is no risk.
struct RiskGrid {
    std::size_t columns = 0;
    std::size_t rows = 0;
    std::vector<double> falseAccept{};
    std::vector<double> falseReject{};

    bool empty() const { return falseAccept.empty(); }
};

/// Serves several threads.
class RiskMap {
  public:
    /// Both parameters have been fitted. The record is not kept.
    RiskMap(const Analysis& record, const Regional& regional);

    /// The analysis itself; its multiplier is that of the upper side, or of the only one.
    const MapPlace& present() const { return present_; }
    /// The two sides have different multipliers: the analysis stands on no map.
    bool isLopsided() const { return lopsided_; }

    /// By exact integration; none where there are no risks.
    std::optional<Risks> at(const MapPlace& place) const;

    /// On all cores; empty after a stop.
    RiskGrid grid(const MapRequest& request, const std::stop_token& stop = {}) const;

  private:
    double mteSigma(double ratio, double coverageFactor) const;

    RiskParts parts_;
    MapPlace present_;
    double tolerance_; // the one that is divided by the ratio, nominal units
    bool includeProcess_;
    bool lopsided_;
};

} // namespace metrisk
