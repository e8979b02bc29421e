// Tolerances of a template beside the nominal unit of a row.
#pragma once

#include "rows/TestPoint.h"

#include <string_view>

namespace metrisk {

/// Whether a source of process errors counts on its own.
bool hasSources(const Budget& budget);
/// All its uncertainties. Raises RuntimeFault.
void rescale(Budget& budget, double scale);

/// The point has another nominal unit than before: what was entered in tolerance units stays as it was
/// entered, unless the row names another. Raises RowFault where a unit that is needed has no factor, and
/// RuntimeFault.
void followUnit(TestPoint& point, std::string_view before, const NamedEntries& named,
                const UnitFactors& units);

} // namespace metrisk
