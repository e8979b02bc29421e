#include "record/EntryRules.h"

#include "record/SubjectSide.h"
#include "record/Symmetry.h"

namespace metrisk {

namespace {

namespace title {
constexpr const char* subjectTolerance = "Subject Parameter Tolerance Violation";
constexpr const char* physicalMissing = "Missing Physical Limit";
constexpr const char* measuringOffset = "MTE Tolerance Offset";
constexpr const char* measuringPct = "MTE % In-Tolerance";
} // namespace title

namespace text {
constexpr const char* notBelowMode = "Must be greater than or equal to the mode.";
constexpr const char* notAboveMode = "Must be less than or equal to the mode.";
constexpr const char* limitsOnMode = "Both tolerance limits cannot equal Mode.";
constexpr const char* aboveZero = "Must be greater than zero.";
constexpr const char* below100 = "Must be less than 100%.";
constexpr const char* physicalNotEntered = "You indicated an Physical Limit was to entered,\n"
                                           "but did not enter one.  Try again.";
constexpr const char* physicalBelowMode = "If the Physical Limit is less than the Mode,\n"
                                          "it must also be less than the lower tolerance limit.";
constexpr const char* physicalAboveMode = "If the Physical Limit is greater than the Mode,\n"
                                          "it must also be greater than upper tolerance limit.";
constexpr const char* lowerNotBelow = "Must be less than the Mode for\n"
                                      "single-sided lower limit cases.";
constexpr const char* upperNotAbove = "Must be greater than the Mode for\n"
                                      "single-sided upper limit cases.";
constexpr const char* above50 = "Must be greater than 50% for single-sided\n"
                                "cases with an unspecified Physical Limit.";
} // namespace text

} // namespace

bool subjectEmpty(const SubjectParameter& su) {
    return su.SU_Mode == 0 && su.SU_UpperLimit == 0 && su.SU_LowerLimit == 0 && su.SU_PctInTol == 0;
}

Broken dataMissing(const SubjectParameter& su) {
    if (!subjectEmpty(su)) return std::nullopt;
    return BrokenRule{insufficientTitle, noSubjectDataText, "ModeBox", nullptr, true};
}

Broken rulesOfLimits(const SubjectParameter& su) {
    const bool hundred = su.SU_PctInTol == 100;
    if (su.SU_UpperLimit < su.SU_Mode && !su.OptSingleLower)
        return BrokenRule{upperSide.limitTitle, text::notBelowMode, upperSide.limitBox};
    if (su.SU_LowerLimit > su.SU_Mode && !su.OptSingleUpper)
        return BrokenRule{lowerSide.limitTitle, text::notAboveMode, lowerSide.limitBox};
    if (hundred && !isSymmetric(su))
        return BrokenRule{subjectPctTitle, hundredOnlySymmetricText, "PctInTolBox"};
    if (su.OptTwoSided && su.SU_UpperLimit == su.SU_Mode && su.SU_LowerLimit == su.SU_Mode)
        return BrokenRule{title::subjectTolerance, text::limitsOnMode, upperSide.limitBox, nullptr, true};
    if (su.SU_PctInTol <= 0)
        return BrokenRule{subjectPctTitle, text::aboveZero, "PctInTolBox", nullptr, true};
    if (su.SU_PctInTol > 100) return BrokenRule{subjectPctTitle, text::below100, "PctInTolBox"};
    return std::nullopt;
}

OneSide::OneSide(const SubjectParameter& su)
    : lower(su.OptSingleLower), side(lower ? lowerSide : upperSide), mode(side.sign * su.SU_Mode),
      limit(side.sign * (lower ? su.SU_LowerLimit : su.SU_UpperLimit)),
      physical(side.sign * su.PhysicalLimit) {}

Broken rulesOfPhysicalLimit(const SubjectParameter& su) {
    const OneSide one(su);
    const char* box = otherSide(one.side).limitBox;
    if (su.PhysLimitRequired && !su.PhysicalLimitEntered)
        return BrokenRule{title::physicalMissing, text::physicalNotEntered, box, nullptr, true};
    if (su.PhysLimitRequired && one.physical > one.mode && one.physical <= one.limit)
        return BrokenRule{physicalLimitTitle, one.lower ? text::physicalBelowMode : text::physicalAboveMode,
                          box};
    return std::nullopt;
}

Broken rulesOfOneSide(const SubjectParameter& su) {
    const OneSide one(su);
    if (one.limit <= one.mode)
        return BrokenRule{one.side.limitTitle, one.lower ? text::lowerNotBelow : text::upperNotAbove,
                          one.side.limitBox, nullptr, true};
    if (su.SU_PctInTol <= 50 && !su.PhysLimitRequired)
        return BrokenRule{subjectPctTitle, text::above50, "PctInTolBox"};
    return std::nullopt;
}

std::optional<Refusal> refusedSubject(const SubjectParameter& su) {
    Broken broken = dataMissing(su);
    if (!broken) broken = rulesOfLimits(su);
    if (!broken && !su.OptTwoSided) broken = rulesOfPhysicalLimit(su);
    if (!broken && !su.OptTwoSided) broken = rulesOfOneSide(su);
    if (!broken) return std::nullopt;
    Refusal refusal(RefusalKind::Entry, "ValidateSubject");
    refusal.title = broken->title;
    refusal.text = broken->text;
    refusal.box = broken->box;
    return refusal;
}

std::optional<Message> refusedMeasuringOffset(double offset) {
    if (offset > 0) return std::nullopt;
    return Message{text::aboveZero, title::measuringOffset};
}

std::optional<Message> refusedMeasuringPct(double pct, bool enteredByUncertainty) {
    if (!(pct > 0)) return Message{text::aboveZero, title::measuringPct};
    // A confidence of exactly 100 % has a coverage factor; an in-tolerance of 100 % has no sigma.
    if (enteredByUncertainty ? pct > 100 : pct >= 100) return Message{text::below100, title::measuringPct};
    return std::nullopt;
}

} // namespace metrisk
