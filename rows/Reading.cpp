#include "rows/Reading.h"

#include "record/Analysis.h"
#include "rows/Cell.h"
#include "rows/UnitFactors.h"

namespace metrisk {

std::optional<double> nominalReading(std::string_view text, const Analysis& r) {
    const auto read = quantityOf(text);
    if (!read) return std::nullopt;
    return UnitFactors::shipped().inNominal(read->number, read->unit, r.NominalUnits, r.MeasurementArea,
                                            UnitFactors::Length::Place);
}

} // namespace metrisk
