#include "numerics/DriftIntegral.h"
#include "base/Real.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace metrisk::testing {
namespace {

struct IntegrateDrift : ::testing::Test {
    DriftNodes drift;
    double result = -1;
};

bool decay(double t, double& value) {
    value = std::exp(-t);
    return true;
}

TEST_F(IntegrateDrift, IntegratesWithFortyNodes) {
    int calls = 0;
    EXPECT_TRUE(IntegrateDriftFunction(
        0, 3, [&](double t, double& value) { return ++calls, decay(t, value); }, result, drift));
    EXPECT_NEAR(result, -std::expm1(-3), 1e-13);
    EXPECT_EQ(calls, 40);
    EXPECT_FALSE(drift.recomputeNodes);
}

TEST_F(IntegrateDrift, NodesAreSharedUntilAskedAnew) {
    const auto one = [](double, double& value) { return value = 1, true; };
    IntegrateDriftFunction(0, 3, one, result, drift);
    IntegrateDriftFunction(0, 5, one, result, drift);
    EXPECT_NEAR(result, 3, 1e-13) << "the nodes of the first interval serve";
    drift.recomputeNodes = true;
    IntegrateDriftFunction(0, 5, one, result, drift);
    EXPECT_NEAR(result, 5, 1e-13);
}

TEST_F(IntegrateDrift, StopsEarlyWhenTheIntegrandFails) {
    int calls = 0;
    EXPECT_FALSE(IntegrateDriftFunction(
        0, 3, [&](double, double& value) { return value = 1, ++calls < 10; }, result, drift));
    EXPECT_EQ(calls, 10);
    const NodeSet<40> nodes = GaussLegendreNodes<40>(0, 3);
    double nine = 0;
    for (std::size_t i = 0; i < 9; ++i) nine += nodes.w[i];
    EXPECT_EQ(result, nine);
}

TEST_F(IntegrateDrift, AFaultLeavesTheSumSoFar) {
    const double infinity = std::numeric_limits<double>::infinity(),
                 huge = std::numeric_limits<double>::max();
    const std::pair<const char*, bool (*)(double, double&)> integrands[] = {
        {"infinite", [](double t, double& value) { return value = 1 / (t - t), true; }},
        {"overflowing sum", [](double, double& value) { return value = 1.7e308, true; }},
        {"thrown", [](double, double&) -> bool { throw RuntimeFault{}; }},
    };
    for (const auto& [name, integrand] : integrands) {
        EXPECT_THROW(IntegrateDriftFunction(0, 3, *integrand, result, drift), RuntimeFault) << name;
        EXPECT_TRUE(std::isfinite(result)) << name;
    }
    for (double end : {infinity, huge, std::nan("")}) {
        drift.recomputeNodes = true;
        const auto zero = [](double, double& v) { return v = 0, true; };
        EXPECT_THROW(IntegrateDriftFunction(huge, end, zero, result, drift), RuntimeFault) << end;
    }
}

} // namespace
} // namespace metrisk::testing
