#include "desk/compute/CoveragePatience.h"

#include "numerics/CoverageFactor.h"

namespace metrisk {

namespace {

constexpr double slowDegFreedom = 250;
constexpr const char* solvingText = "Solving for the coverage factor...";

} // namespace

CoveragePatience::CoveragePatience(Talk& ui, double degFreedom) {
    if (!(degFreedom > slowDegFreedom && degFreedom < infiniteDegFreedom)) return;
    wait_.emplace(ui);
    status_.emplace(ui, solvingText);
}

double SolveCoverageFactor(double pctConfidence, double degFreedom, Talk& ui) {
    const CoveragePatience patience(ui, degFreedom);
    return CoverageFactor(pctConfidence, degFreedom);
}

} // namespace metrisk
