#include "numerics/DriftIntegral.h"

#include "base/Real.h"

namespace metrisk {

namespace {

void recompute(DriftNodes& drift, double x1, double x2) {
    if (!drift.recomputeNodes) return;
    const Real low = x1, high = x2;
    (void)(low + high), (void)(high - low); // middle and length must be numbers
    GaussLegendreNodes(x1, x2, drift.nodes);
    drift.recomputeNodes = false;
}

} // namespace

bool IntegrateDriftFunction(double x1, double x2, DriftIntegrand integrand, double& result,
                            DriftNodes& drift) {
    result = 0;
    return faultsNamed("IntegrateDriftFunction", [&] {
        recompute(drift, x1, x2);
        for (std::size_t i = 0; i < drift.nodes.size(); ++i) {
            double value = 0;
            if (!integrand(drift.nodes.x[i], value)) return false;
            result = (result + Real(drift.nodes.w[i]) * value).value();
        }
        return true;
    });
}

} // namespace metrisk
