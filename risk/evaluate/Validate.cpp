#include "record/EntryRules.h"
#include "risk/evaluate/EnteredSubject.h"
#include "risk/evaluate/Evaluate.h"

namespace metrisk {

namespace {

Refusal entryRefusal(const Message& message, std::string_view box) {
    Refusal refusal(RefusalKind::Entry, "ValidateMeasuring");
    refusal.title = message.title;
    refusal.text = message.text;
    refusal.box = box;
    return refusal;
}

} // namespace

SubjectParameter enteredSubject(const SubjectEntry& e) {
    SubjectParameter su;
    su.SU_Mode_fmt.clear(); // numbers have no digits that were typed
    su.SU_Mode = e.mode;
    su.SU_UpperOffset = e.upperOffset;
    su.SU_LowerOffset = e.lowerOffset;
    su.SU_UpperLimit = e.upperLimit;
    su.SU_LowerLimit = e.lowerLimit;
    su.SU_PctInTol = e.pctInTol;
    su.OptTwoSided = e.sides == Sides::Two;
    su.OptSingleUpper = e.sides == Sides::Upper;
    su.OptSingleLower = e.sides == Sides::Lower;
    su.PhysLimitRequired = e.physicalLimitRequired;
    su.PhysicalLimitEntered = e.physicalLimit.has_value();
    su.PhysicalLimit = e.physicalLimit.value_or(0);
    return su;
}

std::optional<Refusal> validate(const TestEntries& entries) {
    if (auto refusal = refusedSubject(enteredSubject(entries.subject))) return refusal;
    const MeasuringEntry& measuring = entries.measuring;
    if (const auto refused = refusedMeasuringOffset(measuring.offset))
        return entryRefusal(*refused, "MTEOffsetBox");
    if (const auto refused = refusedMeasuringPct(measuring.pctInTol, measuring.byUncertainty))
        return entryRefusal(*refused, "MTEPctInTolBox");
    if (entries.process && entries.process->process < 0)
        return entryRefusal({zeroOrAboveText, processUncertaintyTitle}, "txt_ProcessUncertainty");
    return std::nullopt;
}

} // namespace metrisk
