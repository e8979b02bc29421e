// A table of test points: its columns, and what becomes of each of its rows.
#pragma once

#include "rows/CsvRecord.h"
#include "rows/JsonRow.h"
#include "rows/PointFigures.h"
#include "rows/UnitFactors.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

enum class RowFormat { Csv, JsonLines };

struct RowOptions {
    RowFormat format = RowFormat::Csv;
    std::optional<char> delimiter{}; // none: by the header line
    NumberMarks marks{};
    bool lines = false;
    bool onlyKnown = false;
    bool crlf = false;
    bool safeCells = false; // texts that a spreadsheet would take for formulas get an apostrophe
    std::vector<std::string> ignored{};
    std::string prefix{};
    Want want{};
    CountsAs countsAs = CountsAs::Estimate;
};

/// A header that cannot be used; the text is told.
struct HeaderFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct RowCounts {
    std::size_t ok = 0, note = 0, refused = 0, bad = 0;

    std::size_t rows() const { return ok + note + refused + bad; }
    bool allAnswered() const { return refused == 0 && bad == 0; }
    void add(PointStatus status);
    RowCounts& operator+=(const RowCounts& other);
};

/// What one thread keeps from row to row, so that nothing is allocated.
struct RowScratch {
    CsvRecord record;
    JsonRow json;
    NamedEntries named;
    PointFigures figures;
    std::string message;
    struct KnownKey {
        std::string key, unit;
        std::optional<Entry> entry;
        bool output = false;
    };
    std::vector<KnownKey> keys; // of the last line, by their places
};

/// Only read once made; the template and the units must outlive it.
class RowTable {
  public:
    /// Raises HeaderFault. JSON lines have no header.
    RowTable(const RowOptions& options, const TestPoint& point, const UnitFactors& units,
             std::string_view header = {});

    const CsvForm& form() const { return form_; }
    const RowOptions& options() const { return options_; }

    /// The header of the output with its line end.
    std::string outputHeader() const;
    /// "nominal[V] tol[mV]; passed through: id".
    std::string taken() const;

    /// The size of the first record of the data, 0 where more is needed.
    std::size_t recordSize(std::string_view data, bool atEnd) const;
    /// A record with its line end, to a record of the output.
    void process(std::string_view record, RowScratch& scratch, std::string& out, RowCounts& counts) const;

    /// The entries of a record that has as many cells as the header. Raises RowFault for a cell that is not
    /// of its entry's kind.
    void readCells(const CsvRecord& record, NamedEntries& named) const;

    /// A whole record as it stands in the output before the status.
    void appendInput(std::string& out, const CsvRecord& record) const;

    /// The status stands behind the columns of the input.
    std::size_t inputColumns() const { return columns_.size(); }
    std::size_t outputColumns() const {
        return columns_.size() + (unitColumn_ ? 3 : 2) + options_.want.columnCount();
    }

  private:
    struct Column {
        std::string name; // as written
        std::optional<Entry> entry{};
        std::string unit{};
    };

    Column columnOf(std::string_view name) const;
    bool isOutput(std::string_view name) const;
    void checkColumns() const;
    PointStatus compute(RowScratch& scratch) const;
    void scaleLengths(PointFigures& figures, const TestPoint& point) const;
    void processCsv(std::string_view record, RowScratch& scratch, std::string& out, RowCounts& counts) const;
    void processJson(std::string_view record, RowScratch& scratch, std::string& out, RowCounts& counts) const;
    void readJson(RowScratch& scratch) const;
    void appendNumber(std::string& out, double number) const;
    void appendText(std::string& out, std::string_view text) const;
    /// A cell of the input in the output.
    void appendCopied(std::string& out, const CsvCell& cell) const;
    /// The name of a wanted column, with the unit where the header tells it.
    void appendColumnName(std::string& out, const FigureColumn& column) const;

    RowOptions options_;
    const TestPoint& template_;
    const UnitFactors& units_;
    CsvForm form_{};
    std::string header_;
    std::vector<Column> columns_;
    std::string lengthUnit_; // of the output's lengths, where the header says it
    bool unitColumn_ = false;
};

} // namespace metrisk
