#include "units/UnitFactor.h"

#include "base/RelativeUnits.h"

#include <cmath>

namespace metrisk {

double unitFactor(double mode, std::string_view modeUnit, double modeMultiplier,
                  std::string_view toleranceUnit, double toleranceMultiplier) {
    if (modeUnit == ppmUnits) return 1;
    if (toleranceUnit == ppmUnits) return usableFactor(perMillion / std::fabs(mode));
    // A database of another program may hold any number.
    if (!(modeMultiplier > 0 && toleranceMultiplier > 0)) return 1;
    return usableFactor(modeMultiplier / toleranceMultiplier);
}

double usableFactor(double factor) {
    return std::isfinite(factor) && factor != 0 ? std::fabs(factor) : 1;
}

} // namespace metrisk
