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
constexpr const char* processUncertainty = "Measurement Process Uncertainty";
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

bool subjectEmpty(const Analysis& r) {
    return allZero({r.SU_Mode, r.SU_UpperLimit, r.SU_LowerLimit, r.SU_PctInTol});
}

struct Failure {
    std::string_view title;
    std::string_view text;
    const char* box;
    const char* panel = nullptr;
};

/// Ends a check: message, focus and highlight as the gates allow, and the flag in any case.
void fail(Session& session, const Failure& failure, bool speaks) {
    session.record.AbortFlag = true;
    if (!speaks || validationIsQuiet(session)) return;
    tell(session.ui, {failure.text, failure.title});
    session.ui.focus(failure.box, true);
    if (failure.panel) session.ui.highlight(failure.panel);
}

bool userGoesOn(Session& session, const char* question) {
    return ask(session.ui, {question, title::nonPhysical, BoxButtons::YesNo, Answer::Yes}) == Answer::Yes;
}

void validateSingleSided(Session& session) {
    Analysis& r = session.record;
    const SubjectSide& side = presentSide(r);
    const char* physicalLimitBox = otherSide(side).limitBox;
    const double mode = side.sign * r.SU_Mode;
    const double limit = side.sign * r.*side.limit;
    const double physical = side.sign * r.PhysicalLimit;
    const bool entering = r.EntryBoxChanged;
    if (r.PhysLimitRequired && !r.PhysicalLimitEntered)
        return fail(session, {title::physicalMissing, text::physicalNotEntered, physicalLimitBox}, !entering);
    if (r.PhysLimitRequired && r.PhysicalLimitEntered && physical > mode && physical <= limit)
        return fail(session,
                    {physicalLimitTitle, r.OptSingleLower ? text::physicalBelowMode : text::physicalAboveMode,
                     physicalLimitBox},
                    true);

    Flag& acknowledged = r.OptSingleLower ? r.AckPhysLimitLow : r.AckPhysLimitHigh;
    if (r.PhysLimitRequired && r.PhysicalLimitEntered && physical == mode && !acknowledged &&
        !validationIsQuiet(session)) {
        if (!userGoesOn(session, text::physicalOnMode)) {
            r.AbortFlag = true;
            session.ui.focus(physicalLimitBox, true);
            return;
        }
        acknowledged = true;
    }
    if (limit <= mode)
        return fail(
            session,
            {side.limitTitle, r.OptSingleLower ? text::lowerNotBelow : text::upperNotAbove, side.limitBox},
            !entering);
    if (r.SU_PctInTol <= 50 && !r.PhysLimitRequired)
        return fail(session, {subjectPctTitle, text::above50, "PctInTolBox"}, true);
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
    const bool entering = r.EntryBoxChanged;
    if (subjectEmpty(r))
        return fail(session, {title::insufficient, text::noSubjectData, "ModeBox"}, !entering);

    const bool hundred = r.SU_PctInTol == 100;
    if (!r.Ack100Pct && !validationIsQuiet(session)) {
        r.Ack100Pct = true;
        if (hundred && isSymmetric(r) && !userGoesOn(session, text::hundredPercent)) {
            r.AbortFlag = true;
            return;
        }
    }
    if (r.SU_UpperLimit < r.SU_Mode && !r.OptSingleLower)
        return fail(session, {upperSide.limitTitle, text::notBelowMode, upperSide.limitBox}, true);
    if (r.SU_LowerLimit > r.SU_Mode && !r.OptSingleUpper)
        return fail(session, {lowerSide.limitTitle, text::notAboveMode, lowerSide.limitBox}, true);
    if (hundred && !isSymmetric(r))
        return fail(session, {subjectPctTitle, hundredOnlySymmetricText, "PctInTolBox"}, true);
    if (r.OptTwoSided && r.SU_UpperLimit == r.SU_Mode && r.SU_LowerLimit == r.SU_Mode)
        return fail(session, {title::subjectTolerance, text::limitsOnMode, upperSide.limitBox}, !entering);
    if (r.SU_PctInTol <= 0)
        return fail(session, {subjectPctTitle, text::aboveZero, "PctInTolBox"}, !entering);
    if (r.SU_PctInTol > 100) return fail(session, {subjectPctTitle, text::below100, "PctInTolBox"}, true);

    if (r.OptSingleLower || r.OptSingleUpper) validateSingleSided(session);
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
        tell(session.ui, {zeroOrAboveText, title::processUncertainty});
        if (r.UncertaintyWorksheetOpen) session.ui.focus("txt_ProcessUncertainty", true);
    }
}

} // namespace metrisk
