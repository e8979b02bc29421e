// The Bayesian bias analysis: two parameters that measure each other, judged by what each knows of itself.
//
// A parameter's bias e has the prior N(0, a^2), a from its tolerance and % in-tolerance; the other one has
// measured it as d = own mean - other mean with N(d; -e, b^2). What is told of e is that posterior (H.
// Castrup, statistical measurement process control). Slot 1 is the measuring, slot 2 the subject parameter.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <optional>
#include <string>

namespace metrisk {

struct BiasEstimate {
    double inTolerance = 0; // probability, a fraction
    double bias = 0;        // true value less indicated value
    double share = 0;       // of the combined uncertainty: a^2 / (a^2 + b^2)
};

/// `d` is the parameter's own mean less the other's, `limit` its tolerance; a and b above 0. All in one unit.
BiasEstimate BiasPass(double d, double limit, double a, double b);

/// What ComputeBias takes beside samples, tolerances and percentages.
struct BiasGround {
    double mode = 0;           // nominal units
    double otherErrors = 0;    // standard uncertainty that concerns both parameters, nominal units
    double measuringSigma = 0; // prior of slot 1, nominal units; 0: that of its tolerance
};

/// From SMPC_Tolerance and SMPC_PctInTol, and from Stat_SampleSize, Stat_SampleMean and Stat_SampleStdDev (of
/// the sample), all in nominal units, to the results of the group. A size of 0 becomes 1. False without a
/// result: a % in-tolerance is 0, or there is no uncertainty at all. Raises RuntimeFault.
bool ComputeBias(SampleStatistics& samples, BiasAnalysis& bias, const BiasGround& ground);

/// There is a sample of a parameter.
bool anySample(const SampleStatistics& samples);

/// The bias group with the results of the record's samples and of the fits that it holds; none if there
/// cannot be any. Raises RuntimeFault.
std::optional<BiasAnalysis> analysedBias(const Analysis& record, const Regional& regional);

/// Whether the results in the record are those of its entries: an analysis of them gives the same.
bool BiasResultsStand(const Analysis& record, const Regional& regional);

/// Mode and SMPC_TrueOffset in nominal units, with decimals that keep what the offset shows in tolerance
/// units.
std::string estimatedTrueValue(const Analysis& record, const Regional& regional);

} // namespace metrisk
