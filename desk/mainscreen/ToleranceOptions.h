// The main screen's options of tolerance kind, symmetry, physical limit, display and inclusion.
//
// None computes risks, and none but chk_IncludeUncertainty fits; they raise ComputeNeeded and
// FileChanged on a real change. The caller repaints from mainDisplay().
#pragma once

namespace metrisk {

struct Session;

enum class ToleranceKind { TwoSided, SingleUpper, SingleLower };

/// TwoSideOption, SingleUpperOption, SingleLowerOption. A physical limit entered before is forgotten.
void chooseTolerance(Session& session, ToleranceKind kind);

void PhysLimitRequired_Click(Session& session, bool checked);

/// Checked, the lower side takes the upper side's figures.
void chk_Symmetric_Click(Session& session, bool checked);

/// optOffsets: limits in nominal units (index 0) or tolerances in tolerance units (index 1).
void optOffsets_Click(Session& session, int index);

void chk_IncludeUncertainty_Click(Session& session, bool checked);
void chk_IncludeGuardbands_Click(Session& session, bool checked);
/// Checked, the lower multiplier takes the upper one.
void chk_SymmetricGBands_Click(Session& session, bool checked);

} // namespace metrisk
