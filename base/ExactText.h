// A number for another program.
#pragma once

#include <string>

namespace metrisk {

/// The shortest text that reads back as the same double, period as decimal mark; "nan" and "inf" for what is
/// none.
std::string exactText(double value);

} // namespace metrisk
