// The running texts of a report that is exported for a word processor.
#pragma once

namespace metrisk {

class ReportDocument;

/// Takes Header and Footer into the file; `prologue` is true for the first of the file, which the document's
/// prologue comes with. Only where the export format is Rich Text. With margins as GetMargins gives them.
void BeginExportHeader(ReportDocument& document, bool prologue);

} // namespace metrisk
