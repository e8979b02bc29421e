#include "rows/TestPoint.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "record/Analysis.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/evaluate/Evaluate.h"
#include "rows/TypedK.h"

namespace metrisk {

bool ToleranceUnit::isPpm() const {
    return name == ppmUnits;
}

double TestPoint::halfWidth() const {
    const SubjectEntry& su = entries.subject;
    if (su.sides == Sides::Two) return (su.lowerOffset + su.upperOffset) / 2;
    return su.sides == Sides::Upper ? su.upperOffset : su.lowerOffset;
}

TestPoint testPointOf(const Analysis& r, const Regional& regional) {
    const auto entries = entriesOf(r, regional);
    if (!entries) throw RowFault{false, "the process errors of the template allow no sum"};
    TestPoint point{.entries = *entries,
                    .upper = {r.SU_UpperFixed, r.SU_UpperPctReading},
                    .lower = {r.SU_LowerFixed, r.SU_LowerPctReading},
                    .measuring = {r.MTE_FixedOffset, r.MTE_PctReading},
                    .stdUncertainty = r.MTE_StdUncertainty,
                    .kUpper = r.GB_UpperK,
                    .kLower = r.GB_LowerK,
                    .kUpperTyped = static_cast<bool>(r.GB_UpperKEntered),
                    .kLowerTyped = static_cast<bool>(r.GB_LowerKEntered),
                    .symmetricMultipliers = static_cast<bool>(r.GB_SymmetricMult),
                    .symmetricTolerances = static_cast<bool>(r.SymmetricTolerances),
                    .includeGuardbands = r.IncludeGuardbands,
                    .subjectUnit = {r.SU_ToleranceUnits, subjectUnits(r).factor},
                    .measuringUnit = {r.MTE_ToleranceUnits, measuringUnits(r).factor},
                    .area = r.MeasurementArea,
                    .unit = r.NominalUnits,
                    .nominalUnit = r.NominalUnits,
                    .multipliers = {r.GB_UpperMult, r.GB_LowerMult}};
    if (point.kUpperTyped || point.kLowerTyped) point.kBasis = kBasisOf(point);
    return point;
}

std::optional<CountsAs> countsAsNamed(std::string_view word) {
    if (word == "estimate") return CountsAs::Estimate;
    if (word == "lower") return CountsAs::Lower;
    if (word == "median") return CountsAs::Median;
    if (word == "observed") return CountsAs::Observed;
    return std::nullopt;
}

std::string toldText(std::string_view title, std::string_view text) {
    std::string told(title);
    if (!told.empty()) told += ": ";
    told += text;
    for (char& c : told)
        if (c == '\n' || c == '\r') c = ' ';
    return told;
}

void addNote(std::string& notes, std::string_view note) {
    if (!notes.empty()) notes += " | ";
    notes += note;
}

} // namespace metrisk
