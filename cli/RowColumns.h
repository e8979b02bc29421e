// The lists of what a table may name and of what may be wanted of it, made from their tables.
#pragma once

#include <string>

namespace metrisk::cli {

std::string columnsText();
/// One object a line.
std::string columnsJson();

} // namespace metrisk::cli
