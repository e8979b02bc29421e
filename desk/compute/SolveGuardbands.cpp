#include "desk/compute/SolveGuardbands.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "desk/compute/KFactors.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"

#include <array>
#include <span>

namespace metrisk {

namespace {

constexpr std::string_view noTitle = "Metrisk";
constexpr std::string_view bothSidesZero =
    "Can equalize risks only if the subject parameters tolerances are both nonzero.";
constexpr std::string_view upperSideZero =
    "Can equalize risks only if the subject parameters upper tolerance limit is nonzero.";
constexpr std::string_view lowerSideZero =
    "Can equalize risks only if the subject parameters lower tolerance limit is nonzero.";

GuardbandSolver solverOf(const Analysis& r) {
    return {r, r.MTE_Sigma, r.FalseAcceptOption};
}

/// What every solve begins and ends with.
template <class Solve>
std::optional<GuardbandPair> solved(Session& session, Solve solve) {
    const WaitPointer wait(session.ui);
    session.record.AbortFlag = false;
    try {
        return solve(solverOf(session.record));
    } catch (const SolveFailure& failure) {
        tellFailure(session, failure);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
    }
    return std::nullopt;
}

void requirePositive(const GuardbandTarget& target) {
    if (target.key != GuardbandKey::Equalize && !(target.risk > 0)) throw SolveFailure{};
}

/// The sides that the tolerance has.
std::span<const SubjectSide* const> sidesOf(const Analysis& r) {
    static constexpr std::array both = {&lowerSide, &upperSide};
    const std::span<const SubjectSide* const> sides = both;
    return r.OptTwoSided ? sides : r.OptSingleUpper ? sides.last(1) : sides.first(1);
}

void requireValid(const Analysis& r, double k, std::string_view words) {
    for (const SubjectSide* side : sidesOf(r))
        if (!kFactorAllowed(r, k, *side)) throw SolveFailure{words};
}

void requireOffsets(const Analysis& r) {
    for (const SubjectSide* side : sidesOf(r))
        if (r.*side->offset == 0)
            throw SolveFailure{r.OptTwoSided      ? bothSidesZero
                               : r.OptSingleUpper ? upperSideZero
                                                  : lowerSideZero};
}

} // namespace

void tellFailure(Session& session, const SolveFailure& failure) {
    session.record.AbortFlag = true;
    session.record.SearchAbort = true;
    if (failure.fault) tellFault(session.ui, *failure.fault);
    for (const std::string_view text : {failure.bracketText, failure.text})
        if (!text.empty()) tell(session.ui, {text, noTitle});
}

std::optional<double> enteredRisk(std::string_view text, std::string_view units, const Regional& regional) {
    const double shown = ParseValue(text, regional);
    const std::string_view word = withoutOuterBlanks(units);
    if (!(shown > 0) || (word != percentUnits && word != ppmUnits)) return std::nullopt;
    return riskFraction(shown, word);
}

std::optional<GuardbandPair> EqualizeRisksByMultipliers(Session& session) {
    return SolveMultipliersForRisk(session, {GuardbandKey::Equalize});
}

std::optional<GuardbandPair> SolveMultipliersForRisk(Session& session, const GuardbandTarget& target) {
    return solved(session, [&](GuardbandSolver solver) -> GuardbandPair {
        requirePositive(target);
        const double m = solver.multiplierFor(target);
        return {m, m};
    });
}

std::optional<GuardbandPair> EqualizeRisksByKFactors(Session& session) {
    return solved(session, [&](GuardbandSolver solver) {
        const Analysis& r = session.record;
        requireOffsets(r);
        const double k = solver.kFactorFor({GuardbandKey::Equalize});
        requireValid(r, k, noEqualKFactorsText);
        GuardbandPair multipliers{r.GB_LowerMult, r.GB_UpperMult};
        if (!r.OptSingleUpper) multipliers.lower = multiplierFromK(k, r.SU_LowerOffset, r.MTE_Sigma);
        if (!r.OptSingleLower) multipliers.upper = multiplierFromK(k, r.SU_UpperOffset, r.MTE_Sigma);
        return multipliers;
    });
}

std::optional<GuardbandPair> SolveKFactorsForRisk(Session& session, const GuardbandTarget& target) {
    return solved(session, [&](GuardbandSolver solver) -> GuardbandPair {
        const Analysis& r = session.record;
        if (r.SU_LowerOffset == 0 || r.SU_UpperOffset == 0 || r.MTE_Sigma == 0) return {0, 0};
        requirePositive(target);
        const double k = solver.kFactorFor(target);
        requireValid(r, k, noKFactorsText);
        return {k, k};
    });
}

} // namespace metrisk
