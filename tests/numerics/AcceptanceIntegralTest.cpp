#include "numerics/AcceptanceIntegral.h"
#include "numerics/GaussLegendre.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

SubjectBias bias(Distribution kind) {
    return {.distribution = kind,
            .caseCode = kind == Distribution::Normal ? 6 : 9,
            .upperOffset = 1,
            .lowerOffset = 1,
            .sigma = 0.5};
}

double over(const AcceptanceIntegrand& f, const auto& nodes) {
    return f.sumOver(nodes.x.data(), nodes.w.data(), nodes.size(), 0, 2);
}

TEST(AcceptanceIntegral, HalfTheNodesStandForAllWhereBothSidesAreTheSame) {
    for (const Distribution kind : {Distribution::Normal, Distribution::Uniform})
        for (const double mteSigma : {1e-3, 0.1, 0.5, 30.0})
            for (const double bound : {0.01, 0.7, 2.0}) {
                const AcceptanceIntegrand f(bias(kind), -bound, bound, mteSigma);
                ASSERT_TRUE(f.isEven());
                // Fractions: below the middle, the share accepted is a difference of two near 1.
                EXPECT_NEAR(over(f, upperUnitNodes<100>()), over(f, unitNodes<100>()), 4e-16)
                    << mteSigma << ' ' << bound;
                EXPECT_FALSE(AcceptanceIntegrand(bias(kind), -bound, bound * 1.1, mteSigma).isEven());
            }
}

TEST(AcceptanceIntegral, AMirroredParameterHasTheSameProbabilities) {
    SubjectBias upper = bias(Distribution::Normal);
    upper.twoSided = false;
    upper.singleUpper = true;
    upper.caseCode = 5;
    SubjectBias lower = upper;
    lower.singleUpper = false;
    lower.caseCode = 4;
    for (const double mteSigma : {0.01, 0.1, 0.5})
        for (const double limit : {-0.5, 0.8, 2.0, 3.0}) {
            const auto above = IntegrateAcceptance(Integral::Joint, upper, -8, limit, mteSigma);
            const auto below = IntegrateAcceptance(Integral::Joint, lower, -limit, 8, mteSigma);
            ASSERT_TRUE(above && below);
            EXPECT_NEAR(*above / *below, 1, 1e-14) << mteSigma << ' ' << limit;
        }
}

} // namespace
} // namespace metrisk::testing
