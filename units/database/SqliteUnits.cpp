#include "units/database/SqliteUnits.h"

#include "base/Text.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <array>
#include <map>
#include <span>
#include <sqlite3.h>
#include <sys/stat.h>
#include <system_error>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr int patience = 1500; // milliseconds

constexpr const char* tables = R"sql(
CREATE TABLE Areas (
  "Area Index" INTEGER PRIMARY KEY AUTOINCREMENT,
  "Measurement Area" TEXT NOT NULL CHECK (length("Measurement Area") BETWEEN 1 AND 120)
) STRICT;
CREATE UNIQUE INDEX AreaIndex ON Areas ("Area Index");
CREATE TABLE Units (
  "Units Index" INTEGER PRIMARY KEY AUTOINCREMENT,
  "Area Index" INTEGER NOT NULL,
  "Measurement Area" TEXT NOT NULL CHECK (length("Measurement Area") BETWEEN 1 AND 120),
  "Units" TEXT NOT NULL CHECK (length("Units") BETWEEN 1 AND 80),
  "Description" TEXT CHECK (length("Description") <= 255),
  "Units Group" TEXT CHECK (length("Units Group") <= 10),
  "Multipliers" REAL NOT NULL CHECK ("Multipliers" > 0 AND "Multipliers" <= 1.7976931348623157e308)
) STRICT;
CREATE UNIQUE INDEX UnitsIndex ON Units ("Units Index");
CREATE INDEX UnitsOfArea ON Units ("Area Index");
)sql";

/// Calls the library; what it throws becomes a UnitsError.
template <class Work>
auto told(Work work) {
    try {
        return work();
    } catch (const SQLite::Exception& fault) {
        throw UnitsError(fault.what(), fault.getErrorCode());
    }
}

int compareInFile(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compareNames({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                        {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

/// A foreign hand may have made the file: nothing in it runs.
void prepare(SQLite::Database& file) {
    file.setBusyTimeout(patience);
    file.exec("PRAGMA trusted_schema = OFF");
    file.exec("PRAGMA cell_size_check = ON");
    sqlite3_create_collation_v2(file.getHandle(), "NAMES", SQLITE_UTF8, nullptr, compareInFile, nullptr);
}

bool hasFields(SQLite::Database& file, const char* table, std::span<const char* const> fields) {
    SQLite::Statement kind(file, "SELECT type FROM sqlite_schema WHERE name = ? COLLATE NOCASE");
    kind.bind(1, table);
    if (!kind.executeStep() || kind.getColumn(0).getString() != "table") return false;
    SQLite::Statement found(file, "SELECT name FROM pragma_table_info(?)");
    found.bind(1, table);
    for (const char* field : fields)
        if (!found.executeStep() || found.getColumn(0).getString() != field) return false;
    return !found.executeStep();
}

void checkStructure(SQLite::Database& file) {
    static constexpr std::array areaFields = {"Area Index", "Measurement Area"};
    static constexpr std::array unitFields = {"Units Index", "Area Index",  "Measurement Area", "Units",
                                              "Description", "Units Group", "Multipliers"};
    if (!hasFields(file, "Areas", areaFields) || !hasFields(file, "Units", unitFields))
        throw UnitsError("the tables are not those of a units database");
}

std::int64_t insertUnit(SQLite::Database& file, std::int64_t area, const std::string& areaName,
                        const MeasurementUnit& unit) {
    SQLite::Statement insert(file,
                             R"(INSERT INTO Units ("Area Index", "Measurement Area", "Units", )"
                             R"("Description", "Units Group", "Multipliers") VALUES (?, ?, ?, ?, ?, ?))");
    insert.bind(1, area);
    insert.bind(2, areaName);
    insert.bind(3, unit.symbol);
    insert.bind(4, unit.description);
    insert.bind(5, unit.group);
    insert.bind(6, unit.multiplier);
    insert.exec();
    return file.getLastInsertRowid();
}

std::int64_t insertArea(SQLite::Database& file, const std::string& name) {
    SQLite::Statement insert(file, R"(INSERT INTO Areas ("Measurement Area") VALUES (?))");
    insert.bind(1, name);
    insert.exec();
    return file.getLastInsertRowid();
}

bool changeUnit(SQLite::Database& file, std::int64_t area, const MeasurementUnit& unit) {
    SQLite::Statement update(
        file, R"(UPDATE Units SET "Units" = ?, "Description" = ?, "Units Group" = ?, "Multipliers" = ? )"
              R"(WHERE "Units Index" = ? AND "Area Index" = ?)");
    update.bind(1, unit.symbol);
    update.bind(2, unit.description);
    update.bind(3, unit.group);
    update.bind(4, unit.multiplier);
    update.bind(5, unit.key);
    update.bind(6, area);
    return update.exec() != 0;
}

/// Writes a file as a whole. False if there is one already and `existing` refuses that.
template <class Fill>
bool makeFile(const fs::path& target, Existing existing, Fill fill) {
    TemporaryFile made(target);
    if (!made.error()) {
        SQLite::Database file(made.path().string(), SQLite::OPEN_READWRITE);
        // A journal beside the file would be left behind by a killed process, and has nothing to go back to.
        file.exec("PRAGMA journal_mode = MEMORY");
        fill(file);
    }
    if (made.place(existing)) return true;
    if (existing == Existing::Refuse && made.error() == std::errc::file_exists) return false;
    throw UnitsError(made.error().message());
}

} // namespace

SqliteUnits::SqliteUnits(const fs::path& path) : UnitsDatabase(path) {
    told([&] {
        file_ = std::make_unique<SQLite::Database>(path.string(), SQLite::OPEN_READWRITE);
        prepare(*file_);
        checkStructure(*file_);
    });
    struct stat now {};
    if (stat(path.c_str(), &now) != 0) throw UnitsError("unable to open database file");
    device_ = now.st_dev;
    inode_ = now.st_ino;
}

SqliteUnits::~SqliteUnits() = default;

void SqliteUnits::checkStillThere() const {
    struct stat now {};
    if (stat(path().c_str(), &now) != 0 || now.st_dev != device_ || now.st_ino != inode_)
        throw UnitsError("the database file has been moved, deleted or replaced");
}

std::vector<MeasurementArea> SqliteUnits::areas() {
    checkStillThere();
    return told([&] {
        std::vector<MeasurementArea> all;
        SQLite::Statement query(
            *file_,
            R"(SELECT "Area Index", "Measurement Area" FROM Areas ORDER BY "Measurement Area" COLLATE NAMES)");
        while (query.executeStep())
            all.push_back({query.getColumn(0).getInt64(), withoutQuotes(query.getColumn(1))});
        return all;
    });
}

std::vector<MeasurementUnit> SqliteUnits::unitsOf(std::int64_t area) {
    checkStillThere();
    return told([&] {
        std::vector<MeasurementUnit> all;
        SQLite::Statement query(*file_,
                                R"(SELECT "Units Index", "Units", coalesce("Description", ''), )"
                                R"(coalesce("Units Group", '') AS sortGroup, "Multipliers" FROM Units )"
                                R"(WHERE "Area Index" = ? ORDER BY sortGroup COLLATE NAMES, "Multipliers")");
        query.bind(1, area);
        while (query.executeStep())
            all.push_back({query.getColumn(0).getInt64(), withoutQuotes(query.getColumn(1)),
                           withoutQuotes(query.getColumn(2)), withoutQuotes(query.getColumn(3)),
                           query.getColumn(4).getDouble()});
        return all;
    });
}

/// One transaction that takes the file from its start: another writer comes before or after, never between.
template <class Work>
auto SqliteUnits::change(Work work) {
    checkStillThere();
    return told([&] {
        SQLite::Transaction transaction(*file_, SQLite::TransactionBehavior::IMMEDIATE);
        const auto result = work();
        transaction.commit();
        return result;
    });
}

std::int64_t SqliteUnits::addArea(const std::string& name, const MeasurementUnit& primary) {
    return change([&] {
        if (AreaExists(name)) throw UnitsError("the measurement area has been added by another program");
        const std::int64_t area = insertArea(*file_, name);
        insertUnit(*file_, area, name, primary);
        return area;
    });
}

std::int64_t SqliteUnits::addUnit(std::int64_t area, const MeasurementUnit& unit) {
    return change([&] {
        if (FindUnitsIndex(area, unit.symbol) != 0)
            throw UnitsError("the unit has been added by another program");
        SQLite::Statement query(*file_, R"(SELECT "Measurement Area" FROM Areas WHERE "Area Index" = ?)");
        query.bind(1, area);
        if (!query.executeStep()) throw UnitsError("the measurement area is no longer there");
        return insertUnit(*file_, area, query.getColumn(0).getString(), unit);
    });
}

bool SqliteUnits::renameArea(std::int64_t area, const std::string& name) {
    return change([&] {
        SQLite::Statement rename(*file_, R"(UPDATE Areas SET "Measurement Area" = ? WHERE "Area Index" = ?)");
        rename.bind(1, name);
        rename.bind(2, area);
        if (rename.exec() == 0) return false;
        SQLite::Statement units(*file_, R"(UPDATE Units SET "Measurement Area" = ? WHERE "Area Index" = ?)");
        units.bind(1, name);
        units.bind(2, area);
        units.exec();
        return true;
    });
}

bool SqliteUnits::updateUnit(std::int64_t area, const MeasurementUnit& unit) {
    return change([&] { return changeUnit(*file_, area, unit); });
}

bool SqliteUnits::deleteArea(std::int64_t area) {
    return change([&] {
        for (const char* table : {"Units", "Areas"}) {
            SQLite::Statement remove(*file_,
                                     std::string("DELETE FROM ") + table + R"( WHERE "Area Index" = ?)");
            remove.bind(1, area);
            if (remove.exec() == 0 && table == std::string_view("Areas")) return false;
        }
        return true;
    });
}

bool SqliteUnits::deleteUnit(std::int64_t area, std::int64_t unit) {
    return change([&] {
        SQLite::Statement remove(*file_, R"(DELETE FROM Units WHERE "Units Index" = ? AND "Area Index" = ?)");
        remove.bind(1, unit);
        remove.bind(2, area);
        return remove.exec() != 0;
    });
}

MergeCounts SqliteUnits::merge(const std::vector<AreaContent>& content) {
    return change([&] {
        MergeCounts counts;
        std::map<std::string, std::int64_t, NamesBefore> keys;
        for (const MeasurementArea& area : areas()) keys.emplace(area.name, area.key);
        for (const AreaContent& area : content) {
            const auto [known, isNew] = keys.try_emplace(area.name, 0);
            const auto& [name, key] = *known;
            if (isNew) known->second = insertArea(*file_, name);
            counts.areas += isNew;
            std::map<std::string, MeasurementUnit> present;
            for (MeasurementUnit& unit : unitsOf(key)) present.emplace(unit.symbol, unit);
            for (MeasurementUnit unit : area.units) {
                const auto same = present.find(unit.symbol);
                if (same == present.end()) {
                    insertUnit(*file_, key, name, unit);
                    ++counts.units;
                } else if (unit.key = same->second.key; unit != same->second) {
                    changeUnit(*file_, key, unit);
                    ++counts.changed;
                }
            }
        }
        return counts;
    });
}

void SqliteUnits::saveAs(const fs::path& target) {
    checkStillThere();
    told([&] {
        makeFile(target, Existing::Replace, [&](SQLite::Database& file) {
            SQLite::Backup(file, *file_).executeStep(-1);
            checkStructure(file);
        });
    });
}

bool SqliteUnits::make(const fs::path& path, const std::vector<AreaContent>& content, Existing existing) {
    return told([&] {
        return makeFile(path, existing, [&](SQLite::Database& file) {
            prepare(file);
            SQLite::Transaction transaction(file);
            file.exec(tables);
            for (const AreaContent& area : content) {
                const std::int64_t key = insertArea(file, area.name);
                for (const MeasurementUnit& unit : area.units) insertUnit(file, key, area.name, unit);
            }
            transaction.commit();
        });
    });
}

} // namespace metrisk
