// A report of a session's analysis.
#pragma once

#include "reports/ReportDocument.h"
#include "reports/ReportSelection.h"

namespace metrisk {

struct Session;

/// Composes the whole document from StartDoc to EndDoc. False if that failed: the user has been told, and the
/// document is to be dropped. The session does not change.
bool ComposeReport(const Session& session, const ReportSelection& selection, ReportDocument& document,
                   bool signatureTable);

} // namespace metrisk
