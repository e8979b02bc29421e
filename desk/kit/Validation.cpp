#include "desk/kit/Validation.h"

#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "record/Symmetry.h"

#include <initializer_list>

namespace metrisk {

namespace {

namespace title {
constexpr const char* modeOrReading = "Mode or Reading";
constexpr const char* measuringFixed = "MTE Fixed Offset";
} // namespace title

namespace text {
constexpr const char* nonZero = "Must be nonzero.";
} // namespace text

bool allZero(std::initializer_list<double> values) {
    for (double value : values)
        if (value != 0) return false;
    return true;
}

/// Ends a check: message, focus and highlight as the gates allow, and the flag in any case.
void fail(Session& session, const BrokenRule& rule, bool speaks) {
    session.record.AbortFlag = true;
    if (!speaks || validationIsQuiet(session)) return;
    tell(session.ui, {rule.text, rule.title});
    session.ui.focus(rule.box, true);
    if (rule.panel) session.ui.highlight(rule.panel);
}

/// Tells of a broken rule; false if none is.
bool failed(Session& session, const Broken& broken) {
    if (broken) fail(session, *broken, !broken->waits || !session.record.EntryBoxChanged);
    return broken.has_value();
}

bool userGoesOn(Session& session, const char* question) {
    return ask(session.ui, {question, nonPhysicalTitle, BoxButtons::YesNo, Answer::Yes}) == Answer::Yes;
}

void validateSingleSided(Session& session) {
    Analysis& r = session.record;
    if (failed(session, rulesOfPhysicalLimit(r))) return;
    const OneSide one(r);
    Flag& acknowledged = one.lower ? r.AckPhysLimitLow : r.AckPhysLimitHigh;
    if (r.PhysLimitRequired && r.PhysicalLimitEntered && one.physical == one.mode && !acknowledged &&
        !validationIsQuiet(session)) {
        if (!userGoesOn(session, physicalOnModeText)) {
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
        fail(session, {insufficientTitle, measuringEmpty ? noDataText : noSubjectDataText, "ModeBox"},
             speaks);
    } else if (allZero({r.MTE_PctInTol, r.MTE_Mode, r.MTE_UpperLimit, r.MTE_LowerLimit})) {
        fail(session, {insufficientTitle, noMeasuringDataText, "MTEOffsetBox"},
             speaks && !r.UncertaintyWorksheetOpen);
    }
}

void ValidateSubject(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    if (failed(session, dataMissing(r))) return;
    if (!r.Ack100Pct && !validationIsQuiet(session)) {
        r.Ack100Pct = true;
        if (r.SU_PctInTol == 100 && isSymmetric(r) && !userGoesOn(session, hundredPercentText)) {
            r.AbortFlag = true;
            return;
        }
    }
    if (failed(session, rulesOfLimits(r))) return;
    if (r.OptSingleLower || r.OptSingleUpper) validateSingleSided(session);
}

void ValidateMeasuring(Session& session) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    const bool speaks = r.Computing && !r.EntryBoxChanged;
    if (!r.ObservedWorksheetOpen && allZero({r.MTE_PctInTol, r.MTE_Mode, r.MTE_UpperLimit, r.MTE_LowerLimit}))
        return fail(session, {insufficientTitle, noMeasuringDataText, "MTEOffsetBox"}, speaks);
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
