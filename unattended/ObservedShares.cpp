#include "unattended/ObservedShares.h"

#include "base/Text.h"
#include "desk/compute/ObservedPct.h"
#include "desk/compute/ObservingUnit.h"
#include "risk/observed/ObservingEntries.h"
#include "rows/Cell.h"

#include <cmath>

namespace metrisk {

namespace {

GuardbandUse guardbandUse(const KnownShare& known, const Analysis& r) {
    return known.guardbands.value_or(r.IncludeGuardbands ? GuardbandUse::Use : GuardbandUse::Ignore);
}

bool convert(AnalysisRun& run, const KnownShare& known, GuardbandUse use) {
    if (!fitBoth(run)) return false;
    if (anotherUnitObserves(run.record) &&
        !withReason(run, "no fit", [&] { return FitObservingUnit(run.session); }))
        return false;
    const std::string& given = known.isTrue() ? known.truePct : known.observedPct;
    const auto read = percentCellOf(given);
    if (!read || !std::isfinite(*read)) {
        tell(run.ui, {"\"" + given + "\" is not a percentage.", "Not Computed"});
        return false;
    }
    const std::string text(trimmedCell(given.substr(0, given.find('%'))));
    const double pct = *read;
    if (known.isTrue() && !(pct >= 0 && pct <= 100)) {
        tell(run.ui, {"The true % in-tolerance must be from 0 to 100.", "Not Computed"});
        return false;
    }
    if (known.isTrue()) return ObservedFromTrue(run.session, use, text);
    if (!(pct > 0 && pct < 100)) {
        tell(run.ui, {"The observed % in-tolerance must be above 0 and below 100.", "Not Computed"});
        return false;
    }
    return TrueFromObserved(run.session, use, text, ObservedEntry::ObservedPct);
}

/// Of equalized guardbands, those that have been found.
void verify(const AnalysisRun& run, const KnownShare& known, GuardbandUse use, ObservedShares& shares) {
    const Analysis& r = run.record;
    const ObservedModel model(r, use == GuardbandUse::Equalize ? GuardbandUse::Use : use,
                              run.session.regional);
    const double x = r.SU_PctInTol / 100, observed = r.Obs_PctInTol / 100;
    shares.exactIsTrue = !known.isTrue();
    if (known.isTrue()) {
        if (const auto exact = model.exactObservedAt(x)) shares.exact = {observed, *exact};
    } else if (const auto exact = model.exactTrueAt(observed, x)) {
        const auto seen = model.exactObservedAt(*exact);
        shares.exact = {x, {*exact, seen ? seen->bound : 0}};
    }
}

} // namespace

ObservingUnit::ObservingUnit(const Analysis& r)
    : option(anotherUnitObserves(r) ? otherUnit : currentUnit),
      offset(anotherUnitObserves(r) ? r.Obs_Offset : r.MTE_Offset),
      inTolerance(anotherUnitObserves(r) ? r.Obs_AOP : r.MTE_PctInTol / 100) {}

ObservedShares convertShare(AnalysisRun& run, const KnownShare& known) {
    const GuardbandUse use = guardbandUse(known, run.record);
    ObservedShares shares{.computed = convert(run, known, use)};
    if (shares.computed) verify(run, known, use, shares);
    return shares;
}

Json sharesJson(const Analysis& r, const ObservedShares& shares) {
    const ObservingUnit unit(r);
    const auto given = [&](auto value) { return shares.computed ? Json(value) : Json(); };
    const auto exact = [&](bool ofTrue) {
        return shares.exactIsTrue == ofTrue ? figureJson(shares.exact) : Json();
    };
    return {{"True", given(r.SU_PctInTol / 100)},
            {"Observed", given(r.Obs_PctInTol / 100)},
            {"SU_PctInTol", given(r.SU_PctInTol)},
            {"Obs_PctInTol", given(r.Obs_PctInTol)},
            {"GB_UpperMult", given(r.GB_UpperMult)},
            {"GB_LowerMult", given(r.GB_LowerMult)},
            {"FalseAcceptOption", given(r.FalseAcceptOption)},
            {"Obs_ObservingUnitOption", given(unit.option)},
            {"Obs_Offset", given(unit.offset)},
            {"Obs_AOP", given(unit.inTolerance)},
            {"Verified", {{"True", exact(true)}, {"Observed", exact(false)}}},
            {"AgreeingDigits", shares.exact ? Json(agreeingDigits(*shares.exact)) : Json()}};
}

} // namespace metrisk
