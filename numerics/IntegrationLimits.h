// Where the acceptance integrals begin and end, in the distribution's standard variable.
#pragma once

#include "numerics/AcceptanceIntegrand.h"

namespace metrisk {

/// x1 and x2 spanning the in-tolerance region. An open end is where the integrand has fallen to
/// `eps` times its value at the start of a walk. Returns false, with x1 and x2 unchanged, when a scale
/// parameter is 0; a distribution of no name also leaves them. Raises RuntimeFault on bad arguments
/// and on a walk that does not end within a million steps.
bool JointIntegrationLimits(const AcceptanceIntegrand& integrand, double eps, double& x1, double& x2);

/// The same for the whole distribution.
bool MarginalIntegrationLimits(const AcceptanceIntegrand& integrand, double eps, double& x1, double& x2);

/// Half-width of the region that carries a risk, by a table in percent ("ppm" is converted). Above
/// 1 % the zone is left as it was.
void IntegrationSpanFromRisk(float& zone, double risk, const char* units);

} // namespace metrisk
