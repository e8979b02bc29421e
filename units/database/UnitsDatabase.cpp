#include "units/database/UnitsDatabase.h"

#include "base/Text.h"
#include "units/database/ForeignUnits.h"
#include "units/database/SqliteUnits.h"

#include <algorithm>
#include <fstream>

namespace metrisk {

std::vector<MeasurementUnit> UnitsDatabase::unitsOf(const std::string& area) {
    const std::int64_t key = FindAreaIndex(area);
    return key == 0 ? std::vector<MeasurementUnit>() : unitsOf(key);
}

std::int64_t UnitsDatabase::FindAreaIndex(const std::string& area) {
    for (const MeasurementArea& each : areas())
        if (compareNames(each.name, area) == 0) return each.key;
    return 0;
}

std::int64_t UnitsDatabase::FindUnitsIndex(std::int64_t area, const std::string& unit) {
    for (const MeasurementUnit& each : unitsOf(area))
        if (each.symbol == unit) return each.key;
    return 0;
}

bool UnitsDatabase::UnitExists(const std::string& area, const std::string& unit) {
    const std::int64_t key = FindAreaIndex(area);
    return key != 0 && FindUnitsIndex(key, unit) != 0;
}

std::vector<AreaContent> UnitsDatabase::content() {
    std::vector<AreaContent> all;
    for (MeasurementArea& area : areas()) all.push_back({std::move(area.name), unitsOf(area.key)});
    return all;
}

std::unique_ptr<UnitsDatabase> openUnitsDatabase(const std::filesystem::path& path) {
    std::error_code none;
    if (!std::filesystem::is_regular_file(path, none)) throw UnitsError("unable to open database file");
    std::ifstream file(path, std::ios::binary);
    char start[16] = {};
    file.read(start, sizeof start);
    if (!file) throw UnitsError("file is not a database");
    if (std::string_view(start, sizeof start) == sqliteMark) return std::make_unique<SqliteUnits>(path);
    return readForeignUnits(path);
}

void makeUnitsDatabase(const std::filesystem::path& path, const std::vector<AreaContent>& content) {
    SqliteUnits::make(path, content);
}

bool makeNewUnitsDatabase(const std::filesystem::path& path, const std::vector<AreaContent>& content) {
    return SqliteUnits::make(path, content, Existing::Refuse);
}

void refuseForeignFile(const std::filesystem::path& path) {
    std::error_code none;
    if (!std::filesystem::exists(path, none)) return;
    char start[16] = {};
    std::ifstream(path, std::ios::binary).read(start, sizeof start);
    if (std::filesystem::file_size(path, none) > 0 && std::string_view(start, sizeof start) != sqliteMark)
        throw UnitsError("a file of another program is not replaced");
}

} // namespace metrisk
