#include "desk/compute/ComputeSteps.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "base/RiskText.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/PublishRisks.h"
#include "risk/RiskMessages.h"
#include "risk/Snapshot.h"

#include <string>

namespace metrisk {

namespace {

constexpr const char* computingRisksText = "Computing Risks";
constexpr const char* worksheetFailureOnAccept =
    "Unable to compute a precise equivalent \naccuracy ratio based on false accept risks.";
constexpr const char* worksheetFailureOnReject =
    "Unable to compute a precise equivalent \naccuracy ratio based on false reject risks.";

constexpr const char* foundRatioDen = "1.00";

/// The risks in the record are those of the entries.
bool shownRisksStand(const Analysis& r) {
    return r.NothingChanged && r.GuardbandsUnchanged && !r.RisksNeedCompute && !r.ResultsStale;
}

std::string riskLine(const char* label, double value, const std::string& units, const std::string& picture,
                     bool alwaysNumber, const Regional& regional) {
    const std::string text =
        alwaysNumber ? FormatNumber(value, picture, regional) : riskText({value, units}, picture, regional);
    return label + text + " " + units;
}

std::string riskLines(const Session& session) {
    const Analysis& r = session.record;
    const bool uniform = r.SU_CaseCode == 9;
    return riskLine("False Accept Risk: ", r.FalseAcceptRisk, r.FalseAcceptUnits, r.FalseAccept_fmt, uniform,
                    session.regional) +
           "\n" +
           riskLine("False Reject Risk: ", r.FalseRejectRisk, r.FalseRejectUnits, r.FalseReject_fmt, false,
                    session.regional);
}

/// Searches until it succeeds or the user has enough; the key can alternate with each try.
void searchRatio(Session& session, ComputingScreen& screen, const Risks& targets) {
    Analysis& r = session.record;
    for (;;) {
        screen.showSearch(true);
        r.AbortFlag = false;
        screen.Cmd_Cancel.enabled = true; // a cancel of what went before is used up
        if (SolveEquivalentRatio(session, screen, targets, r.EqAccRat)) return;
        const bool onAccept = r.EqRatioOnFalseAccept;
        if (ask(session.ui, {onAccept ? ratioFailureOnAccept : ratioFailureOnReject, ratioFailureTitle,
                             BoxButtons::YesNo, Answer::No}) != Answer::Yes) {
            r.EqAccRat = 0;
            return;
        }
        r.EqRatioOnFalseAccept = !onAccept;
    }
}

/// The fractions that the record's results stand for.
Risks shownRisks(const Analysis& r) {
    return {checked(riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits)),
            checked(riskFraction(r.FalseRejectRisk, r.FalseRejectUnits))};
}

/// False when the compute has failed; the user knows then and the earlier results stand.
bool computeAndPublish(Session& session, Risks& risks) {
    Analysis& r = session.record;
    session.ui.yield();
    const bool computed = risksAtLimits(session, r.IncludeGuardbands, risks);
    session.ui.yield();
    if (!computed) return false;
    risks = {notNegative(risks.falseAccept), notNegative(risks.falseReject)};
    publishRisks(r, risks.falseAccept, risks.falseReject);
    TakeSnapshot(r);
    return true;
}

/// False when the risks could not be computed.
bool computeRisksAndRatio(Session& session, ComputingScreen& screen) {
    Analysis& r = session.record;
    Risks risks = shownRisks(r);
    r.RisksComputed = false;
    if (shownRisksStand(r)) {
        TakeSnapshot(r);
    } else {
        screen.Lbl_Message1.text = computingRisksText;
        session.ui.refresh(screen);
        if (!computeAndPublish(session, risks)) return false;
    }
    r.RisksComputed = true;
    if (!r.ComputeEqRatio || r.AbortFlag || everythingUnchanged(r)) {
        r.RisksNeedCompute = false;
        return true;
    }
    screen.Lbl_Message1.text = riskLines(session);
    searchRatio(session, screen, risks);
    if (r.AbortFlag) {
        dropEquivalentRatio(session.record); // a search that was cancelled is made again at the next press
    } else {
        r.EqAccRatDen = foundRatioDen;
        TakeBaselineSnapshot(r);
    }
    r.BaselineUnchanged = !r.AbortFlag;
    r.NothingChanged = true;
    r.GuardbandsUnchanged = true;
    r.RisksNeedCompute = false;
    return true;
}

/// What both steps begin and end with.
template <class Step>
void runStep(Session& session, ComputingScreen& screen, Step step) {
    Analysis& r = session.record;
    r.AbortFlag = false;
    screen.showSearch(false);
    screen.Cmd_Cancel.enabled = true;
    {
        const WaitPointer wait(session.ui);
        try {
            step();
        } catch (const RuntimeFault&) {
            r.AbortFlag = true;
        }
    }
    screen.Cmd_Cancel.allow(false, "The search has ended");
}

} // namespace

bool everythingUnchanged(const Analysis& r) {
    return r.BaselineUnchanged && shownRisksStand(r);
}

bool risksAtLimits(Session& session, bool guardbanded, Risks& risks) {
    const Message* message = &guardbandUnrealistic;
    switch (ComputeRisks(session, acceptanceRange(session.record, guardbanded), risks)) {
    case RiskOutcome::Computed: return true;
    case RiskOutcome::FailedAndReported: return false;
    case RiskOutcome::NoSpread: message = &limitsUnrealistic; break;
    case RiskOutcome::Negative:
    case RiskOutcome::Failed: break;
    }
    session.record.AbortFlag = true;
    tell(session.ui, *message);
    return false;
}

void ComputingActivated(Session& session, ComputingScreen& screen) {
    Analysis& r = session.record;
    if (!r.ComputeRequested) return;
    r.ComputeRequested = false;
    if (r.GB_RatioRequest)
        GuardbandComputeStep(session, screen);
    else
        RiskComputeStep(session, screen);
}

void RiskComputeStep(Session& session, ComputingScreen& screen) {
    runStep(session, screen, [&] {
        if (computeRisksAndRatio(session, screen) && session.record.BeepWhenFinished) session.ui.beep();
    });
}

void GuardbandComputeStep(Session& session, ComputingScreen& screen) {
    Analysis& r = session.record;
    runStep(session, screen, [&] {
        const bool onAccept = r.EqRatioOnFalseAccept && r.SU_CaseCode != 9;
        if (!((onAccept ? r.GB_FARisk : r.GB_FRRisk) > 0)) {
            r.GB_EqAccRat = 0;
            return;
        }
        screen.showSearch(true);
        if (SolveEquivalentRatio(session, screen, {r.GB_FARisk, r.GB_FRRisk}, r.GB_EqAccRat)) return;
        r.AbortFlag = true;
        tell(session.ui, {r.EqRatioOnFalseAccept ? worksheetFailureOnAccept : worksheetFailureOnReject,
                          ratioFailureTitle});
    });
}

} // namespace metrisk
