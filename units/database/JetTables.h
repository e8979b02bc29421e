// The two tables of a units database in a Jet file, row by row, through a library that trusts the file.
#pragma once

#include "units/database/UnitsDatabase.h"

#include <functional>

namespace metrisk {

struct UnitRow {
    std::int64_t area = 0;
    std::string areaName{};
    MeasurementUnit unit{};
};

/// Rows as they come, not a number where there is no multiplier. False if the file is damaged, has other
/// tables or more rows than any units database; what came before is then worth nothing. A damaged file can
/// make the library read without end, or crash: to be called in a process that can be lost.
bool readJetTables(const std::string& path, const std::function<void(const MeasurementArea&)>& onArea,
                   const std::function<void(const UnitRow&)>& onUnit);

} // namespace metrisk
