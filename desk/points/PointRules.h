// What the rows of a sheet are computed by: an analysis as template, what is wanted, and the sheet's header.
#pragma once

#include "desk/points/PointSheet.h"
#include "record/Analysis.h"
#include "rows/RowTable.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// Only read once made, by any thread. Its answers are those of `rows` with this template, to the byte.
class PointRules {
  public:
    /// Raises HeaderFault for a header that no row can be computed with, RowFault for a template whose
    /// process errors allow no sum.
    PointRules(const Analysis& base, const Regional& regional, const Want& want, std::string_view header,
               NumberMarks marks = {});
    PointRules(const PointRules&) = delete;
    PointRules& operator=(const PointRules&) = delete;

    PointAnswer answer(std::string_view record, RowScratch& scratch) const;

    NumberMarks marks() const { return table_.options().marks; }
    /// Of the input.
    const std::string& header() const { return header_; }
    /// Of the output, with its line end.
    std::string outputHeader() const { return table_.outputHeader(); }
    /// Names of the columns that are computed, from the status to the message.
    const std::vector<std::string>& columns() const { return columns_; }
    /// That column of an answer, of a sheet with so many columns of its own.
    std::string cell(const PointAnswer& answer, std::size_t column) const;
    std::string message(const PointAnswer& answer) const { return cell(answer, columns_.size() - 1); }

    /// The record with what a row names, as an analysis. Raises RowFault where that is refused.
    Analysis analysisOf(std::string_view record) const;

    /// Another one for all rules that were ever made.
    unsigned number() const { return number_; }

  private:
    const Analysis base_;
    const Regional regional_;
    const TestPoint point_;
    const RowTable table_;
    const std::string header_;
    std::vector<std::string> columns_;
    std::size_t falseAcceptAt_ = 0, turAt_ = 0; // among them; 0 where they are not wanted
    unsigned number_;
};

} // namespace metrisk
