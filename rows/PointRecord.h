// A test point back into a record, with the pictures that show its numbers.
#pragma once

#include "rows/TestPoint.h"

namespace metrisk {

struct Analysis;

/// Puts the point, made of this record and changed by these entries, into it. Figures of a former compute
/// stay as they are. Numbers get pictures with the digits that were typed.
void putIntoRecord(Analysis& record, const TestPoint& point, const NamedEntries& named);

} // namespace metrisk
