// Measurement areas with their units, wherever they are kept.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// Sizes in characters.
inline constexpr std::size_t longestAreaName = 120;
inline constexpr std::size_t longestUnit = 80;
inline constexpr std::size_t longestDescription = 255;
inline constexpr std::size_t longestUnitsGroup = 10;

struct MeasurementUnit {
    std::int64_t key = 0;
    std::string symbol{};
    std::string description{};
    std::string group{};   // sorts within the area
    double multiplier = 1; // size in primary units of the area: a thousandth of the primary unit has 0.001

    bool operator==(const MeasurementUnit&) const = default;
};

/// An area with all its units.
struct AreaContent {
    std::string name;
    std::vector<MeasurementUnit> units;
};

/// Why an operation on a file of them failed, in the words of its engine.
class UnitsError : public std::runtime_error {
  public:
    explicit UnitsError(const std::string& text, int engineCode = 0)
        : std::runtime_error(text), code(engineCode) {}

    const int code; // the engine's own number; 0 for what it has not said itself
};

/// What the tables can hold, by the sizes above; an area needs a name, a unit a symbol and a finite
/// multiplier above 0.
bool isAreaName(std::string_view name);
bool isUnit(const MeasurementUnit& unit);

/// Case-blind comparison of names in any script: below, at or above 0.
int compareNames(std::string_view a, std::string_view b);

/// The same as an order of maps.
struct NamesBefore {
    bool operator()(std::string_view a, std::string_view b) const { return compareNames(a, b) < 0; }
};

} // namespace metrisk
