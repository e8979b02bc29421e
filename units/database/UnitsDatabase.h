// The database of measurement areas and their units, whatever file it stands in.
#pragma once

#include "units/AreaContent.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct MeasurementArea {
    std::int64_t key = 0;
    std::string name;
};

/// What a merge did.
struct MergeCounts {
    int areas = 0;   // added
    int units = 0;   // added
    int changed = 0; // units
};

/// Every operation raises UnitsError; a failed change leaves the file as it was. A change is whole or not at
/// all, whatever happens to the program.
class UnitsDatabase {
  public:
    virtual ~UnitsDatabase() = default;
    UnitsDatabase(const UnitsDatabase&) = delete;
    UnitsDatabase& operator=(const UnitsDatabase&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// By name, case-blind.
    virtual std::vector<MeasurementArea> areas() = 0;
    /// By group (none first) and multiplier.
    virtual std::vector<MeasurementUnit> unitsOf(std::int64_t area) = 0;
    std::vector<MeasurementUnit> unitsOf(const std::string& area);

    /// The key of the area of that name (case-blind) or of that unit in it (exactly); 0 if there is none.
    std::int64_t FindAreaIndex(const std::string& area);
    std::int64_t FindUnitsIndex(std::int64_t area, const std::string& unit);
    bool AreaExists(const std::string& area) { return FindAreaIndex(area) != 0; }
    bool UnitExists(const std::string& area, const std::string& unit);

    /// The new key. Raises UnitsError if there is one of that name already.
    virtual std::int64_t addArea(const std::string& name, const MeasurementUnit& primary) = 0;
    virtual std::int64_t addUnit(std::int64_t area, const MeasurementUnit& unit) = 0;
    /// False if there is nothing of that key.
    virtual bool renameArea(std::int64_t area, const std::string& name) = 0;
    virtual bool updateUnit(std::int64_t area, const MeasurementUnit& unit) = 0;
    virtual bool deleteArea(std::int64_t area) = 0;
    virtual bool deleteUnit(std::int64_t area, std::int64_t unit) = 0;

    /// Adds what is not there and changes units of the same area (case-blind) and symbol to these: as one
    /// change.
    virtual MergeCounts merge(const std::vector<AreaContent>& content) = 0;

    /// All areas with their units, in order.
    std::vector<AreaContent> content();

    /// Rows of a foreign file that no units database can hold, without a name or a multiplier above 0 or with
    /// too long a text: they are not among the others.
    virtual std::size_t leftOut() const { return 0; }

    /// Writes all of it in our own form to a file that is replaced as a whole.
    virtual void saveAs(const std::filesystem::path& target) = 0;

  protected:
    explicit UnitsDatabase(std::filesystem::path path) : path_(std::move(path)) {}

  private:
    std::filesystem::path path_;
};

/// Opens our own or a foreign file after a test of its structure. Raises UnitsError.
std::unique_ptr<UnitsDatabase> openUnitsDatabase(const std::filesystem::path& path);

/// Makes a file of that content, replacing another. Raises UnitsError.
void makeUnitsDatabase(const std::filesystem::path& path, const std::vector<AreaContent>& content = {});

/// Makes a file of that content where there is none, also if another program makes one at this moment: false
/// then. Raises UnitsError.
bool makeNewUnitsDatabase(const std::filesystem::path& path, const std::vector<AreaContent>& content);

/// Raises UnitsError if the file is of another program; such a file is never written over.
void refuseForeignFile(const std::filesystem::path& path);

} // namespace metrisk
