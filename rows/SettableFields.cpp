#include "rows/SettableFields.h"

#include "base/Picture.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "record/Analysis.h"
#include "record/ComposedOffset.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "rows/TestPoint.h"
#include "rows/UnitFactors.h"
#include "uncertainty/Samples.h"
#include "units/ToleranceDecimals.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// Fields that say which form an entry has: they follow from the entries themselves.
struct OfForm {
    std::string_view field, entries;
};
constexpr OfForm ofForm[] = {
    {"OptTwoSided", "sided"},           {"OptSingleUpper", "sided"},
    {"OptSingleLower", "sided"},        {"MTE_EntryByUncertainty", "mte_tol, mte_u or mte_expanded"},
    {"GB_UpperKEntered", "gb_k or gb"}, {"GB_LowerKEntered", "gb_k or gb"}};

constexpr std::string_view inNoFile[] = {"Remarks",           "ErrorPlot_UnitsFactor", "MTEPlot_Title",
                                         "SUPlot_Zoom",       "MTEPlot_Zoom",          "ErrorPlot_Zoom",
                                         "SUPlot_UseMTETols", "MTEPlot_UseSUTols"};

constexpr Entry upperEntries[] = {Entry::Tol, Entry::TolUpper, Entry::TolPct, Entry::Upper};
constexpr Entry lowerEntries[] = {Entry::Tol, Entry::TolLower, Entry::TolPct, Entry::Lower};
constexpr Entry measuringEntries[] = {Entry::MteTol, Entry::MteTolPct,   Entry::MteRatio,
                                      Entry::MteU,   Entry::MteExpanded, Entry::Tur};
constexpr Entry ratioEntries[] = {Entry::BaseRatio};
constexpr Entry searchEntries[] = {Entry::EqOn};
constexpr Entry physicalEntries[] = {Entry::Phys};
constexpr Entry processEntries[] = {Entry::ProcessU};
constexpr Entry guardbandEntries[] = {Entry::Gb,          Entry::GbUpper,    Entry::GbLower,
                                      Entry::GbK,         Entry::GbKUpper,   Entry::GbKLower,
                                      Entry::AcceptUpper, Entry::AcceptLower};

struct Rivals {
    std::string_view field;
    std::span<const Entry> entries;
};
constexpr Rivals rivals[] = {
    {"SU_UpperFixed", upperEntries},        {"SU_UpperPctReading", upperEntries},
    {"SU_LowerFixed", lowerEntries},        {"SU_LowerPctReading", lowerEntries},
    {"MTE_FixedOffset", measuringEntries},  {"Base_AccRatNum", ratioEntries},
    {"Base_AccRatDen", ratioEntries},       {"EqRatioOnFalseAccept", searchEntries},
    {"PhysLimitRequired", physicalEntries}, {"PhysicalLimitEntered", physicalEntries},
    {"IncludeUncertainty", processEntries}, {"IncludeGuardbands", guardbandEntries},
    {"GB_SymmetricMult", guardbandEntries}, {"GB_SymmetricK", guardbandEntries}};

const OfForm* formOf(std::string_view field) {
    const auto* found = std::ranges::find(ofForm, field, &OfForm::field);
    return found == std::end(ofForm) ? nullptr : found;
}

class Following {
  public:
    Following(Analysis& record, const std::vector<FieldPlace>& set, const UnitFactors& units,
              const Regional& regional)
        : r_(record), set_(set), units_(units), regional_(regional) {}

    void all() {
        if (has("SU_ToleranceUnits")) followUnits(r_.SU_ToleranceUnits, r_.SU_TolUnitsFactor);
        if (has("MTE_ToleranceUnits")) followUnits(r_.MTE_ToleranceUnits, r_.MTE_TolUnitsFactor);
        if (has("SU_ToleranceUnits")) UpdateToleranceDecimals(r_);
        if (has("MTE_ToleranceUnits")) UpdateMTEToleranceDecimals(r_);
        if (has("SU_UpperFixed") || has("SU_UpperPctReading")) composeSide(upperSide);
        if (has("SU_LowerFixed") || has("SU_LowerPctReading")) composeSide(lowerSide);
        if (has("MTE_FixedOffset") && !r_.MTE_EntryByUncertainty) composeMeasuring();
        if ((has("Base_AccRatNum") || has("Base_AccRatDen")) && r_.Base_AccRatDen > 0)
            r_.Base_EqRatioTarget = checked(r_.Base_AccRatNum / r_.Base_AccRatDen);
        for (const int slot : {1, 2})
            if (ofSample(slot)) storeSamples(slot);
    }

  private:
    bool has(std::string_view field) const {
        return std::ranges::any_of(set_,
                                   [&](const FieldPlace& place) { return place.of->field.name == field; });
    }

    bool ofSample(int slot) const {
        return std::ranges::any_of(set_, [&](const FieldPlace& place) {
            const std::string_view name = place.of->field.name;
            return name == "Stat_Sample" ? place.index[1] == slot
                                         : (name == "Stat_SampleSize" || name == "Stat_Value5" ||
                                            name == "Stat_Flag1" || name == "Stat_Flag2") &&
                                               place.index[0] == slot;
        });
    }

    /// What the screen of samples derives when it is left.
    void storeSamples(int slot) {
        if (r_.Stat_SampleSize[slot] == 0 && !has("Stat_SampleSize")) return; // the row is of other figures
        const auto kept = r_.Stat_Sample; // a value beyond the size is to be refused, not lost
        std::vector<double> values;
        int decimals = 0;
        for (int i = 1; i <= std::min(r_.Stat_SampleSize[slot], maxSampleSize); ++i) {
            values.push_back(r_.Stat_Sample[i][slot]);
            decimals = std::max(decimals, DecimalsOfValue(values.back(), 0));
        }
        StoreSamples(r_, slot, values, decimals, regional_);
        for (int i = r_.Stat_SampleSize[slot] + 1; i <= maxSampleSize; ++i)
            r_.Stat_Sample[i][slot] = kept[i][slot];
    }

    void followUnits(const std::string& unit, double& factor) const {
        if (unit == ppmUnits && r_.NominalUnits != ppmUnits) {
            if (r_.SU_Mode == 0) throw RowFault{false, toldText(ppmModeMessage.title, ppmModeMessage.text)};
            factor = perMillion / std::fabs(r_.SU_Mode);
        } else {
            factor = unit.empty() || r_.NominalUnits.empty()
                         ? 1
                         : units_.factor(r_.NominalUnits, unit, r_.MeasurementArea);
        }
    }

    void composeSide(const SubjectSide& side) {
        const auto [offset, picture] =
            composeOffset({r_.*side.fixed, r_.*side.pctReading, r_.*side.fixedPicture, "##0"}, r_.SU_Mode);
        if (r_.*side.fixed < 0 || r_.*side.pctReading < 0)
            throw RowFault{false, toldText(side.offsetTitle, zeroOrAboveText)};
        r_.*side.offset = offset;
        r_.*side.offsetPicture = picture;
        r_.*side.limit = checked(r_.SU_Mode + side.sign * offset);
    }

    void composeMeasuring() {
        const auto [offset, picture] =
            composeOffset({r_.MTE_FixedOffset, r_.MTE_PctReading, r_.MTE_FixedOffset_fmt, "##0"}, r_.SU_Mode);
        r_.MTE_Offset = offset;
        r_.MTE_Offset_fmt = picture;
        r_.MTE_UpperLimit = checked(r_.MTE_Mode + offset);
        r_.MTE_LowerLimit = checked(r_.MTE_Mode - offset);
    }

    Analysis& r_;
    const std::vector<FieldPlace>& set_;
    const UnitFactors& units_;
    const Regional& regional_;
};

} // namespace

std::optional<Entry> entryOfField(const NamedField& field) {
    for (const EntryInfo& info : entryTable())
        if (!info.field.empty() && info.field == field.field.name) return info.entry;
    return std::nullopt;
}

std::string notSettable(const NamedField& field) {
    const std::string name(field.field.name);
    if (const OfForm* form = formOf(name)) return name + " follows from " + std::string(form->entries);
    if (entryOfField(field)) return "";
    if (std::ranges::find(inNoFile, name) != std::end(inNoFile)) return name + " is in no file";
    switch (field.field.source) {
    case Source::Picture: return name + " is a picture: it has the digits of its number";
    case Source::Session: return name + " is of a running program, not of an analysis";
    case Source::Settled:
    case Source::Derived:
    case Source::Result: return name + " is computed";
    case Source::Entered:
    case Source::Kept:
    case Source::Option: break;
    }
    return "";
}

std::vector<const NamedField*> plainFields() {
    std::vector<const NamedField*> plain;
    for (const NamedField& field : namedFields())
        if (!entryOfField(field) && notSettable(field).empty()) plain.push_back(&field);
    return plain;
}

std::span<const Entry> rivalsOf(const NamedField& field) {
    for (const Rivals& one : rivals)
        if (one.field == field.field.name) return one.entries;
    return {};
}

void followFields(Analysis& record, const std::vector<FieldPlace>& set, const UnitFactors& units,
                  const Regional& regional) {
    try {
        Following(record, set, units, regional).all();
    } catch (const RuntimeFault&) {
        throw RowFault{false, toldText("Not Computed", "These entries lead to no finite number.")};
    }
}

} // namespace metrisk
