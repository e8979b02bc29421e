// An audit for readers: a line an analysis, and pages to be filed.
#pragma once

#include "rows/Audit.h"

#include <span>
#include <string>

namespace metrisk::cli {

/// The file and a line of figures in the convention of the analysis.
std::string auditText(const AuditRow& row);

/// The whole document: what was audited when and by which program, the table, and the SHA-256 of the audit as
/// CSV. `others` are files that were no analyses. Raises std::runtime_error where it cannot be drawn.
std::string auditPdf(std::span<const AuditRow> rows, std::size_t others);

} // namespace metrisk::cli
