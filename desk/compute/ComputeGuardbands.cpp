#include "desk/compute/ComputeGuardbands.h"

#include "base/DisplayRule.h"
#include "desk/compute/KFactors.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/SubjectSide.h"

namespace metrisk {

namespace {

constexpr Message onlySymmetric{"Only works for symmetric multipliers or k-Factors.",
                                "Guardband Calculation"};
constexpr Message offsetsNonzero{"Subject parameter tolerance offsets must be nonzero.", "Metrisk",
                                 BoxIcon::Information};
constexpr const char* solvedPicture = "#,##0.00000000";

} // namespace

std::optional<GuardbandPair> guardbandsAsked(Session& session, const std::optional<double>& risk) {
    Analysis& r = session.record;
    const bool oneMultiplier = !r.OptTwoSided || r.GB_SymmetricMult;
    if (r.GB_KeyOn == 2) {
        if (oneMultiplier) return EqualizeRisksByMultipliers(session);
        if (r.GB_SymmetricK) return EqualizeRisksByKFactors(session);
        return GuardbandPair{0, 0}; // nothing to solve for: both test limits on the mode
    }
    if (!oneMultiplier && !r.GB_SymmetricK) {
        tell(session.ui, onlySymmetric);
        return std::nullopt;
    }
    if (!oneMultiplier && (r.SU_LowerOffset == 0 || r.SU_UpperOffset == 0)) {
        tell(session.ui, offsetsNonzero);
        return std::nullopt;
    }
    const GuardbandTarget target{r.GB_KeyOn == 1 ? GuardbandKey::FalseReject : GuardbandKey::FalseAccept,
                                 risk.value_or(0)};
    if (oneMultiplier) return risk ? SolveMultipliersForRisk(session, target) : std::nullopt;
    if (!risk && r.MTE_Sigma != 0) return std::nullopt;
    const std::optional<GuardbandPair> k = SolveKFactorsForRisk(session, target);
    if (!k) return std::nullopt;
    return GuardbandPair{multiplierFromK(k->lower, r.SU_LowerOffset, r.MTE_Sigma),
                         multiplierFromK(k->upper, r.SU_UpperOffset, r.MTE_Sigma)};
}

void takeGuardbands(Session& session, const GuardbandPair& found) {
    Analysis& r = session.record;
    r.GB_UpperKEntered = r.GB_LowerKEntered = false;
    for (const SubjectSide* side : {&upperSide, &lowerSide}) {
        if (r.*side->absent) continue;
        r.*side->multiplier = side == &upperSide ? found.upper : found.lower;
        r.*side->multiplierPicture = solvedPicture;
    }
    ShowUpperKFactor(r, session.regional);
    ShowLowerKFactor(r, session.regional);
    settleSymmetry(r, session.regional);
    r.GuardbandsChanged = true;
}

void holdWorksheetRisks(Analysis& r, const Risks& risks) {
    const ShownRisk accept = shownRisk(risks.falseAccept);
    const ShownRisk reject = shownRisk(risks.falseReject);
    r.GB_FARisk = accept.value;
    r.GB_FARiskUnits = accept.units;
    r.GB_FRRisk = reject.value;
    r.GB_FRRiskUnits = reject.units;
}

} // namespace metrisk
