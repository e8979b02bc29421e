#include "units/ToleranceDecimals.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "record/ToleranceUnits.h"

#include <cmath>

namespace metrisk {
namespace {

constexpr int ppmDecimals = 6;

Real log10Of(Real value) {
    return std::log10(value.value());
}

int roundedLog(double ratio) {
    return static_cast<int>(std::lround(log10Of(ratio).value()));
}

/// A smaller unit gains whole decades; a larger one loses only the decades it surely has.
int shiftOfFactor(double factor) {
    const double decades = log10Of(factor).value();
    return static_cast<int>(decades < 0 ? std::trunc(decades) : std::round(decades));
}

} // namespace

void UpdateToleranceDecimals(Analysis& record) {
    try {
        if (record.NominalUnits == ppmUnits || record.MeasurementArea.empty() ||
            record.MeasurementArea == " ")
            record.SU_TolDecimalShift = 0;
        else if (!subjectUnits(record).isPpm())
            record.SU_TolDecimalShift = shiftOfFactor(subjectUnits(record).factor);
        else if (record.SU_Mode == 0)
            record.SU_TolDecimalShift = ppmDecimals;
        else
            record.SU_TolDecimalShift = roundedLog((Real(perMillion) / std::fabs(record.SU_Mode)).value());
    } catch (const RuntimeFault&) {
        return; // no such units: the picture stays
    }
}

void UpdateMTEToleranceDecimals(Analysis& record) {
    try {
        if (record.NominalUnits == ppmUnits || record.MeasurementArea.empty())
            record.SU_SigDigits = 0;
        else if (measuringUnits(record).isPpm())
            record.SU_SigDigits = ppmDecimals;
        else
            record.SU_SigDigits = shiftOfFactor(measuringUnits(record).factor);
    } catch (const RuntimeFault&) {
        return;
    }
}

} // namespace metrisk
