// How the commands print risks, and what they say where there is none.
#pragma once

#include "risk/exact/Verified.h"
#include "unattended/FigureJson.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk::cli {

/// "1.23 %", "< 1 ppm", or "not computed" for a fraction that is no figure. `picture` is riskPicture or
/// baselinePicture of the display rule.
std::string riskCell(double fraction, std::string (*picture)(std::string_view units));

/// The line below a risk whose shown digits are not those of its second figure; else empty.
std::string exactRow(const std::optional<VerifiedFigure>& figure, RiskPicture picture);

/// A label and its value on one line of a table.
std::string tableRow(const char* label, const std::string& value);

} // namespace metrisk::cli
