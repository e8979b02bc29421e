#include "model/Validation.h"

#include "model/Message.h"
#include "model/Session.h"
#include "model/SubjectSide.h"
#include "model/Symmetry.h"

#include <initializer_list>
#include <string>

namespace metrisk {

namespace {

namespace title {
constexpr const char* insufficient = "Insufficient Data Available";
constexpr const char* nonPhysical = "Non-Physical Situation";
constexpr const char* subjectTolerance = "Subject Parameter Tolerance Violation";
constexpr const char* physicalMissing = "Missing Physical Limit";
constexpr const char* modeOrReading = "Mode or Reading";
constexpr const char* measuringOffset = "MTE Tolerance Offset";
constexpr const char* measuringFixed = "MTE Fixed Offset";
constexpr const char* measuringPct = "MTE % In-Tolerance";
} // namespace title

namespace text {
constexpr const char* noData = "No data have been entered for analysis.";
constexpr const char* noSubjectData = "No subject parameter data have been entered for analysis.";
constexpr const char* noMeasuringData = "No MTE data have been entered for analysis.";
constexpr const char* hundredPercent = "You have indicated 100% in-tolerance.\n"
                                       "This is a non-physical situation.\n"
                                       "(Note that continuing will cause the computed\n"
                                       "equivalent accuracy ratio to be based on\n"
                                       "the false reject risk.)  Continue anyway?";
constexpr const char* notBelowMode = "Must be greater than or equal to the mode.";
constexpr const char* notAboveMode = "Must be less than or equal to the mode.";
constexpr const char* limitsOnMode = "Both tolerance limits cannot equal Mode.";
constexpr const char* aboveZero = "Must be greater than zero.";
constexpr const char* below100 = "Must be less than 100%.";
constexpr const char* nonZero = "Must be nonzero.";
constexpr const char* physicalNotEntered = "You indicated an Physical Limit was to entered,\n"
                                           "but did not enter one.  Try again.";
constexpr const char* physicalBelowMode = "If the Physical Limit is less than the Mode,\n"
                                          "it must also be less than the lower tolerance limit.";
constexpr const char* physicalAboveMode = "If the Physical Limit is greater than the Mode,\n"
                                          "it must also be greater than upper tolerance limit.";
constexpr const char* physicalOnMode = "You have set the Physical Limit equal to the Mode.\n"
                                       "This is non-physical.  Continue?";
constexpr const char* lowerNotBelow = "Must be less than the Mode for\n"
                                      "single-sided lower limit cases.";
constexpr const char* upperNotAbove = "Must be greater than the Mode for\n"
                                      "single-sided upper limit cases.";
constexpr const char* above50 = "Must be greater than 50% for single-sided\n"
                                "cases with an unspecified Physical Limit.";
} // namespace text

bool allZero(std::initializer_list<double> values) {
    for (double value : values)
        if (value != 0) return false;
    return true;
}

bool subjectEmpty(const SubjectParameter& r) {
    return allZero({r.SU_Mode, r.SU_UpperLimit, r.SU_LowerLimit, r.SU_PctInTol});
}

/// What is wrong with a parameter, and where.
struct BrokenRule {
    std::string_view title;
    std::string_view text;
    const char* box;
    const char* panel = nullptr;
    bool waits = false; // until the entry being made is committed: more may follow
};
using Broken = std::optional<BrokenRule>;

/// Ends a check: message, focus and highlight as the gates allow, and the flag in any case.
void fail(Session& session, const BrokenRule& rule, bool speaks) {
    session.record.AbortFlag = true;
    if (!speaks || validationIsQuiet(session)) return;
    tell(session.ui, {rule.text, rule.title});
    session.ui.focus(rule.box, true);
    if (rule.panel) session.ui.highlight(rule.panel);
}

/// The subject parameter's rules by number in four parts, between which the user may be asked.
Broken dataMissing(const SubjectParameter& su) {
    if (!subjectEmpty(su)) return std::nullopt;
    return BrokenRule{title::insufficient, text::noSubjectData, "ModeBox", nullptr, true};
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

/// Of a single-sided tolerance, towards the side that it has.
struct OneSide {
    explicit OneSide(const SubjectParameter& su)
        : lower(su.OptSingleLower), side(lower ? lowerSide : upperSide), mode(side.sign * su.SU_Mode),
          limit(side.sign * (lower ? su.SU_LowerLimit : su.SU_UpperLimit)),
          physical(side.sign * su.PhysicalLimit) {}

    bool lower;
    const SubjectSide& side;
    double mode, limit, physical;
};

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

/// Tells of a broken rule; false if none is.
bool failed(Session& session, const Broken& broken) {
    if (broken) fail(session, *broken, !broken->waits || !session.record.EntryBoxChanged);
    return broken.has_value();
}

bool userGoesOn(Session& session, const char* question) {
    return ask(session.ui, {question, title::nonPhysical, BoxButtons::YesNo, Answer::Yes}) == Answer::Yes;
}

void validateSingleSided(Session& session) {
    Analysis& r = session.record;
    if (failed(session, rulesOfPhysicalLimit(r))) return;
    const OneSide one(r);
    Flag& acknowledged = one.lower ? r.AckPhysLimitLow : r.AckPhysLimitHigh;
    if (r.PhysLimitRequired && r.PhysicalLimitEntered && one.physical == one.mode && !acknowledged &&
        !validationIsQuiet(session)) {
        if (!userGoesOn(session, text::physicalOnMode)) {
            r.AbortFlag = true;
            session.ui.focus(otherSide(one.side).limitBox, true);
            return;
        }
        acknowledged = true;
    }
    failed(session, rulesOfOneSide(r));
}

} // namespace

bool validationIsQuiet(const Session& session) {
    const Analysis& r = session.record;
    return r.LoadInProgress || r.ObservedWorksheetOpen || r.GB_ScreenOpen;
}

void CheckDataPresent(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    const bool speaks = !r.EntryBoxChanged && !r.ObservedWorksheetOpen;
    if (subjectEmpty(r)) {
        const bool measuringEmpty = allZero({r.MTE_PctInTol, r.MTE_Mode, r.MTE_Offset});
        fail(session, {title::insufficient, measuringEmpty ? text::noData : text::noSubjectData, "ModeBox"},
             speaks);
    } else if (allZero({r.MTE_PctInTol, r.MTE_Mode, r.MTE_UpperLimit, r.MTE_LowerLimit})) {
        fail(session, {title::insufficient, text::noMeasuringData, "MTEOffsetBox"},
             speaks && !r.UncertaintyWorksheetOpen);
    }
}

void ValidateSubject(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    if (failed(session, dataMissing(r))) return;
    if (!r.Ack100Pct && !validationIsQuiet(session)) {
        r.Ack100Pct = true;
        if (r.SU_PctInTol == 100 && isSymmetric(r) && !userGoesOn(session, text::hundredPercent)) {
            r.AbortFlag = true;
            return;
        }
    }
    if (failed(session, rulesOfLimits(r))) return;
    if (r.OptSingleLower || r.OptSingleUpper) validateSingleSided(session);
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

void ValidateMeasuring(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    const bool speaks = r.Computing && !r.EntryBoxChanged;
    if (!r.ObservedWorksheetOpen && allZero({r.MTE_PctInTol, r.MTE_Mode, r.MTE_UpperLimit, r.MTE_LowerLimit}))
        return fail(session, {title::insufficient, text::noMeasuringData, "MTEOffsetBox"}, speaks);
    if (const auto refused = refusedMeasuringOffset(r.MTE_Offset)) {
        if (r.MTE_PctReading != 0 && r.SU_Mode == 0)
            return fail(session, {title::modeOrReading, text::nonZero, "ModeBox"}, speaks);
        return fail(session, {refused->title, refused->text, "MTEOffsetBox", "pnl_MTEOffset"}, speaks);
    }
    if (r.MTE_FixedOffset < 0)
        return fail(session,
                    {title::measuringFixed, zeroOrAboveText, "MTEFixedOffsetBox", "pnl_MTEFixedOffset"},
                    speaks);
    if (const auto refused = refusedMeasuringPct(r.MTE_PctInTol, r.MTE_EntryByUncertainty))
        return fail(session, {refused->title, refused->text, "MTEPctInTolBox", "pnl_MTEPctInTol"}, speaks);
    if (r.ProcessUncertainty < 0) {
        r.AbortFlag = true;
        if (validationIsQuiet(session) || !r.Computing) return;
        tell(session.ui, {zeroOrAboveText, processUncertaintyTitle});
        if (r.UncertaintyWorksheetOpen) session.ui.focus("txt_ProcessUncertainty", true);
    }
}

} // namespace metrisk
