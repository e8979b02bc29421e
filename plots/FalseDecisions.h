// The parts of a subject plot's curve that a test decides falsely.
#pragma once

#include "plots/DistributionPlot.h"

namespace metrisk {

struct Analysis;

/// Gives the plot its FalseDecisions where the record holds both fits and its risks are of its entries. The
/// shares are joint, by exact integration: of all units tested, whatever the convention. Of a uniform subject
/// parameter, which counts as never accepted out of tolerance, nothing is shown.
void addFalseDecisions(DistributionPlot& plot, const Analysis& record);

} // namespace metrisk
