// Fit of the record's subject parameter, with its messages.
#pragma once

namespace metrisk {

struct Session;

/// Writes the fit of the record's entries into it. On failure the message is shown, the focus goes to the
/// box concerned, AbortFlag and ComputeNeeded are set, and the earlier fit is unchanged; a numeric fault does
/// the same without a message.
void FitSubjectParameter(Session& session);

} // namespace metrisk
