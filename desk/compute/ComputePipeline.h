// The road from the compute button to the figures in the result boxes.
#pragma once

namespace metrisk {

struct Session;

/// The compute button: compares with the snapshot, validates, fits, and runs the compute behind the
/// progress screen. A numeric fault ends it silently with AbortFlag set.
void ComputeResults_Click(Session& session);

/// A whole risk compute without the progress screen and without the ratio search; results go to the
/// record. Failure is AbortFlag, with the earlier results in place.
void ComputeRisksDirect(Session& session);

/// Opens the progress screen and computes behind it.
void requestCompute(Session& session);

} // namespace metrisk
