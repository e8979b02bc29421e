// What a unit is in another one.
#pragma once

#include <string_view>

namespace metrisk {

/// Tolerance units per unit of the mode, from the two units and their multipliers: 1 where the mode itself is
/// in ppm; ppm of a mode of 0 and multipliers not above 0 count as 1.
double unitFactor(double mode, std::string_view modeUnit, double modeMultiplier,
                  std::string_view toleranceUnit, double toleranceMultiplier);

/// A factor as files and other programs may hold it: a negative one is taken by its size, one that is 0 or no
/// number counts as 1.
double usableFactor(double factor);

} // namespace metrisk
