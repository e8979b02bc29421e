// Ratios of a test and its risks in both conventions.
#pragma once

#include "risk/decision/GuardedRisks.h"

namespace metrisk {

/// Pure numbers.
struct TestRatios {
    double tur;                    // d/(1.959964 u), as on the main screen
    double toleranceToUncertainty; // d/(k u), what the rules by ratio use
};

TestRatios ratiosOf(const DecisionBasis& basis);
/// Of any half width, standard uncertainty and coverage factor.
TestRatios ratiosOf(double halfWidth, double sigma, double coverage);

/// With the fit and the test limits of the analysis. Refused without a fit, and where nothing is accepted.
Result<GuardedRisks> risksOf(const DecisionBasis& basis);

} // namespace metrisk
