#include "numerics/AcceptanceIntegral.h"

#include "base/Real.h"
#include "numerics/GaussLegendre.h"
#include "numerics/IntegrationLimits.h"
#include "numerics/mathlib/NormalArray.h"

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
        const double middle = (checked(x2) + checked(x1)) / 2, half = (x2 - x1) / 2;
        const auto over = [&](const auto& nodes) {
            return checked(half *
                           integrand.sumOver(nodes.x.data(), nodes.w.data(), nodes.size(), middle, half));
        };
        return middle == 0 && integrand.isEven() ? over(upperUnitNodes<order>()) : over(unitNodes<order>());
    });
}

double BaselineJointProbability(double ratio, double zSubject, double zMeasuring) {
    return faultsNamed("BaselineJointProbability", [&] {
        if (zSubject == 0) throw RuntimeFault{};
        const double reach = checked(ratio * zMeasuring);
        if (reach == 0) return 0.0;
        const double sigma = checked(zSubject / reach);
        const auto& nodes = upperUnitNodes<order>();
        return checked(zSubject * NormalWindowSum(nodes.x.data(), nodes.w.data(), nodes.size(), 0, zSubject,
                                                  {zSubject, -zSubject, sigma}));
    });
}

} // namespace metrisk
