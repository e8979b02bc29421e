// Units databases of other programs (Jet files), which are only read.
#pragma once

#include "units/database/UnitsDatabase.h"

namespace metrisk {

/// Reads the whole file at once. Its changes raise UnitsError; saveAs writes our own form. Raises UnitsError
/// for a file that is no such database.
std::unique_ptr<UnitsDatabase> readForeignUnits(const std::filesystem::path& path);

} // namespace metrisk
