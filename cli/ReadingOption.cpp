#include "cli/ReadingOption.h"

#include "cli/Readers.h"
#include "record/Analysis.h"
#include "rows/UnitFactors.h"

namespace metrisk::cli {

namespace {

double inNominalUnits(const Quantity& read, const Analysis& r) {
    const std::string unit = plainSymbol(read.unit), nominal = plainSymbol(r.NominalUnits);
    if (unit.empty() || unit == nominal) return read.number;
    if (nominal.empty()) throw RowFault{false, std::string(read.unit) + " needs a unit of the nominal"};
    static const UnitFactors units;
    // A factor is one of differences, and a reading is none.
    if (units.isTemperature(read.unit))
        throw RowFault{false, "a temperature must be read in " + r.NominalUnits};
    return read.number / units.factor(r.NominalUnits, read.unit, r.MeasurementArea);
}

} // namespace

Argument ReadingOption::addTo(const Arguments& command, const char* about) {
    return command.text("--reading", reading, about).shownAs("VALUE");
}

std::string ReadingOption::readingFault() const {
    return !reading || quantityOf(*reading) ? "" : "--reading: " + isNumber(*reading);
}

std::optional<double> ReadingOption::nominalReading(const Analysis& record) const {
    return reading ? cli::nominalReading(*reading, record) : std::nullopt;
}

std::optional<double> nominalReading(std::string_view text, const Analysis& record) {
    const auto read = quantityOf(text);
    return read ? std::optional(inNominalUnits(*read, record)) : std::nullopt;
}

} // namespace metrisk::cli
