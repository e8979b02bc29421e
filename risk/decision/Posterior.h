// The conformance probability with a prior for which there is no closed form.
#pragma once

#include "risk/decision/Conformance.h"

namespace metrisk {

/// Both sides of the limits integrated, each on the scale of its own largest value, so that a probability of
/// 1e-200 has its digits as well. For a prior with a spread; not for a Uniform one.
Conformance integratedConformance(double deviation, const SubjectBias& prior, double sigma,
                                  double degFreedom);

} // namespace metrisk
