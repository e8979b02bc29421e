// The false accept risk in both conventions beside the ratios of a test.
#pragma once

#include "risk/decision/Coverage.h"
#include "risk/decision/TestRatios.h"
#include "risk/exact/ExactRisks.h"
#include "unattended/AnalysisRun.h"

#include <optional>
#include <string>

namespace metrisk {

struct BothConventions {
    double consumer = 0, producer = 0; // as published; fractions
    std::optional<ExactRisks> exact{};
    TestRatios ratios{};
    double uncertaintyRatio = 0;       // of the subject's sigma to that of the measurement
    double coverage = 0, expanded = 0; // k; k u in nominal units
};

/// Of a record that has just been computed. `falseAccept` is the figure of its own convention, which stands;
/// the other one comes from the same probabilities in the same way.
std::optional<BothConventions> bothConventions(const AnalysisRun& run, const CoverageChoice& coverage,
                                               double falseAccept, const std::optional<ExactRisks>& exact);

/// Their keys, null without figures. Accepted and InTolerance are the exact ones.
void putBoth(Json& object, const std::optional<BothConventions>& both);
/// The same with bounds, for the object of second figures.
void putVerified(Json& object, const std::optional<BothConventions>& both);

} // namespace metrisk
