// How a risk fraction is shown: in ppm when small, in percent otherwise.
#pragma once

#include "base/RelativeUnits.h"

#include <string>
#include <string_view>

namespace metrisk {

/// What stands for a risk that rounding made negative: it shows as 0 ppm.
inline constexpr double negativeRiskStandIn = 4e-07;

struct ShownRisk {
    double value;
    std::string units; // "%" or "ppm"
};

/// Below 0.001 the fraction is shown in ppm, otherwise in percent.
ShownRisk shownRisk(double fraction);
/// The fraction that a shown value stands for.
double riskFraction(double value, std::string_view units);
/// Picture of a result: "##0" for ppm, "##0.00" for percent.
std::string riskPicture(std::string_view units);
/// Picture of a baseline figure: "##0" for ppm, "##0.0000" for percent.
std::string baselinePicture(std::string_view units);
/// The value, or the stand-in for a negative one.
double notNegative(double fraction);

} // namespace metrisk
