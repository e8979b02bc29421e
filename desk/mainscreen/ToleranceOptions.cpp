#include "desk/mainscreen/ToleranceOptions.h"

#include "desk/compute/KFactors.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Session.h"

#include <string>

namespace metrisk {

namespace {

constexpr const char* newPhysicalPicture = "#,##0.0000";

} // namespace

void chooseTolerance(Session& session, ToleranceKind kind) {
    Analysis& r = session.record;
    const bool twoSided = kind == ToleranceKind::TwoSided;
    const bool upper = kind == ToleranceKind::SingleUpper;
    const bool lower = kind == ToleranceKind::SingleLower;
    // The limit of a two-sided analysis can be its fit's: the same kind again leaves it.
    if (r.OptTwoSided == twoSided && r.OptSingleUpper == upper && r.OptSingleLower == lower) return;
    r.OptTwoSided = twoSided;
    r.OptSingleUpper = upper;
    r.OptSingleLower = lower;
    if (twoSided) {
        r.PhysLimitRequired = false;
        r.PhysicalLimit = 0;
        r.PhysicalLimit_fmt = newPhysicalPicture;
    }
    // A limit below the mode means nothing to the kind that needs one above it.
    r.PhysicalLimitEntered = false;
    r.markChanged();
}

void PhysLimitRequired_Click(Session& session, bool checked) {
    Analysis& r = session.record;
    if (r.OptTwoSided || r.PhysLimitRequired == checked) return;
    r.PhysLimitRequired = checked;
    r.markChanged();
}

void chk_Symmetric_Click(Session& session, bool checked) {
    Analysis& r = session.record;
    if (r.SymmetricTolerances == checked) return;
    r.SymmetricTolerances = checked;
    r.SymmetryChanged = true;
    if (checked) {
        r.SU_LowerOffset = r.SU_UpperOffset;
        r.SU_LowerOffset_fmt = r.SU_UpperOffset_fmt;
        r.SU_LowerFixed = r.SU_UpperFixed;
        r.SU_LowerFixed_fmt = r.SU_UpperFixed_fmt;
        r.SU_LowerPctReading = r.SU_UpperPctReading;
        r.SU_LowerPctReading_fmt = r.SU_UpperPctReading_fmt;
        r.SU_LowerLimit = r.SU_Mode - r.SU_UpperOffset;
    }
    r.markChanged();
}

void optOffsets_Click(Session& session, int index) {
    session.record.ShowLimits = index == 0;
}

void chk_IncludeUncertainty_Click(Session& session, bool checked) {
    Analysis& r = session.record;
    if (r.IncludeUncertainty == checked) return;
    r.IncludeUncertainty = checked;
    r.markChanged();
    r.ComputeScope = "MTE";
    ValidateAndFit(session);
}

void chk_IncludeGuardbands_Click(Session& session, bool checked) {
    Analysis& r = session.record;
    if (r.IncludeGuardbands == checked) return;
    r.IncludeGuardbands = checked;
    r.FileChanged = true;
}

void chk_SymmetricGBands_Click(Session& session, bool checked) {
    Analysis& r = session.record;
    if (r.GB_SymmetricMult == checked) return;
    chooseSymmetricMultipliers(r, checked, session.regional);
    r.FileChanged = true;
}

} // namespace metrisk
