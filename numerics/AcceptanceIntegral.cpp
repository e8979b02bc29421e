#include "numerics/AcceptanceIntegral.h"

#include "base/Real.h"
#include "numerics/GaussLegendre.h"
#include "numerics/IntegrationLimits.h"
#include "numerics/mathlib/NormalArray.h"

#include <array>
#include <utility>

namespace metrisk {

namespace {

constexpr std::size_t order = 100;
constexpr double walkEnd = 1e-14; // of the integrand's value at the start of a walk to an open end

} // namespace

std::optional<double> IntegrateAcceptance(Integral kind, const SubjectBias& subject, double lo, double hi,
                                          double mteSigma) {
    return faultsNamed("IntegrateAcceptance", [&]() -> std::optional<double> {
        const AcceptanceIntegrand integrand(subject, lo, hi, mteSigma);
        double x1 = 0;
        double x2 = 0;
        const bool scaled = kind == Integral::Joint ? JointIntegrationLimits(integrand, walkEnd, x1, x2)
                                                    : MarginalIntegrationLimits(integrand, walkEnd, x1, x2);
        if (!scaled) return std::nullopt;
        // A single upper LogNormal limit below its physical limit comes the other way round.
        if (x1 > x2) std::swap(x1, x2);
        const auto nodes = GaussLegendreNodes<order>(checked(x1), checked(x2));
        std::array<double, order> values{};
        integrand.evaluate(nodes.x.data(), values.data(), order);
        double sum = 0;
        for (std::size_t i = 0; i < order; ++i) sum += nodes.w[i] * values[i];
        return checked(sum);
    });
}

double BaselineJointProbability(double ratio, double zSubject, double zMeasuring) {
    return faultsNamed("BaselineJointProbability", [&] {
        if (zSubject == 0) throw RuntimeFault{};
        const auto nodes = GaussLegendreNodes<order>(-checked(zSubject), zSubject);
        const double k = checked(ratio * zMeasuring);
        std::array<double, 2 * order> phi;
        for (std::size_t i = 0; i < order; ++i) phi[i] = (nodes.x[i] / zSubject + 1) * k;
        for (std::size_t i = 0; i < order; ++i) phi[order + i] = (1 - nodes.x[i] / zSubject) * k;
        Normal(phi.data(), phi.data(), 2 * order);
        std::array<double, order> density;
        NormalDensity(nodes.x.data(), density.data(), order);
        double sum = 0;
        for (std::size_t i = 0; i < order; ++i)
            sum += nodes.w[i] * (phi[i] + phi[order + i] - 1) * density[i];
        return checked(sum);
    });
}

} // namespace metrisk
