// How probable it is that an item with a given reading conforms to its tolerance.
#pragma once

#include "risk/decision/DecisionBasis.h"

#include <optional>

namespace metrisk {

/// Fractions, each to its own relative precision of 1e-10: neither is formed from the other where it is
/// small.
struct Conformance {
    double conforming;
    double nonconforming;
};

/// The measured value and nothing else: the true one is reading + sigma T, T normal or Student's (JCGM 106
/// 7). `deviation` is reading - mode, as is the tolerance; nominal units.
Conformance conformanceOf(double deviation, const Interval& tolerance, double sigma, double degFreedom);
Conformance conformanceOf(const DecisionBasis& basis, double deviation);

/// With the population of the subject parameter as prior (JCGM 106 6.4, 7.2); `deviation` is reading - the
/// prior's mode. In closed form for a Normal and an Exponential prior and a normal measurement, else by
/// integration. 1 and 0 for a Uniform prior, which a reading cannot change. None for a parameter without a
/// spread.
std::optional<Conformance> conformanceWithPrior(double deviation, const SubjectBias& prior, double sigma,
                                                double degFreedom);

} // namespace metrisk
