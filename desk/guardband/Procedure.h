// What the guardband worksheet tells its user to do.
#pragma once

#include <string>

namespace metrisk {

/// Hypertext: \H heading \h, \B bold \b, \J jump \j; lines end in CR LF.
std::string guardbandProcedure();

} // namespace metrisk
