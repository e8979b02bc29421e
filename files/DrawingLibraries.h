// The libraries that write pictures.
#pragma once

#include <string>

namespace metrisk {

/// "Cairo 1.2.3, Pango 4.5.6", as they are installed.
std::string drawingLibraries();

} // namespace metrisk
