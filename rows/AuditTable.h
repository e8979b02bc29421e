// The rows of an audit as cells: for spreadsheets, for JSON and for pages.
#pragma once

#include "rows/Audit.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct AuditCell {
    enum class Kind { None, Number, Flag, Text } kind = Kind::None;
    double number = 0; // of a flag: 1 or 0
    std::string text{};
};

/// The columns, by the names that a record has for them.
std::span<const std::string_view> auditColumns();
/// By the columns.
std::vector<AuditCell> auditCells(const AuditRow& row);

/// One line with its end. `safeCells`: texts that a spreadsheet would take for formulas get an apostrophe.
std::string auditHeaderLine();
std::string auditLine(const AuditRow& row, bool safeCells);

/// "12 analyses: 9 same, 1 rounding, 0 differ, 1 stale, 1 never computed; 0 refused, 0 unreadable, 2
/// outside".
std::string auditSummary(std::span<const AuditRow> rows);
/// "10 of the consumer's, 2 of the producer's convention".
std::string conventionCounts(std::span<const AuditRow> rows);

} // namespace metrisk
