#include "units/database/ForeignUnits.h"

#include "base/ChildProcess.h"
#include "base/Text.h"
#include "units/database/JetTables.h"
#include "units/database/SqliteUnits.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <optional>
#include <unistd.h>

namespace metrisk {

namespace {

constexpr const char* notOurs = "the file holds no units database, or is damaged";

constexpr ChildLimits limits{
    .time = std::chrono::seconds(2), .memory = 256u << 20, .output = std::size_t{128} << 20};

enum class Mark : char { Area = 'A', Unit = 'U', End = 'E' };

/// Rows as bytes: a mark, then numbers as they stand in memory and texts behind their lengths.
class RowWriter {
  public:
    explicit RowWriter(int descriptor) : descriptor_(descriptor) {}

    void put(Mark mark) { bytes_ += static_cast<char>(mark); }
    template <class Number>
    requires std::is_arithmetic_v<Number>
    void put(Number number) {
        bytes_.append(reinterpret_cast<const char*>(&number), sizeof number);
        if (bytes_.size() > 65536) flush();
    }
    void put(const std::string& text) {
        put(static_cast<std::uint32_t>(text.size()));
        bytes_ += text;
    }
    void flush() {
        for (std::string_view left = bytes_; !left.empty();) {
            const ssize_t size = write(descriptor_, left.data(), left.size());
            if (size < 0) _exit(1);
            left.remove_prefix(static_cast<std::size_t>(size));
        }
        bytes_.clear();
    }

  private:
    int descriptor_;
    std::string bytes_;
};

/// Reads them again and believes nothing: what does not fit raises UnitsError.
class RowReader {
  public:
    explicit RowReader(std::string_view bytes) : left_(bytes) {}

    Mark mark() { return static_cast<Mark>(take(1)[0]); }
    template <class Number>
    Number number() {
        Number value;
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }
    std::string text() {
        const std::string_view bytes = take(number<std::uint32_t>());
        if (!isValidUtf8(bytes)) throw UnitsError(notOurs);
        return withoutQuotes(std::string(bytes));
    }
    bool atEnd() const { return left_.empty(); }

  private:
    std::string_view take(std::size_t size) {
        if (size > left_.size()) throw UnitsError(notOurs);
        const std::string_view taken = left_.substr(0, size);
        left_.remove_prefix(size);
        return taken;
    }

    std::string_view left_;
};

void writeRows(const std::string& path, int descriptor) {
    RowWriter out(descriptor);
    const bool whole = readJetTables(
        path,
        [&](const MeasurementArea& area) {
            out.put(Mark::Area);
            out.put(area.key);
            out.put(area.name);
        },
        [&](const UnitRow& row) {
            out.put(Mark::Unit);
            out.put(row.area);
            out.put(row.areaName);
            out.put(row.unit.key);
            out.put(row.unit.symbol);
            out.put(row.unit.description);
            out.put(row.unit.group);
            out.put(row.unit.multiplier);
        });
    if (!whole) return;
    out.put(Mark::End);
    out.flush();
}

struct Rows {
    std::vector<MeasurementArea> areas;
    std::vector<UnitRow> units;
};

Rows readRows(std::string_view bytes) {
    RowReader in(bytes);
    Rows rows;
    for (;;) switch (in.mark()) {
        case Mark::Area: {
            MeasurementArea& area = rows.areas.emplace_back();
            area.key = in.number<std::int64_t>();
            area.name = in.text();
            break;
        }
        case Mark::Unit: {
            UnitRow& row = rows.units.emplace_back();
            row.area = in.number<std::int64_t>();
            row.areaName = in.text();
            row.unit.key = in.number<std::int64_t>();
            row.unit.symbol = in.text();
            row.unit.description = in.text();
            row.unit.group = in.text();
            row.unit.multiplier = in.number<double>();
            break;
        }
        case Mark::End:
            if (in.atEnd()) return rows;
            [[fallthrough]];
        default: throw UnitsError(notOurs);
        }
}

class ForeignUnits final : public UnitsDatabase {
  public:
    ForeignUnits(const std::filesystem::path& path, Rows rows) : UnitsDatabase(path) {
        std::map<std::string, std::int64_t, NamesBefore> keys;
        for (MeasurementArea& area : rows.areas) {
            if (!isAreaName(area.name) || !units_.try_emplace(area.key).second) {
                ++leftOut_;
                continue;
            }
            keys.try_emplace(area.name, area.key);
            areas_.push_back(std::move(area));
        }
        for (UnitRow& row : rows.units) {
            // The name decides, as it does when an analysis is opened; the key where no area has that name.
            const auto named = keys.find(row.areaName);
            const auto area = units_.find(named == keys.end() ? row.area : named->second);
            if (area == units_.end() || !isUnit(row.unit))
                ++leftOut_;
            else
                area->second.push_back(std::move(row.unit));
        }
        std::stable_sort(areas_.begin(), areas_.end(),
                         [](const auto& a, const auto& b) { return NamesBefore{}(a.name, b.name); });
        for (auto& [key, units] : units_)
            std::stable_sort(units.begin(), units.end(), [](const auto& a, const auto& b) {
                const int groups = compareNames(a.group, b.group);
                return groups != 0 ? groups < 0 : a.multiplier < b.multiplier;
            });
    }

    using UnitsDatabase::unitsOf;
    std::vector<MeasurementArea> areas() override { return areas_; }
    std::vector<MeasurementUnit> unitsOf(std::int64_t area) override {
        const auto found = units_.find(area);
        return found == units_.end() ? std::vector<MeasurementUnit>() : found->second;
    }
    std::int64_t addArea(const std::string&, const MeasurementUnit&) override { refuse(); }
    std::int64_t addUnit(std::int64_t, const MeasurementUnit&) override { refuse(); }
    bool renameArea(std::int64_t, const std::string&) override { refuse(); }
    bool updateUnit(std::int64_t, const MeasurementUnit&) override { refuse(); }
    bool deleteArea(std::int64_t) override { refuse(); }
    bool deleteUnit(std::int64_t, std::int64_t) override { refuse(); }
    MergeCounts merge(const std::vector<AreaContent>&) override { refuse(); }
    std::size_t leftOut() const override { return leftOut_; }

    void saveAs(const std::filesystem::path& target) override { SqliteUnits::make(target, content()); }

  private:
    [[noreturn]] static void refuse() {
        throw UnitsError(
            "the database is of another program and is read only; save it under another name first");
    }

    std::vector<MeasurementArea> areas_;
    std::map<std::int64_t, std::vector<MeasurementUnit>> units_;
    std::size_t leftOut_ = 0;
};

} // namespace

std::unique_ptr<UnitsDatabase> readForeignUnits(const std::filesystem::path& path) {
    const std::string file = path.string();
    const std::string bytes = outputOfChild(limits, [&](int descriptor) { writeRows(file, descriptor); });
    return std::make_unique<ForeignUnits>(path, readRows(bytes));
}

} // namespace metrisk
