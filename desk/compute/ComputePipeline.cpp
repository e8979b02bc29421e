#include "desk/compute/ComputePipeline.h"

#include "base/DisplayRule.h"
#include "base/Real.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/PublishRisks.h"
#include "risk/Snapshot.h"

namespace metrisk {

namespace {

constexpr Message notRequired{"Compute not required.\nNo changes have been made.", "Compute Not Required",
                              BoxIcon::Information};
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
    CompareWithSnapshot(session.record);
    CompareBaseline(session.record);
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

} // namespace

void ComputeResults_Click(Session& session) {
    // Whatever ends the compute, the button is ready again.
    struct Ready {
        Flag& computing;
        ~Ready() { computing = false; }
    } const ready{session.record.Computing};
    try {
        computeResults(session);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
    }
}

void requestCompute(Session& session) {
    session.record.ComputeRequested = true;
    ComputingScreen screen(session);
    session.ui.run(screen, [&] { ComputingActivated(session, screen); });
    session.ui.yield();
}

void ComputeRisksDirect(Session& session) {
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
        // Restates the Producer's joint figure as a conditional one.
        const Real fa = risks.falseAccept, fr = risks.falseReject;
        if (r.FalseAcceptOption == 1) risks.falseAccept = ((conforming - fr) * fa / (1 - fa)).value();
        publishRisks(r, notNegative(risks.falseAccept), notNegative(risks.falseReject));
        r.RisksComputed = true;
    } catch (const RuntimeFault&) {
        r.AbortFlag = true;
    }
}

} // namespace metrisk
