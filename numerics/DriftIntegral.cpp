#include "numerics/DriftIntegral.h"

#include "model/Interaction.h"
#include "numerics/Real.h"

namespace metrisk {

namespace {

constexpr const char* faultText = "A fatal math error occurred during function integration.  "
                                  "Please try a different set of inputs.";
constexpr const char* faultTitle = "Function Integration Error";

void recompute(DriftNodes& drift, double x1, double x2) {
    if (!drift.recomputeNodes) return;
    const Real low = x1, high = x2;
    (void)(low + high), (void)(high - low); // middle and length must be numbers
    GaussLegendreNodes(x1, x2, drift.nodes);
    drift.recomputeNodes = false;
}

} // namespace

void IntegrateDriftFunction(double x1, double x2, DriftIntegrand integrand, double& result, DriftNodes& drift,
                            Flag& AbortFlag, Interaction& ui) noexcept {
    AbortFlag = false;
    result = 0;
    try {
        recompute(drift, x1, x2);
        for (std::size_t i = 0; i < drift.nodes.size(); ++i) {
            double value = 0;
            if (!integrand(drift.nodes.x[i], value)) {
                AbortFlag = true;
                return;
            }
            result = (result + Real(drift.nodes.w[i]) * value).value();
        }
    } catch (const RuntimeFault&) {
        AbortFlag = true;
        ui.show({.text = faultText, .title = faultTitle, .icon = BoxIcon::Exclamation});
    }
}

} // namespace metrisk
