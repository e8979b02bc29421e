#include "cli/ReadingOption.h"

#include "cli/Readers.h"
#include "record/Analysis.h"
#include "rows/UnitFactors.h"

namespace metrisk::cli {

Argument ReadingOption::addTo(const Arguments& command, const char* about) {
    return command.text("--reading", reading, about).shownAs("VALUE");
}

std::string ReadingOption::readingFault() const {
    return !reading || quantityOf(*reading) ? "" : "--reading: " + isNumber(*reading);
}

std::optional<double> ReadingOption::nominalReading(const Analysis& record) const {
    return reading ? cli::nominalReading(*reading, record) : std::nullopt;
}

std::optional<double> nominalReading(std::string_view text, const Analysis& r) {
    const auto read = quantityOf(text);
    if (!read) return std::nullopt;
    return UnitFactors::shipped().inNominal(read->number, read->unit, r.NominalUnits, r.MeasurementArea,
                                            UnitFactors::Length::Place);
}

} // namespace metrisk::cli
