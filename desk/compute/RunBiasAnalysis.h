// The bias analysis of a session, with what it has to tell.
#pragma once

namespace metrisk {

struct Session;

/// Fits both parameters and analyses the samples of the record into its bias group, which they leave
/// themselves unchanged. Without any sample the results are cleared. SMPC_Computed tells whether there are
/// results; a missing % in-tolerance is told and leaves the earlier ones.
void RunBiasAnalysis(Session& session);

} // namespace metrisk
