// The entries that a row names, read from its cells.
#pragma once

#include "rows/Cell.h"
#include "rows/Entries.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace metrisk {

/// A cell by the kind of its entry: a number with the unit behind it or, of a text or a word, its text. An
/// infinite limit is one that does not exist; infinite degrees of freedom are 0.
struct NamedEntry {
    double number = 0;
    std::string_view text{}; // lives as long as the row
    std::string_view unit{}; // of the cell, else of the column; empty: that of the nominal
    bool ownUnit = false;    // of the cell itself
};

class NamedEntries {
  public:
    bool has(Entry entry) const { return named_ >> static_cast<unsigned>(entry) & 1; }
    const NamedEntry& operator[](Entry entry) const { return values_[static_cast<std::size_t>(entry)]; }
    double number(Entry entry) const { return (*this)[entry].number; }
    bool any(std::initializer_list<Entry> entries) const {
        for (const Entry entry : entries)
            if (has(entry)) return true;
        return false;
    }

    void clear() { named_ = 0; }
    /// A cell with nothing but blanks names nothing. `columnUnit` is that of the column. Raises RowFault for
    /// a text that is not of the entry's kind, and for degrees of freedom below 0.
    void read(Entry entry, std::string_view cell, std::string_view columnUnit = {}, NumberMarks marks = {});
    /// The same of a number that needs no reading, in the unit of the nominal; NaN names nothing.
    void put(Entry entry, double number);

  private:
    std::uint64_t named_ = 0;
    std::array<NamedEntry, entryCount> values_{};
};
static_assert(entryCount <= 64);

} // namespace metrisk
