// One record of a table of cells: where it ends, and its cells.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

inline constexpr std::size_t longestRow = std::size_t{1} << 20;
inline constexpr std::size_t mostCells = 4096;

struct CsvForm {
    char delimiter = ',';
    bool lines = false; // a line end ends a row in quotes, too
};

struct CsvCell {
    std::string_view raw;  // as it stands, with its quotes
    std::string_view text; // without them
};

/// A record that has cells, or why it has none. Kept for the next one, so that nothing is allocated.
struct CsvRecord {
    std::string_view raw; // without its line end
    std::vector<CsvCell> cells;
    const char* flaw = nullptr; // the cells before it are whole
    std::string unquoted;       // room for texts with doubled quotes
};

/// The size of the first record of the data with its line end; 0 where more is needed to tell, which is never
/// so at the end of the input or from longestRow on. A quote that is never closed ends with its line.
std::size_t recordSize(std::string_view data, const CsvForm& form, bool atEnd);

/// Reads the cells of what recordSize has found.
void readRecord(std::string_view record, const CsvForm& form, CsvRecord& into);

/// The delimiter that a header line tells: a tab, else a semicolon, else a comma.
char delimiterOf(std::string_view header);

/// A text as a cell: in quotes where it needs them.
void appendCell(std::string& out, std::string_view text, char delimiter);

} // namespace metrisk
