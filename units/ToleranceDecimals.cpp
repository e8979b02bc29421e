#include "units/ToleranceDecimals.h"

#include "model/Analysis.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr const char* ppm = "ppm";
constexpr int ppmShift = 6;
constexpr double partsPerUnit = 1000000;

bool hasNoUnits(const Analysis& r) {
    return r.NominalUnits == ppm || r.MeasurementArea.empty() || r.MeasurementArea == " ";
}

int shiftOfFactor(double factor) {
    if (factor == 0) factor = 1;
    const double decade = std::log10(std::fabs(factor));
    return static_cast<int>(decade < 0 ? std::trunc(decade) : std::round(decade));
}

} // namespace

void UpdateToleranceDecimals(Analysis& r) {
    if (hasNoUnits(r))
        r.SU_TolDecimalShift = 0;
    else if (r.SU_ToleranceUnits != ppm)
        r.SU_TolDecimalShift = shiftOfFactor(r.SU_TolUnitsFactor);
    else if (r.SU_Mode == 0)
        r.SU_TolDecimalShift = ppmShift;
    else
        r.SU_TolDecimalShift = static_cast<int>(std::round(std::log10(partsPerUnit / std::fabs(r.SU_Mode))));
}

void UpdateMTEToleranceDecimals(Analysis& r) {
    if (hasNoUnits(r))
        r.SU_SigDigits = 0;
    else
        r.SU_SigDigits = r.MTE_ToleranceUnits == ppm ? ppmShift : shiftOfFactor(r.MTE_TolUnitsFactor);
}

} // namespace metrisk
