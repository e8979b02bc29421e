#include "risk/guardband/GuardbandSolver.h"

#include "risk/FittedSubject.h"
#include "risk/guardband/Bisection.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int maxBracketSteps = 50;

constexpr BisectionWords multiplierWords{"Could not compute guardbands for the entered risk.",
                                         "Could not compute precise guardbands for the entered risk."};
constexpr BisectionWords kFactorWords{noKFactorsText, multiplierWords.notPrecise};
constexpr BisectionWords equalMultiplierWords{"Could not compute guardbands to equalize risks.",
                                              "Could not compute precise guardbands to equalize risks."};
constexpr BisectionWords equalKFactorWords{noEqualKFactorsText,
                                           "Could not compute precise guardbands for equalized risks."};
constexpr BisectionWords equalObservedWords{multiplierWords.couldNot, equalKFactorWords.notPrecise};
constexpr std::string_view noObservedBracket = "Could not compute guardbands for equalized risks.";
constexpr std::string_view noEqualizingBracket =
    "Unable to compute k-factors that equalize false accept and false reject risk.";

double keyed(const Risks& risks, GuardbandKey key) {
    return key == GuardbandKey::FalseReject ? risks.falseReject : risks.falseAccept;
}

/// The place of an end that would move beyond 0.
double notBelow0(double end) {
    return end < 0 ? 1e-7 : end;
}

Residual difference(const Risks& risks) {
    return {risks.falseAccept - risks.falseReject, std::max(risks.falseAccept, risks.falseReject)};
}

Residual difference(const Risks& risks, const GuardbandTarget& target) {
    return {keyed(risks, target.key) - target.risk, target.risk};
}

} // namespace

GuardbandSolver::GuardbandSolver(const SubjectParameter& su, double mteSigma, int falseAcceptOption)
    : model_(subjectBiasOf(su), mteSigma), lowerOffset_(su.SU_LowerOffset), upperOffset_(su.SU_UpperOffset),
      mteSigma_(mteSigma), falseAcceptOption_(falseAcceptOption),
      uniform_(distributionNamed(su.SU_Distribution) == Distribution::Uniform) {}

Risks GuardbandSolver::at(AcceptanceRange range, std::string_view words) {
    ++evaluations_;
    try {
        const std::optional<Probabilities> p = model_.at(range);
        if (!p || p->inTolerance == 0) throw SolveFailure{words};
        if (!(p->joint > 0)) return {0, p->inTolerance};
        if (!(p->accepted > 0)) throw SolveFailure{words};
        const Risks risks = risksOf(*p, falseAcceptOption_);
        return {std::max(risks.falseAccept, 0.0), std::max(risks.falseReject, 0.0)};
    } catch (const RuntimeFault& fault) {
        throw SolveFailure{words, {}, fault};
    }
}

Risks GuardbandSolver::atMultiplier(double m, std::string_view words) {
    return at({-m * lowerOffset_, m * upperOffset_}, words);
}

Risks GuardbandSolver::atKFactor(double k, std::string_view words) {
    return at({mteSigma_ * k - lowerOffset_, upperOffset_ - mteSigma_ * k}, words);
}

double GuardbandSolver::multiplierFor(const GuardbandTarget& target) {
    if (target.key == GuardbandKey::Equalize) return equalizingMultiplier();
    const Bracket bracket = bracketMultipliers(target);
    const auto f = [&](double m) { return difference(atMultiplier(m, multiplierWords.couldNot), target); };
    return bisect(f, bracket.low, bracket.high, multiplierWords);
}

double GuardbandSolver::equalizingMultiplier() {
    // Kept to this bracket: a solution beyond it is no guardband that anybody would use.
    constexpr Bracket bracket{0.5, 1.5};
    if (uniform_) throw SolveFailure{equalMultiplierWords.couldNot}; // its false accept risk is always 0
    const auto f = [&](double m) { return difference(atMultiplier(m, equalMultiplierWords.couldNot)); };
    return bisect(f, bracket.low, bracket.high, equalMultiplierWords);
}

double GuardbandSolver::kFactorFor(const GuardbandTarget& target) {
    if (target.key == GuardbandKey::Equalize) return equalizingKFactor();
    const Bracket bracket = bracketKFactors(target);
    const auto f = [&](double k) { return difference(atKFactor(k, kFactorWords.couldNot), target); };
    return bisect(f, bracket.low, bracket.high, kFactorWords);
}

double GuardbandSolver::equalizingKFactor() {
    if (uniform_) throw SolveFailure{equalKFactorWords.couldNot};
    const Bracket bracket = bracketEqualizingKFactors();
    const auto f = [&](double k) { return difference(atKFactor(k, equalKFactorWords.couldNot)); };
    return bisect(f, bracket.low, bracket.high, equalKFactorWords);
}

double GuardbandSolver::multiplierForObserved(double inTolerance) {
    const auto f = [&](double m) -> Residual {
        const Risks risks = atMultiplier(m, equalObservedWords.couldNot);
        const double rejected = risks.falseReject / inTolerance;
        return {risks.falseAccept - rejected, std::max(risks.falseAccept, rejected)};
    };
    Bracket bracket{0.5, 1.5};
    double atLow = f(bracket.low).value;
    double atHigh = f(bracket.high).value;
    for (int count = 0; !(atLow * atHigh < 0); ++count) {
        if (count == maxBracketSteps) throw SolveFailure{noObservedBracket};
        const double away = 1.6 * (bracket.high - bracket.low);
        if (std::fabs(atHigh) <= std::fabs(atLow))
            atHigh = f(bracket.high += away).value;
        else
            atLow = f(bracket.low = notBelow0(bracket.low - away)).value;
    }
    return bisect(f, bracket.low, bracket.high, equalObservedWords);
}

/// Only one end moves: the upper one by doubling steps where the limits must open, the lower one by halves
/// where they must close.
GuardbandSolver::Bracket GuardbandSolver::bracketMultipliers(const GuardbandTarget& target) {
    const auto excess = [&](double m) {
        return keyed(atMultiplier(m, multiplierWords.couldNot), target.key) - target.risk;
    };
    Bracket bracket{1, 1};
    const double base = excess(1);
    if (base == 0) return bracket;
    const bool below = base < 0;
    const bool open = below == (target.key == GuardbandKey::FalseAccept);
    double step = 1;
    double moved = 0;
    int count = 0;
    while ((below ? moved <= 0 : moved >= 0) && count <= maxBracketSteps) {
        ++count;
        if (open) {
            bracket.high += step;
            step *= 2;
        } else {
            bracket.low /= 2;
        }
        moved = excess(open ? bracket.high : bracket.low);
    }
    if (count > maxBracketSteps) throw SolveFailure{multiplierWords.couldNot};
    return bracket;
}

GuardbandSolver::Bracket GuardbandSolver::bracketKFactors(const GuardbandTarget& target) {
    // The solver reports a bracket in the words for multipliers.
    const auto risks = [&](double k) { return atKFactor(k, multiplierWords.couldNot); };
    const auto excess = [&](const Risks& r) { return keyed(r, target.key) - target.risk; };
    int count = 0;
    const auto step = [&](double& k, double by) {
        if (++count > maxBracketSteps) throw SolveFailure{multiplierWords.couldNot};
        return risks(k += by);
    };

    // Both ends are sought by false accept risk, whatever the key is.
    Bracket bracket{1, 1};
    Risks atHigh = risks(bracket.high);
    while (atHigh.falseAccept >= target.risk) atHigh = step(bracket.high, 1);
    Risks atLow = risks(bracket.low);
    while (atLow.falseAccept <= target.risk) atLow = step(bracket.low, -1);

    double f1 = excess(atHigh);
    double f2 = excess(atLow);
    const auto moved = [](double from, double other) { return notBelow0(from + 1.6 * (from - other)); };
    for (count = 0; f1 * f2 >= 0 && count <= maxBracketSteps; ++count) {
        if (std::fabs(f1) <= std::fabs(f2)) {
            bracket.high = moved(bracket.high, bracket.low);
            f1 = excess(risks(bracket.high));
        } else {
            bracket.low = moved(bracket.low, bracket.high);
            f2 = excess(risks(bracket.low));
        }
    }
    if (!(f1 * f2 < 0)) throw SolveFailure{multiplierWords.couldNot};
    return bracket;
}

/// Up from 0 until more is rejected than falsely accepted, then down until less is. Both ends lie one step
/// beyond the point that ended their walk.
GuardbandSolver::Bracket GuardbandSolver::bracketEqualizingKFactors() {
    const auto f = [&](double k) { return difference(atKFactor(k, equalKFactorWords.couldNot)).value; };
    double k = 0;
    int count = 0;
    for (double now = 0; now >= 0 && count <= maxBracketSteps; ++count) now = f(k++);
    if (count > maxBracketSteps) throw SolveFailure{equalKFactorWords.couldNot};
    const double high = k;
    count = 0;
    for (double now = 0; now <= 0 && count <= maxBracketSteps; ++count) now = f(k--);
    if (count > maxBracketSteps) throw SolveFailure{equalKFactorWords.couldNot, noEqualizingBracket};
    return {k, high};
}

} // namespace metrisk
