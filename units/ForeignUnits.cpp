#include "units/ForeignUnits.h"

namespace metrisk {

std::unique_ptr<UnitsDatabase> readForeignUnits(const std::filesystem::path&) {
    throw UnitsError("file is not a database");
}

} // namespace metrisk
