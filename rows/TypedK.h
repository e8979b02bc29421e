// k-factors that were typed: they hold, and their multipliers follow tolerances and uncertainties.
#pragma once

#include "rows/TestPoint.h"

#include <string_view>

namespace metrisk {

KBasis kBasisOf(const TestPoint& point);

/// 1 - k sigma/offset of a side that has an offset. Raises RowFault where the test limit would pass the mode;
/// `text` is the k as it was typed.
double multiplierOfK(double k, const KBasis& basis, bool upper, std::string_view text);

/// Multipliers of typed k-factors whose basis has changed. Without a measuring sigma they stay. Raises
/// RowFault as above, and RuntimeFault.
void followTypedK(TestPoint& point);

} // namespace metrisk
