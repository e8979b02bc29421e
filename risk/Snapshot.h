// The inputs of the last compute, and what has changed since.
#pragma once

namespace metrisk {

struct Analysis;

/// Sets NothingChanged and GuardbandsUnchanged. What was entered is compared exactly, what was derived from
/// it (standard uncertainty, measuring sigma, degrees of freedom unless typed) to rounding.
void CompareWithSnapshot(Analysis& record);

/// The same without a trace in the record: the last results belong to the present entries.
bool snapshotHolds(const Analysis& record);

/// Sets BaselineUnchanged. The stored figures are whole numbers, so that a baseline with a fraction
/// always counts as changed.
void CompareBaseline(Analysis& record);
/// The whole-number parts are those of the last ratio search. A change that they do not show drops the ratio.
bool baselineSnapshotHolds(const Analysis& record);

void TakeSnapshot(Analysis& record);
/// Cuts each figure to a whole number; one too large for the file is stored as the largest.
void TakeBaselineSnapshot(Analysis& record);
/// The entries count as changed at the next comparison.
void DropSnapshot(Analysis& record);
/// The baseline counts as changed at the next comparison.
void DropBaselineSnapshot(Analysis& record);
/// The next compute counts the baseline as changed and searches again; the ratio found before is gone.
void dropEquivalentRatio(Analysis& record);

} // namespace metrisk
