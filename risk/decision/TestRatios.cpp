#include "risk/decision/TestRatios.h"

#include "risk/decision/Refused.h"

namespace metrisk {

namespace {

constexpr double turFactor = 1.959964;

} // namespace

TestRatios ratiosOf(const DecisionBasis& basis) {
    return ratiosOf(basis.halfWidth(), basis.sigma, basis.coverage);
}

TestRatios ratiosOf(double halfWidth, double sigma, double coverage) {
    return {halfWidth / (turFactor * sigma), halfWidth / (coverage * sigma)};
}

Result<GuardedRisks> risksOf(const DecisionBasis& basis) {
    if (!basis.fit) return basis.fit.refusal();
    const auto risks = guardedRisks(*basis.fit, basis.sigma, basis.testLimits());
    if (!risks) return noFigureOf(decisionTitle, nothingAcceptedText);
    return *risks;
}

} // namespace metrisk
