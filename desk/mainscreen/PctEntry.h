// What is typed into a box of a % in-tolerance: a percentage, or how many of those tested passed.
#pragma once

#include <optional>
#include <string>

namespace metrisk {

struct Session;

/// Percent, not judged. "19/20" gives 95; what the counts stand for is told in the status line. Where all
/// passed the user picks what it is to mean, since 100 % would mean a uniform parameter. None where counts
/// are refused, which has been told.
std::optional<double> pctEntered(Session& session, const std::string& text);

} // namespace metrisk
