#include "risk/ComputePipeline.h"

#include "model/Message.h"
#include "model/NumberText.h"
#include "model/RiskText.h"
#include "model/Session.h"
#include "numerics/Real.h"
#include "risk/ComputingScreen.h"
#include "risk/EqRatioScreen.h"
#include "risk/EquivalentRatio.h"
#include "risk/RiskMessages.h"
#include "risk/Risks.h"
#include "risk/Snapshot.h"
#include "risk/ValidateAndFit.h"

#include <string>

namespace metrisk {

namespace {

constexpr Message notRequired{"Compute not required.\nNo changes have been made.", "Compute Not Required",
                              BoxIcon::Information};
constexpr const char* computingRisksText = "Computing Risks";
constexpr const char* ratioFailureTitle = "Equivalent Accuracy Ratio Failure";
constexpr const char* ratioFailureOnAccept = "Unable to compute a precise equivalent accuracy ratio\n"
                                             "based on false accept risks.  Basing the equivalent\n"
                                             "accuracy search on false reject risks might provide\n"
                                             "better results.\n"
                                             "Try again using false reject?";
constexpr const char* ratioFailureOnReject = "Unable to compute a precise equivalent accuracy ratio\n"
                                             "based on false reject risks.  Basing the equivalent\n"
                                             "accuracy search on false accept risks might provide\n"
                                             "better results.\n"
                                             "Try again using false accept?";
constexpr const char* worksheetFailureOnAccept =
    "Unable to compute a precise equivalent \naccuracy ratio based on false accept risks.";
constexpr const char* worksheetFailureOnReject =
    "Unable to compute a precise equivalent \naccuracy ratio based on false reject risks.";

constexpr const char* foundRatioDen = "1.00";

/// The risks in the record are those of the entries.
bool shownRisksStand(const Analysis& r) {
    return r.NothingChanged && r.GuardbandsUnchanged && !r.RisksNeedCompute && !r.ResultsStale;
}

bool everythingUnchanged(const Analysis& r) {
    return r.BaselineUnchanged && shownRisksStand(r);
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

/// Puts the main screen's results where the guardband worksheet reads them.
void handToGuardbandWorksheet(Analysis& r) {
    r.GB_FARisk = r.FalseAcceptRisk;
    r.GB_FARiskUnits = r.FalseAcceptUnits;
    r.GB_FRRisk = r.FalseRejectRisk;
    r.GB_FRRiskUnits = r.FalseRejectUnits;
    r.GB_EqAccRat = r.ComputeEqRatio ? r.EqAccRat : 0;
    if (r.ComputeEqRatio) r.GB_EqAccRatValid = true;
    r.GuardbandsChanged = false;
}

/// The steps between pressing the button and its being ready again.
void computeResults(Session& session) {
    Analysis& r = session.record;
    session.ui.yield();
    r.AbortFlag = false;
    // Moving focus away commits an entry that is still being typed.
    session.ui.focus("txt_LostFocus");
    session.ui.yield();
    r.Computing = true;
    r.EntryBoxChanged = false;
    CompareWithSnapshot(session);
    CompareBaseline(session);
    if (!r.DirectCompute && !r.DirectComputeChanged && everythingUnchanged(r)) {
        r.AbortFlag = true;
        tell(session.ui, notRequired);
        session.ui.focus("ComputeResults");
        return;
    }
    r.ComputeScope = "Both";
    r.ComputeNeeded = true;
    r.RisksComputed = false;
    ValidateAndFit(session);
    const bool fitted = !r.AbortFlag;
    if (fitted && r.DirectCompute)
        ComputeRisksDirect(session);
    else if (fitted)
        requestCompute(session);
    r.ResultsStale = !r.RisksComputed;
    session.ui.repaintMainScreen();
    if (!fitted) return;

    r.GB_MainStale = true;
    r.GB_RisksStale = true;
    r.GB_EqAccRatValid = false;
    session.ui.yield();
    if (r.IncludeGuardbands && r.RisksComputed) handToGuardbandWorksheet(r);
    session.ui.repaintMainScreen();
    r.Computing = false;
    session.ui.focus("SystemIDBox");
}

/// Searches until it succeeds or the user has enough; the key can alternate with each try.
void searchRatio(Session& session, ComputingScreen& screen, const Risks& targets) {
    Analysis& r = session.record;
    for (;;) {
        screen.showSearch(true);
        screen.Meter.value = 0;
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
        dropEquivalentRatio(session); // a search that was cancelled is made again at the next press
    } else {
        r.EqAccRatDen = foundRatioDen;
        TakeBaselineSnapshot(r);
    }
    r.BaselineUnchanged = true;
    r.NothingChanged = true;
    r.GuardbandsUnchanged = true;
    r.RisksNeedCompute = false;
    return true;
}

void riskComputeStep(Session& session, ComputingScreen& screen) {
    if (computeRisksAndRatio(session, screen) && session.record.BeepWhenFinished) session.ui.beep();
}

void guardbandComputeStep(Session& session, ComputingScreen& screen) {
    Analysis& r = session.record;
    const bool onAccept = r.EqRatioOnFalseAccept && r.SU_Distribution != "Uniform";
    if (!((onAccept ? r.GB_FARisk : r.GB_FRRisk) > 0)) {
        r.GB_EqAccRat = 0;
        return;
    }
    screen.showSearch(true);
    if (SolveEquivalentRatio(session, screen, {r.GB_FARisk, r.GB_FRRisk}, r.GB_EqAccRat)) return;
    r.AbortFlag = true;
    tell(session.ui,
         {r.EqRatioOnFalseAccept ? worksheetFailureOnAccept : worksheetFailureOnReject, ratioFailureTitle});
}

/// What both steps begin and end with.
template <class Step>
void runStep(Session& session, ComputingScreen& screen, Step step) noexcept {
    Analysis& r = session.record;
    r.AbortFlag = false;
    screen.showSearch(false);
    screen.Cmd_Cancel.enabled = true;
    {
        const WaitPointer wait(session.ui);
        try {
            step(session, screen);
        } catch (const RuntimeFault&) {
            r.AbortFlag = true;
        }
    }
    screen.Cmd_Cancel.enabled = false;
}

} // namespace

void ComputeResults_Click(Session& session) noexcept {
    try {
        computeResults(session);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
    }
    session.record.Computing = false;
}

void requestCompute(Session& session) {
    session.record.ComputeRequested = true;
    ComputingScreen screen(session.record.AbortFlag);
    session.ui.run(screen, [&] { ComputingActivated(session, screen); });
    session.ui.yield();
}

void ComputingActivated(Session& session, ComputingScreen& screen) noexcept {
    Analysis& r = session.record;
    if (!r.ComputeRequested) return;
    r.ComputeRequested = false;
    if (r.GB_RatioRequest)
        GuardbandComputeStep(session, screen);
    else
        RiskComputeStep(session, screen);
}

void RiskComputeStep(Session& session, ComputingScreen& screen) noexcept {
    runStep(session, screen, riskComputeStep);
}

void GuardbandComputeStep(Session& session, ComputingScreen& screen) noexcept {
    runStep(session, screen, guardbandComputeStep);
}

bool risksAtLimits(Session& session, bool guardbanded, Risks& risks) {
    const Message* message = &guardbandUnrealistic;
    switch (ComputeRisks(session, acceptanceLimits(session, guardbanded), risks)) {
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

AcceptanceLimits acceptanceLimits(const Session& session, bool guardbanded) {
    const Analysis& r = session.record;
    const double lowerMult = guardbanded ? r.GB_LowerMult : 1;
    const double upperMult = guardbanded ? r.GB_UpperMult : 1;
    return {checked(r.SU_Mode - lowerMult * r.SU_LowerOffset),
            checked(r.SU_Mode + upperMult * r.SU_UpperOffset)};
}

void ComputeRisksDirect(Session& session) noexcept {
    Analysis& r = session.record;
    if (!r.ObservedWorksheetOpen) r.ComputeNeeded = true;
    ValidateAndFit(session);
    if (r.AbortFlag) return;
    try {
        const double conforming = r.SU_PctInTol / 100;
        session.ui.yield();
        const bool guardbanded = r.IncludeGuardbands && !r.ObservedIgnoresGuardbands;
        Risks risks{};
        if (!risksAtLimits(session, guardbanded, risks)) return;
        double& falseAccept = risks.falseAccept;
        const double falseReject = risks.falseReject;
        // Restates the Producer's joint figure as a conditional one.
        if (r.FalseAcceptOption == 1)
            falseAccept = ((conforming - Real(falseReject)) * falseAccept / (1 - Real(falseAccept))).value();
        publishRisks(r, notNegative(falseAccept), notNegative(falseReject));
        r.RisksComputed = true;
    } catch (const RuntimeFault&) {
        r.AbortFlag = true;
    }
}

} // namespace metrisk
