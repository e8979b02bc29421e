// A table of test points as it is worked on: its records, what has been computed of each, and the way back.
#pragma once

#include "base/CellBlock.h"
#include "rows/CsvRecord.h"
#include "rows/PointFigures.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// What `rows` writes for a record, and what is asked of all rows at once beside it, so that a look at a long
/// table follows no pointers.
struct PointAnswer {
    std::shared_ptr<const std::string> record{}; // of the output, without its line end
    double falseAccept = 0;                      // a fraction; NaN where there is none
    double tur = 0;                              // NaN where there is none
    unsigned rules = 0;                          // by which it was computed; 0: not, or changed since
    PointStatus status = PointStatus::Bad;

    bool isFault() const { return status == PointStatus::Refused || status == PointStatus::Bad; }
};

/// A record without cells is an empty line of the table, and no test point.
struct PointRow {
    std::string record; // without its line end
    PointAnswer answer{};
};

/// The name of an entry, or any other, without the unit in brackets.
std::string_view bareName(std::string_view column);

/// Rows and columns count from 0. Records stay as they stand in their file, byte for byte, until they are
/// changed.
class PointSheet {
  public:
    /// A table with that header and an empty line to type in.
    explicit PointSheet(std::string_view header = "nominal,tol,su_pct,mte_tol,mte_pct");

    /// A table as a file holds it, without the columns that were computed. Raises std::runtime_error for
    /// bytes that are no text of a table.
    static PointSheet ofText(std::string_view bytes);
    /// The same file again.
    std::string text() const;

    const std::string& header() const { return header_; }
    const CsvForm& form() const { return form_; }
    const std::vector<std::string>& columns() const { return columns_; }
    std::size_t size() const { return rows_.size(); }
    bool isBlank() const; // of nothing but empty lines
    const PointRow& operator[](std::size_t row) const { return rows_[row]; }
    std::string cell(std::size_t row, std::size_t column) const;

    /// The answer belongs to that record.
    void answer(std::size_t row, PointAnswer answer) { rows_[row].answer = std::move(answer); }

    // Changes; each is one step back.
    /// Rows that are not there yet are added, columns are not.
    void put(std::size_t row, std::size_t column, const CellBlock& cells);
    /// The same at rows that need not follow each other.
    void put(const std::vector<std::size_t>& rows, std::size_t column, const CellBlock& cells);
    /// The block in place of all rows, its first line as the header. Columns that were computed are left out.
    void putTable(const CellBlock& cells);
    void insertRows(std::size_t at, std::size_t count);
    /// In rising order, as below.
    void removeRows(const std::vector<std::size_t>& rows);
    /// Copies come behind the last of them.
    void duplicateRows(const std::vector<std::size_t>& rows);
    /// The row that comes to stand at each place.
    void reorder(const std::vector<std::size_t>& order);
    void insertColumn(std::size_t at, std::string_view name);
    void renameColumn(std::size_t column, std::string_view name);
    void removeColumn(std::size_t column);

    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    void undo() { step(undo_, redo_); }
    void redo() { step(redo_, undo_); }

    /// Since it was made, opened or saved.
    bool changed() const { return state_ != saved_; }
    void markSaved() { saved_ = state_; }
    /// Rows that no file holds, from the beginning.
    void markChanged() { saved_ = 0; }
    /// Another one for every table and every change but of answers; a step back has that of before.
    std::size_t state() const { return state_; }

  private:
    /// Some rows in place of others, and a header in place of the present one.
    struct Change {
        std::string header;
        std::size_t at, count;
        std::vector<PointRow> rows;
        std::size_t state;
    };
    static std::size_t nextState(); // never 0
    Change apply(Change change);
    void change(std::size_t at, std::size_t count, std::vector<PointRow> rows);
    void change(std::string header, std::vector<PointRow> rows);
    void step(std::vector<Change>& from, std::vector<Change>& to);
    void readHeader();

    /// Raw cells, as many as there are columns.
    std::vector<std::string> cellsOf(std::string_view record) const;
    std::string recordOf(const std::vector<std::string>& cells) const;
    /// All rows with their cells changed.
    template <class Edit>
    std::vector<PointRow> edited(Edit edit) const;

    std::string header_;
    CsvForm form_{};
    bool crlf_ = false, byteOrderMark_ = false; // of its file
    std::vector<std::string> columns_;
    std::vector<PointRow> rows_;
    std::vector<Change> undo_, redo_;
    std::size_t state_ = nextState(), saved_ = state_;
};

} // namespace metrisk
