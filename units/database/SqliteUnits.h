// The units database in our own form: a SQLite file.
#pragma once

#include "base/TemporaryFile.h"
#include "units/database/UnitsDatabase.h"

#include <functional>
#include <sys/types.h>

namespace SQLite {
class Database;
}

namespace metrisk {

/// The first 16 bytes of such a file.
inline constexpr std::string_view sqliteMark{"SQLite format 3\0", 16};

/// A file that another program holds is waited for shortly. A file that has been deleted or replaced since it
/// was opened is told, so that nothing is written into the void.
class SqliteUnits final : public UnitsDatabase {
  public:
    /// Raises UnitsError, also for a database of another structure.
    explicit SqliteUnits(const std::filesystem::path& path);
    ~SqliteUnits() override;

    using UnitsDatabase::unitsOf;
    std::vector<MeasurementArea> areas() override;
    std::vector<MeasurementUnit> unitsOf(std::int64_t area) override;
    std::int64_t addArea(const std::string& name, const MeasurementUnit& primary) override;
    std::int64_t addUnit(std::int64_t area, const MeasurementUnit& unit) override;
    bool renameArea(std::int64_t area, const std::string& name) override;
    bool updateUnit(std::int64_t area, const MeasurementUnit& unit) override;
    bool deleteArea(std::int64_t area) override;
    bool deleteUnit(std::int64_t area, std::int64_t unit) override;
    MergeCounts merge(const std::vector<AreaContent>& content) override;
    void saveAs(const std::filesystem::path& target) override;

    /// Writes a file of that content. False if there is one already and `existing` refuses that. Raises
    /// UnitsError.
    static bool make(const std::filesystem::path& path, const std::vector<AreaContent>& content,
                     Existing existing = Existing::Replace);

  private:
    void checkStillThere() const;
    template <class Work>
    auto change(Work work);

    std::unique_ptr<SQLite::Database> file_;
    dev_t device_ = 0;
    ino_t inode_ = 0;
};

} // namespace metrisk
