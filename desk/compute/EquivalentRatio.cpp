#include "desk/compute/EquivalentRatio.h"

#include "base/Real.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/RiskMessages.h"

#include <string>

namespace metrisk {

namespace {

constexpr const char* solvingText = "Solving for Equivalent Accuracy Ratio";

} // namespace

bool isOwnBaseline(const Analysis& r) {
    return r.GB_UpperMult == 1 && r.GB_LowerMult == 1 &&
           (r.ProcessUncertainty == 0 || !r.IncludeUncertainty) && r.SU_PctInTol == r.Base_SUPctInTol &&
           r.MTE_PctInTol == r.Base_MTEPctInTol && r.SU_CaseCode == 6 && !r.MTEPlot_IncludeUncertainty;
}

void ShowSearchProgress(Session& session, ComputingScreen& screen, const SearchProgress& progress) {
    screen.setProgress(progress);
    session.ui.refresh(screen);
    session.ui.yield();
}

bool SolveEquivalentRatio(Session& session, ComputingScreen& screen, const Risks& targets, double& ratio) {
    Analysis& r = session.record;
    try {
        if (!(r.MTE_Offset > 0)) return true;
        if (isOwnBaseline(r)) {
            ratio = checked(r.SU_UpperOffset / r.MTE_Offset);
            return true;
        }
        screen.startSearch(solvingText);
        session.ui.refresh(screen);
        const BaselineModel baseline(r.Base_SUPctInTol / 100, r.Base_MTEPctInTol / 100);
        if (r.SU_CaseCode == 9) r.EqRatioOnFalseAccept = false;
        const RatioQuestion question{.baseline = baseline,
                                     .start = ratioTolerance(r) / r.MTE_Offset,
                                     .target =
                                         r.EqRatioOnFalseAccept ? targets.falseAccept : targets.falseReject,
                                     .onFalseAccept = r.EqRatioOnFalseAccept,
                                     .falseAcceptOption = r.FalseAcceptOption};
        const auto goOn = [&](const SearchPass& pass) {
            ShowSearchProgress(session, screen,
                               {solvingText, pass.iteration, pass.ratio, pass.error, pass.tolerance});
            return !r.AbortFlag;
        };
        return searchRatio(question, ratio, goOn) != RatioEnd::StepTooSmall;
    } catch (const RuntimeFault& fault) {
        r.AbortFlag = true;
        tell(session.ui, fault.kind == FaultKind::Argument ? baselineUnrealistic : integrationFault);
        return true;
    }
}

} // namespace metrisk
