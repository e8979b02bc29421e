#include "units/database/JetTables.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <mdbtools.h>
#include <span>

namespace metrisk {

namespace {

constexpr unsigned mostAreas = 20'000;
constexpr unsigned mostUnits = 500'000;

struct Field {
    const char* name;
    int type;
};

constexpr std::array areaFields = {Field{"Area Index", MDB_LONGINT}, Field{"Measurement Area", MDB_TEXT}};
constexpr std::array unitFields = {
    Field{"Units Index", MDB_LONGINT}, Field{"Area Index", MDB_LONGINT}, Field{"Measurement Area", MDB_TEXT},
    Field{"Units", MDB_TEXT},          Field{"Description", MDB_TEXT},   Field{"Units Group", MDB_TEXT},
    Field{"Multipliers", MDB_DOUBLE},
};

/// One pass over a table. Nothing is given back to the library: the process ends soon.
class Table {
  public:
    Table(MdbHandle* file, const char* name, std::span<const Field> fields) {
        std::string changeable = name;
        table_ = mdb_read_table_by_name(file, changeable.data(), MDB_TABLE);
        if (!table_ || !mdb_read_columns(table_) || table_->num_cols != fields.size()) return;
        texts_.resize(fields.size());
        for (unsigned i = 0; i < fields.size(); ++i) {
            const MdbColumn* column = columnAt(i);
            if (std::string_view(column->name) != fields[i].name || column->col_type != fields[i].type)
                return;
            if (column->col_type != MDB_TEXT) continue;
            texts_[i].resize(MDB_BIND_SIZE + 1);
            if (mdb_bind_column(table_, static_cast<int>(i) + 1, texts_[i].data(), nullptr) < 0) return;
        }
        mdb_rewind_table(table_);
        whole_ = true;
    }

    bool hasFields() const { return whole_; }

    /// Runs `work` after each row; false for fewer rows than the table says it has: a page was lost.
    template <class Work>
    bool eachRow(unsigned most, Work work) {
        unsigned rows = 0;
        while (mdb_fetch_row(table_)) {
            if (++rows > most) return false;
            work();
        }
        return rows >= table_->num_rows;
    }

    /// Up to the first NUL.
    std::string text(unsigned i) const { return texts_[i].substr(0, texts_[i].find('\0')); }

    std::int64_t number(unsigned i) const {
        const int at = placeOf(i, 4);
        return at < 0 ? 0 : static_cast<std::int32_t>(mdb_get_int32(page(), at));
    }

    double real(unsigned i) const {
        const int at = placeOf(i, 8);
        return at < 0 ? std::numeric_limits<double>::quiet_NaN() : mdb_get_double(page(), at);
    }

  private:
    const MdbColumn* columnAt(unsigned i) const {
        return static_cast<const MdbColumn*>(g_ptr_array_index(table_->columns, i));
    }
    void* page() const { return table_->entry->mdb->pg_buf; }

    /// Where the value of that size stands on the page; -1 if there is none.
    int placeOf(unsigned i, int size) const {
        const MdbColumn* column = columnAt(i);
        const int at = column->cur_value_start;
        return column->cur_value_len == size && at > 0 && at <= MDB_PGSIZE - size ? at : -1;
    }

    MdbTableDef* table_ = nullptr;
    std::vector<std::string> texts_;
    bool whole_ = false;
};

} // namespace

bool readJetTables(const std::string& path, const std::function<void(const MeasurementArea&)>& onArea,
                   const std::function<void(const UnitRow&)>& onUnit) {
    // What texts come in is settled here, not by somebody's shell.
    for (const char* name : {"MDBICONV", "MDB_JET3_CHARSET", "MDBOPTS"}) unsetenv(name);
    MdbHandle* file = mdb_open(path.c_str(), MDB_NOFLAGS);
    if (!file || !mdb_read_catalog(file, MDB_TABLE)) return false;
    Table areas(file, "Areas", areaFields);
    if (!areas.hasFields()) return false;
    if (!areas.eachRow(mostAreas, [&] { onArea({.key = areas.number(0), .name = areas.text(1)}); }))
        return false;
    Table units(file, "Units", unitFields);
    return units.hasFields() && units.eachRow(mostUnits, [&] {
        onUnit({.area = units.number(1),
                .areaName = units.text(2),
                .unit = {.key = units.number(0),
                         .symbol = units.text(3),
                         .description = units.text(4),
                         .group = units.text(5),
                         .multiplier = units.real(6)}});
    });
}

} // namespace metrisk
