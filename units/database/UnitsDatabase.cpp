#include "units/database/UnitsDatabase.h"

#include "base/Text.h"
#include "units/database/ForeignUnits.h"
#include "units/database/SqliteUnits.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <locale.h>
#include <wctype.h>

namespace metrisk {

namespace {

/// The character at `at`, which moves behind it; a byte that is no UTF-8 stands for itself.
char32_t next(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) {
        return static_cast<unsigned char>(i < text.size() ? text[i] : 0);
    };
    const unsigned char first = byte(at);
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    char32_t code = more == 3 ? first & 0x07 : more == 2 ? first & 0x0F : more == 1 ? first & 0x1F : first;
    for (int i = 1; i <= more; ++i) {
        if ((byte(at + static_cast<std::size_t>(i)) & 0xC0) != 0x80) {
            ++at;
            return first;
        }
        code = code << 6 | (byte(at + static_cast<std::size_t>(i)) & 0x3F);
    }
    at += static_cast<std::size_t>(more) + 1;
    return code;
}

char32_t lower(char32_t c) {
    if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + (U'a' - U'A') : c;
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode ? static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), unicode)) : c;
}

} // namespace

bool isAreaName(std::string_view name) {
    return !name.empty() && countCharacters(name) <= longestAreaName;
}

bool isUnit(const MeasurementUnit& unit) {
    return !unit.symbol.empty() && countCharacters(unit.symbol) <= longestUnit &&
           countCharacters(unit.description) <= longestDescription &&
           countCharacters(unit.group) <= longestUnitsGroup && std::isfinite(unit.multiplier) &&
           unit.multiplier > 0;
}

int compareNames(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t left = lower(next(a, i));
        const char32_t right = lower(next(b, j));
        if (left != right) return left < right ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

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
