#include "risk/decision/TestRatios.h"

#include "risk/decision/Refused.h"

namespace metrisk {

namespace {

constexpr double turFactor = 1.959964;

} // namespace

TestRatios ratiosOf(const DecisionBasis& basis) {
    return {basis.halfWidth() / (turFactor * basis.sigma), basis.ratio()};
}

Result<GuardedRisks> risksOf(const DecisionBasis& basis) {
    if (!basis.fit) return basis.fit.refusal();
    const auto risks = guardedRisks(*basis.fit, basis.sigma, basis.testLimits());
    if (!risks) return noFigureOf(decisionTitle, nothingAcceptedText);
    return *risks;
}

} // namespace metrisk
