#include "desk/compute/ObservedPct.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/SameNumber.h"
#include "desk/compute/FitSubject.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/SolveGuardbands.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/EntryRules.h"
#include "record/Symmetry.h"
#include "risk/RiskMessages.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* multiplierPicture = "#,##0.0000000";
constexpr int fewestDecimals = 4;
constexpr Message hundredOnlySymmetric{hundredOnlySymmetricText, subjectPctTitle};
constexpr const char* cannotObserveTitle = "Can't observe the indicated % in-tolerance.";

Message refusalOf(ObservedEntry lastChanged) {
    switch (lastChanged) {
    case ObservedEntry::MeasuringLimit:
        return {"Unrealistic measuring parameter limits.", cannotObserveTitle};
    case ObservedEntry::MeasuringPct:
        return {"Unrealistic measuring parameter % in-tolerance.", cannotObserveTitle};
    case ObservedEntry::ObservedPct: break;
    }
    return {"Unrealistic observed % in-tolerance.", "Observed % in-tolerance not feasible."};
}

bool refuse(Session& session, const Message& message) {
    tell(session.ui, message);
    return false;
}

struct Entry {
    double pct;
    int decimals;
    std::string picture; // with at least as many decimals as are shown
};

Entry read(const std::string& text, const Regional& regional) {
    const int decimals = std::max(CountDecimals(text, regional), fewestDecimals);
    return {ParseValue(text, regional), decimals, PictureForDecimals(decimals)};
}

/// The record at a true %, with its fit.
void takeTrue(Session& session, double pct) {
    session.record.SU_PctInTol = pct;
    if (pct > 0) FitSubjectParameter(session);
}

/// Both multipliers, with the k-factors that follow from them.
void takeMultiplier(Analysis& r, double m, const Regional& regional) {
    r.GB_UpperMult = r.GB_LowerMult = m;
    r.GB_UpperMult_fmt = r.GB_LowerMult_fmt = multiplierPicture;
    r.GB_UpperKEntered = r.GB_LowerKEntered = false;
    ShowUpperKFactor(r, regional);
    ShowLowerKFactor(r, regional);
    // One multiplier for sides of different width is two k-factors.
    if (r.GB_SymmetricK && r.OptTwoSided && !sameDerived(r.GB_UpperK, r.GB_LowerK)) r.GB_SymmetricK = false;
    settleSymmetry(r, regional);
    r.GB_RisksStale = false;
}

} // namespace

bool ObservedFromTrue(Session& session, GuardbandUse use, const std::string& trueText) {
    Analysis& r = session.record;
    const Entry entry = read(trueText, session.regional);
    const double x = entry.pct / 100;
    if (x == 1 && !isSymmetric(r)) return refuse(session, hundredOnlySymmetric);

    const Guardbands before = r;
    try {
        if (use == GuardbandUse::Equalize) {
            const std::optional<double> m = SolveObservedGuardbands(session, x);
            if (!m) return false;
            takeMultiplier(r, *m, session.regional);
            use = GuardbandUse::Use;
        }
        if (const auto observed = ObservedModel(r, use, session.regional).observedAt(x)) {
            if (entry.pct > 0)
                r.SU_PctInTol_fmt = PictureForDecimals(CountDecimals(trueText, session.regional));
            takeTrue(session, entry.pct);
            r.Obs_PctInTol = 100 * *observed;
            r.Obs_PctInTol_fmt = entry.picture;
            return true;
        }
    } catch (const RuntimeFault&) {
        // of a k-factor; there are no risks then either
    }
    static_cast<Guardbands&>(r) = before;
    return refuse(session, noRisks);
}

bool TrueFromObserved(Session& session, GuardbandUse use, const std::string& observedText,
                      ObservedEntry lastChanged) {
    Analysis& r = session.record;
    const Entry entry = read(observedText, session.regional);
    const auto x = ObservedModel(r, use, session.regional).trueAt(entry.pct / 100, entry.decimals);
    if (!x) return refuse(session, refusalOf(lastChanged));
    r.Obs_PctInTol = entry.pct;
    r.Obs_PctInTol_fmt = entry.picture;
    r.SU_PctInTol_fmt = entry.picture;
    takeTrue(session, 100 * *x);
    return true;
}

std::optional<double> SolveObservedGuardbands(Session& session, double trueShare) {
    const WaitPointer wait(session.ui);
    session.record.AbortFlag = false;
    try {
        return ObservedModel(session.record, GuardbandUse::Equalize, session.regional)
            .equalizingMultiplier(trueShare);
    } catch (const SolveFailure& failure) {
        tellFailure(session, failure);
        return std::nullopt;
    }
}

} // namespace metrisk
