#include "rows/PointRecord.h"

#include "base/NumberText.h"
#include "record/Analysis.h"
#include "record/SubjectSide.h"

#include <limits>

namespace metrisk {

namespace {

/// A changed number, and the picture that shows its decimals.
void put(double& field, std::string& picture, double value) {
    if (field == value) return;
    field = value;
    picture = PictureForDecimals(DecimalsOfValue(value, 0));
}

void putSide(Analysis& r, const SubjectSide& side, double offset, double limit, const OffsetPart& parts) {
    put(r.*side.offset, r.*side.offsetPicture, offset);
    put(r.*side.fixed, r.*side.fixedPicture, parts.fixed);
    r.*side.pctReading = parts.pct;
    r.*side.limit = limit;
}

/// A typed total stands for the table of its parts, which is emptied.
void putProcess(Analysis& r, double process) {
    for (int row = 1; row <= 8; ++row)
        for (const int column : {1, 2, 3, 4, 6}) {
            r.ErrTableText[row][column].clear();
            r.ErrTableDisplay[row + 1][column].clear();
        }
    put(r.ProcessUncertainty, r.ProcessUncertainty_fmt, process);
    r.Process_DegFreedom = 0;
    r.IncludeUncertainty = true;
}

} // namespace

void putIntoRecord(Analysis& r, const TestPoint& point, const NamedEntries& named) {
    const SubjectEntry& su = point.entries.subject;
    const MeasuringEntry& mte = point.entries.measuring;
    const bool unitChanges = r.NominalUnits != point.unit;
    r.MeasurementArea = point.area;
    r.NominalUnits = point.unit;
    if (unitChanges) {
        // Tolerances are held in nominal units, and shown in them.
        r.SU_ToleranceUnits = r.MTE_ToleranceUnits = r.MTE_ParameterUnits = r.NominalUnits;
        r.SU_TolUnitsFactor = r.MTE_TolUnitsFactor = 1;
        r.SU_SigDigits = r.SU_TolDecimalShift = 0;
    }
    put(r.SU_Mode, r.SU_Mode_fmt, su.mode);
    r.MTE_Mode = su.mode;
    r.OptTwoSided = su.sides == Sides::Two;
    r.OptSingleUpper = su.sides == Sides::Upper;
    r.OptSingleLower = su.sides == Sides::Lower;
    putSide(r, upperSide, su.upperOffset, su.upperLimit, point.upper);
    putSide(r, lowerSide, su.lowerOffset, su.lowerLimit, point.lower);
    if (su.upperOffset != su.lowerOffset) r.SymmetricTolerances = false;
    r.SU_PctInTol = su.pctInTol;
    r.PhysLimitRequired = su.physicalLimitRequired;
    r.PhysicalLimitEntered = su.physicalLimit.has_value();
    put(r.PhysicalLimit, r.PhysicalLimit_fmt, su.physicalLimit.value_or(0));
    put(r.MTE_Offset, r.MTE_Offset_fmt, mte.offset);
    put(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, point.measuring.fixed);
    r.MTE_PctReading = point.measuring.pct;
    put(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, point.stdUncertainty);
    r.MTE_PctInTol = mte.pctInTol;
    r.MTE_DegFreedom = mte.degFreedom;
    r.MTE_EntryByUncertainty = mte.byUncertainty;
    r.MTE_UpperLimit = su.mode + mte.offset;
    r.MTE_LowerLimit = su.mode - mte.offset;
    if (named.has(Entry::ProcessU)) putProcess(r, point.entries.process->process);
    if (r.GB_UpperMult != point.multipliers.upper || r.GB_LowerMult != point.multipliers.lower)
        r.GuardbandsChanged = true;
    put(r.GB_UpperMult, r.GB_UpperMult_fmt, point.multipliers.upper);
    put(r.GB_LowerMult, r.GB_LowerMult_fmt, point.multipliers.lower);
    put(r.GB_UpperK, r.GB_UpperK_fmt, point.kUpper);
    put(r.GB_LowerK, r.GB_LowerK_fmt, point.kLower);
    r.IncludeGuardbands = point.includeGuardbands;
    r.FalseAcceptOption = static_cast<int>(point.entries.convention);
    r.EqRatioOnFalseAccept = point.entries.ratioOnFalseAccept;
    const Reference& base = point.entries.reference;
    if (named.has(Entry::BaseRatio))
        r.Base_AccRatNum = r.Base_EqRatioTarget = base.ratio, r.Base_AccRatDen = 1;
    r.Base_MTEPctInTol = base.measuringPct;
    r.Base_SUPctInTol = base.subjectPct;
}

} // namespace metrisk
