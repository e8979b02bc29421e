#include "risk/evaluate/CurrentFigures.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "record/Analysis.h"
#include "risk/FittedSubject.h"
#include "risk/RatioSearch.h"
#include "risk/Snapshot.h"
#include "risk/SubjectFit.h"
#include "risk/TestRisks.h"
#include "risk/evaluate/BaselineFigures.h"
#include "risk/observed/ObservedModel.h"
#include "risk/observed/ObservingEntries.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/Budget.h"

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

/// The risks of the record's guardbands, never negative; none where there are none.
std::optional<Risks> guardbandRisks(const Analysis& r, const Regional& regional) {
    try {
        const auto found = risksAt(subjectBiasOf(fitSubject(r, regional)), r.MTE_Sigma,
                                   {-r.GB_LowerMult * r.SU_LowerOffset, r.GB_UpperMult * r.SU_UpperOffset});
        if (!found) return std::nullopt;
        const Risks& risks = found->by(r.FalseAcceptOption);
        return Risks{std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    }
    return std::nullopt;
}

/// A risk of the main results that rounding made negative is held as its stand-in.
bool holds(double shown, const std::string& units, double risk) {
    const double held = riskFraction(shown, units);
    return sameRisk(risk, held) || (risk == 0 && sameRisk(negativeRiskStandIn, held));
}

std::optional<Risks> standingRisks(const Analysis& r, const Regional& regional) {
    if (r.GB_FARisk == 0 && r.GB_FRRisk == 0) return std::nullopt;
    const auto risks = guardbandRisks(r, regional);
    const bool stand = risks && holds(r.GB_FARisk, r.GB_FARiskUnits, risks->falseAccept) &&
                       holds(r.GB_FRRisk, r.GB_FRRiskUnits, risks->falseReject);
    return stand ? risks : std::nullopt;
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

bool risksAreCurrent(const Analysis& r) {
    return r.Last_PctInTol != 0 && !r.RisksNeedCompute && !r.ResultsStale && snapshotHolds(r);
}

bool ratioIsCurrent(const Analysis& r) {
    return r.ComputeEqRatio && !r.EqAccRatDen.empty() && baselineSnapshotHolds(r) && risksAreCurrent(r);
}

std::optional<StandingGuardbands> standingGuardbands(const Analysis& r, const Regional& regional) {
    const auto risks = standingRisks(r, regional);
    if (!risks) return std::nullopt;
    return StandingGuardbands{*risks, r.GB_EqAccRatValid && baselineSnapshotHolds(r)};
}

CurrentFigures currentFigures(const Analysis& r, const Regional& regional) {
    CurrentFigures current;
    current.risks = risksAreCurrent(r);
    current.ratio = ratioIsCurrent(r);
    current.noSuchRatio = current.ratio && !ratioAttained(r.EqAccRat);
    if (const auto guardbands = standingGuardbands(r, regional)) {
        current.guardbands = true;
        current.guardbandRatio = guardbands->ratio && r.GB_IncludeEqAccRat && r.GB_EqAccRat != 0;
    }
    current.baseline = baselineIsCurrent(r);
    current.observed = observedStands(r, regional);
    current.bias = BiasResultsStand(r, regional);
    return current;
}

void dropStaleFigures(Analysis& r, const Regional& regional) {
    if (r.RisksNeedCompute) DropSnapshot(r);
    if (standingRisks(r, regional)) return;
    r.GB_FARisk = r.GB_FRRisk = r.GB_EqAccRat = 0;
    r.GB_EqAccRatValid = false;
}

} // namespace metrisk
