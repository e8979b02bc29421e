#include "rows/PointRecord.h"

#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "record/Analysis.h"
#include "record/SubjectSide.h"
#include "risk/evaluate/BaselineFigures.h"
#include "units/ToleranceDecimals.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace metrisk {

namespace {

int decimalsOf(std::string_view digits) {
    const auto exponent = digits.find_first_of("eE");
    int decimals = 0;
    const auto mark = digits.find('.');
    if (mark != digits.npos) decimals = static_cast<int>(std::min(exponent, digits.size()) - mark) - 1;
    if (exponent != digits.npos) {
        digits.remove_prefix(exponent + 1);
        if (digits.starts_with('+')) digits.remove_prefix(1);
        int power = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), power);
        decimals -= power;
    }
    return decimals;
}

/// A number that is taken from an entry shows the digits that were typed, and what its unit adds to them; one
/// that follows from others shows all that it has.
class Pictures {
  public:
    explicit Pictures(const NamedEntries& named) : named_(named) {}

    /// `from` are the entries that may have given the number, one of which at most is named.
    void put(double& field, std::string& picture, double value,
             std::initializer_list<Entry> from = {}) const {
        const Entry* typed = std::ranges::find_if(from, [&](Entry entry) { return named_.has(entry); });
        if (typed == from.end() && field == value) return;
        field = value;
        const int decimals = typed == from.end() ? 0 : typedDecimals(named_[*typed], value);
        picture = PictureForDecimals(DecimalsOfValue(value, std::clamp(decimals, 0, mostDecimals)));
    }

  private:
    static constexpr int mostDecimals = 15;

    static int typedDecimals(const NamedEntry& entry, double value) {
        std::string_view digits = entry.text;
        if (entry.ownUnit)
            digits = digits.substr(0, static_cast<std::size_t>(entry.unit.data() - digits.data()));
        const double decades = std::log10(std::fabs(entry.number / value));
        return decimalsOf(digits) + (std::isfinite(decades) ? static_cast<int>(std::lround(decades)) : 0);
    }

    const NamedEntries& named_;
};

void putSide(Analysis& r, const Pictures& pictures, const SubjectSide& side, double offset, double limit,
             const OffsetPart& parts, const NamedEntries& named, bool symmetric) {
    const bool upper = &side == &upperSide;
    const Entry own = upper ? Entry::TolUpper : Entry::TolLower;
    const Entry followed = symmetric && !named.has(own) ? (upper ? Entry::TolLower : Entry::TolUpper) : own;
    pictures.put(r.*side.offset, r.*side.offsetPicture, offset, {Entry::Tol, followed});
    pictures.put(r.*side.fixed, r.*side.fixedPicture, parts.fixed, {Entry::Tol, followed});
    r.*side.pctReading = parts.pct;
    r.*side.limit = limit;
}

/// Tolerances are held in nominal units, and shown in their own.
void putUnits(Analysis& r, const TestPoint& point) {
    r.MeasurementArea = point.area;
    if (r.NominalUnits != point.unit) {
        r.NominalUnits = point.unit;
        r.SU_ToleranceUnits = point.subjectUnit.name;
        r.MTE_ToleranceUnits = r.MTE_ParameterUnits = point.measuringUnit.name;
        r.SU_TolUnitsFactor = point.subjectUnit.factor;
        r.MTE_TolUnitsFactor = point.measuringUnit.factor;
    }
    const double mode = std::fabs(point.entries.subject.mode);
    if (r.NominalUnits != ppmUnits && !r.MeasurementArea.empty() && mode != 0) {
        if (point.subjectUnit.isPpm()) r.SU_TolUnitsFactor = perMillion / mode;
        if (point.measuringUnit.isPpm()) r.MTE_TolUnitsFactor = perMillion / mode;
    }
    UpdateToleranceDecimals(r);
    UpdateMTEToleranceDecimals(r);
}

/// A k that was typed decides over its multiplier, and sides that differ share nothing.
void putGuardband(Analysis& r, const Pictures& pictures, const TestPoint& point, const NamedEntries& named) {
    const bool byK = named.any({Entry::GbK, Entry::GbKUpper, Entry::GbKLower});
    const Guardband& multipliers = point.multipliers;
    if (r.GB_UpperMult != multipliers.upper || r.GB_LowerMult != multipliers.lower)
        r.GuardbandsChanged = true;
    pictures.put(r.GB_UpperMult, r.GB_UpperMult_fmt, multipliers.upper, {Entry::Gb, Entry::GbUpper});
    pictures.put(r.GB_LowerMult, r.GB_LowerMult_fmt, multipliers.lower, {Entry::Gb, Entry::GbLower});
    pictures.put(r.GB_UpperK, r.GB_UpperK_fmt, point.kUpper, {Entry::GbK, Entry::GbKUpper});
    pictures.put(r.GB_LowerK, r.GB_LowerK_fmt, point.kLower, {Entry::GbK, Entry::GbKLower});
    r.GB_UpperKEntered = point.kUpperTyped;
    r.GB_LowerKEntered = point.kLowerTyped;
    if (multipliers.upper != multipliers.lower || byK) {
        r.GB_SymmetricMult = false;
        r.GB_AsymmetricMult = true;
    }
    r.GB_SymmetricK = point.kUpperTyped && point.kLowerTyped && point.kUpper == point.kLower;
    r.IncludeGuardbands = true;
}

/// A typed total stands for the table of its parts, which is emptied.
void putProcess(Analysis& r, const Pictures& pictures, double process) {
    for (int row = 1; row <= 8; ++row)
        for (const int column : {1, 2, 3, 4, 6}) {
            r.ErrTableText[row][column].clear();
            r.ErrTableDisplay[row + 1][column].clear();
        }
    pictures.put(r.ProcessUncertainty, r.ProcessUncertainty_fmt, process, {Entry::ProcessU});
    r.Process_DegFreedom = 0;
    r.IncludeUncertainty = true;
}

} // namespace

void putIntoRecord(Analysis& r, const TestPoint& point, const NamedEntries& named) {
    const SubjectEntry& su = point.entries.subject;
    const MeasuringEntry& mte = point.entries.measuring;
    const Pictures pictures(named);
    const Reference& base = point.entries.reference;
    const bool baselineMoves =
        r.FalseAcceptOption != static_cast<int>(point.entries.convention) ||
        (named.has(Entry::BaseRatio) && r.Base_AccRatNum / r.Base_AccRatDen != base.ratio) ||
        r.Base_MTEPctInTol != base.measuringPct || r.Base_SUPctInTol != base.subjectPct;
    const bool measuringMoves = r.MTE_Mode != su.mode || r.MTE_Offset != mte.offset;
    if (named.has(Entry::Nominal) || r.NominalUnits != point.unit) putUnits(r, point);
    r.MeasurementArea = point.area;
    pictures.put(r.SU_Mode, r.SU_Mode_fmt, su.mode, {Entry::Nominal});
    r.MTE_Mode = su.mode;
    r.OptTwoSided = su.sides == Sides::Two;
    r.OptSingleUpper = su.sides == Sides::Upper;
    r.OptSingleLower = su.sides == Sides::Lower;
    putSide(r, pictures, upperSide, su.upperOffset, su.upperLimit, point.upper, named,
            point.symmetricTolerances);
    putSide(r, pictures, lowerSide, su.lowerOffset, su.lowerLimit, point.lower, named,
            point.symmetricTolerances);
    if (named.any({Entry::TolUpper, Entry::TolLower, Entry::Upper, Entry::Lower}) &&
        su.upperOffset != su.lowerOffset)
        r.SymmetricTolerances = false;
    r.SU_PctInTol = su.pctInTol;
    if (r.PhysLimitRequired || su.physicalLimitRequired) {
        r.PhysLimitRequired = su.physicalLimitRequired;
        r.PhysicalLimitEntered = su.physicalLimit.has_value();
        pictures.put(r.PhysicalLimit, r.PhysicalLimit_fmt, su.physicalLimit.value_or(0), {Entry::Phys});
    }
    pictures.put(r.MTE_Offset, r.MTE_Offset_fmt, mte.offset, {Entry::MteTol, Entry::MteExpanded});
    pictures.put(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, point.measuring.fixed, {Entry::MteTol});
    r.MTE_PctReading = point.measuring.pct;
    pictures.put(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, point.stdUncertainty, {Entry::MteU});
    r.MTE_PctInTol = mte.pctInTol;
    r.MTE_DegFreedom = mte.degFreedom;
    r.MTE_EntryByUncertainty = mte.byUncertainty;
    if (measuringMoves) {
        r.MTE_UpperLimit = su.mode + mte.offset;
        r.MTE_LowerLimit = su.mode - mte.offset;
    }
    if (named.has(Entry::ProcessU)) putProcess(r, pictures, point.entries.process->process);
    if (namesGuardband(named)) {
        putGuardband(r, pictures, point, named);
    } else if (r.GB_UpperMult != point.multipliers.upper || r.GB_LowerMult != point.multipliers.lower) {
        r.GuardbandsChanged = true; // they have followed their k-factors
        pictures.put(r.GB_UpperMult, r.GB_UpperMult_fmt, point.multipliers.upper);
        pictures.put(r.GB_LowerMult, r.GB_LowerMult_fmt, point.multipliers.lower);
    }
    r.FalseAcceptOption = static_cast<int>(point.entries.convention);
    r.EqRatioOnFalseAccept = point.entries.ratioOnFalseAccept;
    if (named.has(Entry::BaseRatio))
        r.Base_AccRatNum = r.Base_EqRatioTarget = base.ratio, r.Base_AccRatDen = 1;
    r.Base_MTEPctInTol = base.measuringPct;
    r.Base_SUPctInTol = base.subjectPct;
    if (baselineMoves) storeBaselineRisks(r);
}

} // namespace metrisk
