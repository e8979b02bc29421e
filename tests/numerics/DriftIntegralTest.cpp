#include "numerics/DriftIntegral.h"
#include "numerics/Real.h"
#include "tests/support/ScriptedInteraction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace metrisk::testing {
namespace {

class IntegrateDrift : public ::testing::Test {
  protected:
    ScriptedInteraction ui;
    DriftNodes drift;
    Flag AbortFlag = true;
    double result = -1;

    void expectFaultBox() {
        ui.expectBox("Function Integration Error",
                     "A fatal math error occurred during function integration.  "
                     "Please try a different set of inputs.");
    }
};

bool decay(double t, double& value) {
    value = std::exp(-t);
    return true;
}

TEST_F(IntegrateDrift, IntegratesWithFortyNodes) {
    int calls = 0;
    IntegrateDriftFunction(
        0, 3, [&](double t, double& value) { return ++calls, decay(t, value); }, result, drift, AbortFlag,
        ui);
    EXPECT_NEAR(result, -std::expm1(-3), 1e-13);
    EXPECT_EQ(calls, 40);
    EXPECT_FALSE(AbortFlag);
    EXPECT_FALSE(drift.recomputeNodes);
}

TEST_F(IntegrateDrift, NodesAreSharedUntilAskedAnew) {
    const auto one = [](double, double& value) { return value = 1, true; };
    IntegrateDriftFunction(0, 3, one, result, drift, AbortFlag, ui);
    IntegrateDriftFunction(0, 5, one, result, drift, AbortFlag, ui);
    EXPECT_NEAR(result, 3, 1e-13) << "the nodes of the first interval serve";
    drift.recomputeNodes = true;
    IntegrateDriftFunction(0, 5, one, result, drift, AbortFlag, ui);
    EXPECT_NEAR(result, 5, 1e-13);
}

TEST_F(IntegrateDrift, StopsEarlyWhenTheIntegrandFails) {
    int calls = 0;
    IntegrateDriftFunction(
        0, 3, [&](double, double& value) { return value = 1, ++calls < 10; }, result, drift, AbortFlag, ui);
    EXPECT_EQ(calls, 10);
    EXPECT_TRUE(AbortFlag);
    const NodeSet<40> nodes = GaussLegendreNodes<40>(0, 3);
    double nine = 0;
    for (std::size_t i = 0; i < 9; ++i) nine += nodes.w[i];
    EXPECT_EQ(result, nine);
}

TEST_F(IntegrateDrift, AFaultShowsItsBoxAndRaisesTheFlag) {
    const double infinity = std::numeric_limits<double>::infinity(),
                 huge = std::numeric_limits<double>::max();
    const std::pair<const char*, bool (*)(double, double&)> integrands[] = {
        {"infinite", [](double t, double& value) { return value = 1 / (t - t), true; }},
        {"overflowing sum", [](double, double& value) { return value = 1.7e308, true; }},
        {"thrown", [](double, double&) -> bool { throw RuntimeFault{}; }},
    };
    for (const auto& [name, integrand] : integrands) {
        expectFaultBox();
        IntegrateDriftFunction(0, 3, *integrand, result, drift, AbortFlag, ui);
        EXPECT_TRUE(AbortFlag) << name;
        EXPECT_TRUE(std::isfinite(result)) << name;
        ui.verifyAllShown();
    }
    for (double end : {infinity, huge, std::nan("")}) {
        expectFaultBox();
        drift.recomputeNodes = true;
        IntegrateDriftFunction(
            huge, end, [](double, double& v) { return v = 0, true; }, result, drift, AbortFlag, ui);
        EXPECT_TRUE(AbortFlag) << end;
        ui.verifyAllShown();
    }
}

} // namespace
} // namespace metrisk::testing
