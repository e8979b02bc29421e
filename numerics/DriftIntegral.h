// The 40-point integral of a reliability model over a period.
#pragma once

#include "base/FunctionRef.h"
#include "numerics/GaussLegendre.h"

namespace metrisk {

/// The integrand at time t. Puts it into `value` and returns true, or returns false after having told
/// of its failure.
using DriftIntegrand = FunctionRef<bool(double t, double& value)>;

/// Nodes that a run of integrals over one interval shares; the caller keeps them.
struct DriftNodes {
    NodeSet<40> nodes{};
    bool recomputeNodes = true; ///< set by a caller whose interval has changed
};

/// result = the integral of the integrand over [x1, x2], in the units of x. False when the integrand fails.
/// Raises RuntimeFault on a numeric fault. Either way the result is then what had been summed so far. While
/// drift.recomputeNodes is false the nodes of the last interval serve and x1 and x2 are not read; it is
/// false on return, unless the interval itself was at fault.
bool IntegrateDriftFunction(double x1, double x2, DriftIntegrand integrand, double& result,
                            DriftNodes& drift);

} // namespace metrisk
