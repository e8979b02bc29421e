#include "risk/CurrentFigures.h"

#include "model/DisplayRule.h"
#include "model/NumberText.h"
#include "model/Session.h"
#include "numerics/Real.h"
#include "risk/CoverageFactor.h"
#include "risk/EquivalentRatio.h"
#include "risk/Snapshot.h"
#include "risk/SubjectFit.h"
#include "risk/observed/ObservedModel.h"
#include "risk/observed/ObservingUnit.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/CombinedUncertainty.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// A file keeps 15 digits of the entries, and a risk may be a difference of near probabilities.
bool sameRisk(double a, double b) {
    constexpr double relative = 1e-8;
    constexpr double rounding = 1e-13;
    return std::fabs(a - b) <= relative * std::max(std::fabs(a), std::fabs(b)) + rounding;
}

bool guardbandRisksStand(const Analysis& r, const Regional& regional) {
    if (r.GB_FARisk == 0 && r.GB_FRRisk == 0) return false;
    try {
        const auto p = RiskModel(subjectBiasOf(fitSubject(r, regional)), r.MTE_Sigma)
                           .at({-r.GB_LowerMult * r.SU_LowerOffset, r.GB_UpperMult * r.SU_UpperOffset});
        if (!p || !(p->joint > 0) || !(p->accepted > 0)) return false;
        const Risks risks = risksOf(*p, r.FalseAcceptOption);
        return sameRisk(notNegative(risks.falseAccept), riskFraction(r.GB_FARisk, r.GB_FARiskUnits)) &&
               sameRisk(notNegative(risks.falseReject), riskFraction(r.GB_FRRisk, r.GB_FRRiskUnits));
    } catch (const RuntimeFault&) {
        return false;
    } catch (const FitRefusal&) {
        return false;
    }
}

/// Sigma of the unit that observes, in nominal units. Raises RuntimeFault.
double observingSigma(const Analysis& r, const Regional& regional) {
    if (!anotherUnitObserves(r)) return r.MTE_Sigma;
    Analysis observing = r;
    observing.MTE_PctInTol = 100 * r.Obs_AOP;
    observing.MTE_Offset = r.Obs_Offset;
    observing.MTE_kFactor = CoverageFactor(observing.MTE_PctInTol, r.MTE_DegFreedom);
    observing.MTE_StdUncertainty = checked(r.Obs_Offset / observing.MTE_kFactor);
    return r.IncludeUncertainty ? CombinedUncertainty(observing, regional).uncertainty
                                : observing.MTE_StdUncertainty;
}

/// Within the test limits or the tolerance limits: which of them the user chose is not kept.
bool observedStands(const Analysis& r, const Regional& regional) {
    if (r.Obs_PctInTol == 0 || r.Obs_TruePct != r.SU_PctInTol) return false;
    try {
        Analysis test = r;
        test.MTE_Sigma = observingSigma(r, regional);
        const double lastDigit = std::pow(10, -PictureDecimals(r.Obs_PctInTol_fmt));
        for (const GuardbandUse use : {GuardbandUse::Ignore, GuardbandUse::Use}) {
            const auto observed = ObservedModel(test, use, regional).observedAt(r.SU_PctInTol / 100);
            if (observed && std::fabs(100 * *observed - r.Obs_PctInTol) < lastDigit) return true;
        }
        return false;
    } catch (const RuntimeFault&) {
        return false;
    }
}

} // namespace

bool risksAreCurrent(const Session& session) {
    const Analysis& r = session.record;
    return r.Last_PctInTol != 0 && !r.RisksNeedCompute && !r.ResultsStale && snapshotHolds(session);
}

bool ratioIsCurrent(const Session& session) {
    const Analysis& r = session.record;
    return r.ComputeEqRatio && !r.EqAccRatDen.empty() && baselineSnapshotHolds(r) && risksAreCurrent(session);
}

CurrentFigures currentFigures(const Session& session) {
    const Analysis& r = session.record;
    CurrentFigures current;
    current.risks = risksAreCurrent(session);
    current.ratio = ratioIsCurrent(session);
    current.noSuchRatio = current.ratio && !ratioAttained(r.EqAccRat);
    current.guardbands = guardbandRisksStand(r, session.regional);
    current.guardbandRatio = current.guardbands && r.GB_IncludeEqAccRat && r.GB_EqAccRatValid &&
                             r.GB_EqAccRat != 0 && baselineSnapshotHolds(r);
    current.observed = observedStands(r, session.regional);
    current.bias = BiasResultsStand(r, session.regional);
    return current;
}

void dropStaleFigures(Session& session) {
    Analysis& r = session.record;
    if (r.RisksNeedCompute) DropSnapshot(r);
    if (guardbandRisksStand(r, session.regional)) return;
    r.GB_FARisk = r.GB_FRRisk = r.GB_EqAccRat = 0;
    r.GB_EqAccRatValid = false;
}

} // namespace metrisk
