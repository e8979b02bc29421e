// A risk as the tables of the command line show it.
#pragma once

#include <string>
#include <string_view>

namespace metrisk::cli {

/// "1.23 %", "< 1 ppm", or "not computed" for a fraction that is not a number. `picture` is riskPicture or
/// baselinePicture of the display rule.
std::string riskCell(double fraction, std::string (*picture)(std::string_view units));

} // namespace metrisk::cli
