// The table of units that comes with the program, carried in it.
#pragma once

#include <string_view>

namespace metrisk {

/// As units export writes it.
std::string_view shippedUnits();

} // namespace metrisk
