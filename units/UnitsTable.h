// A units database as a table in a text file, comma-separated, for exchange with spreadsheets and scripts.
#pragma once

#include "units/AreaContent.h"

namespace metrisk {

/// Rows under the heading area,unit,multiplier,group,description, of which the last two may be missing;
/// fields may stand in quotes. A row with nothing but an area is an area without units. Raises UnitsError,
/// with the line, for what a database cannot hold and for a unit that stands twice in its area.
std::vector<AreaContent> readUnitsTable(std::string_view text);

/// The table that reads back as the same content to the last bit.
std::string writeUnitsTable(const std::vector<AreaContent>& content);

} // namespace metrisk
