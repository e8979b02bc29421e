// Measured samples and what the process errors table takes from them.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <span>

namespace metrisk {

/// Where a row tells no confidence for its limit, a fraction.
inline constexpr double defaultSampleConfidence = 0.95;

/// In the units of the values.
struct SampleFigures {
    int count = 0;
    double mean = 0;
    double stdDeviation = 0; // of the values, 0 below two
    double inTheMean = 0;    // of their mean
};

/// The deviations are those from the mean, and their own mean, which only rounding leaves, is taken out.
/// Raises RuntimeFault if a figure is not finite.
SampleFigures sampleFigures(std::span<const double> values);

/// Samples of a slot are deviations from the mode in tolerance units of the measuring parameter, or measured
/// values in nominal units.
inline bool areDeviations(const SampleStatistics& samples, int slot) {
    return samples.Stat_Flag1[slot] == 0;
}

/// Fills the statistics of a slot (1 measuring, 2 subject parameter) by Stat_Flag1, Stat_Flag2 and the
/// confidence Stat_Value5: count, mean as entered, standard deviations in tolerance units, t value, and the
/// limit in nominal units. Raises RuntimeFault and leaves them then.
void ComputeSampleStatistics(Analysis& record, int slot, std::span<const double> values);

/// Keeps at most maxSampleSize values in a slot, with their statistics and the most decimals that they have,
/// and fills the row of the process errors table from them. Raises RuntimeFault and changes nothing then.
void StoreSamples(Analysis& record, int slot, std::span<const double> values, int decimals,
                  const Regional& regional);

} // namespace metrisk
