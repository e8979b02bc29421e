// Names of analysis files.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// The name under which an analysis is saved: ".dat" becomes ".mrk", ".mrk" in any case stays, to any
/// other name ".mrk" is added.
std::string NormalizeAnalysisName(std::string_view path);

/// The name of an analysis that has no file yet.
bool isUntitled(std::string_view name);

} // namespace metrisk
