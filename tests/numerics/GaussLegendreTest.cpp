#include "numerics/GaussLegendre.h"

#include <boost/math/special_functions/legendre.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace metrisk::testing {
namespace {

// The derivative in a weight is that of the last Newton pass, taken up to 1e-14 away from the node; near
// the ends of the interval, where it changes fastest, that is a relative error of some 1e-12.
constexpr double weightAccuracy = 1e-11;

TEST(GaussLegendreNodes, WeightsAddToTheLengthAndNodesAreSymmetric) {
    for (std::size_t n : {1u, 2u, 3u, 4u, 7u, 40u, 100u, 1001u}) {
        const Nodes nodes = GaussLegendreNodes(-1, 1, n);
        EXPECT_NEAR(std::accumulate(nodes.w.begin(), nodes.w.end(), 0.0), 2, 1e-13) << "order " << n;
        for (std::size_t i = 0; i < n; ++i) {
            const bool middle = 2 * i + 1 == n;
            EXPECT_EQ(middle ? 0 : nodes.x[i] + nodes.x[n - 1 - i], 0) << "order " << n << " node " << i;
            EXPECT_EQ(nodes.w[i], nodes.w[n - 1 - i]) << "order " << n << " node " << i;
            EXPECT_LT(i == 0 ? -1 : nodes.x[i - 1], nodes.x[i]) << "order " << n << " node " << i;
        }
    }
}

// Abramowitz and Stegun, table 25.4, n = 4.
TEST(GaussLegendreNodes, PublishedTable) {
    const Nodes nodes = GaussLegendreNodes(-1, 1, 4);
    EXPECT_NEAR(nodes.x[2], 0.339981043584856, 5e-16);
    EXPECT_NEAR(nodes.x[3], 0.861136311594053, 5e-16);
    EXPECT_NEAR(nodes.w[2], 0.652145154862546, 1e-14);
    EXPECT_NEAR(nodes.w[3], 0.347854845137454, 1e-14);
}

TEST(GaussLegendreNodes, AreTheRootsOfTheLegendrePolynomial) {
    const auto expected = boost::math::legendre_p_zeros<long double>(100); // the positive half, ascending
    const NodeSet<100>& nodes = unitNodes<100>();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const long double z = expected[i], slope = boost::math::legendre_p_prime(100, z);
        EXPECT_NEAR(nodes.x[50 + i], static_cast<double>(z), 3e-16) << i;
        const auto weight = static_cast<double>(2 / ((1 - z * z) * slope * slope));
        EXPECT_NEAR(nodes.w[50 + i], weight, weightAccuracy * weight) << i;
    }
}

TEST(GaussLegendreNodes, AreExactForPolynomialsUpToDegree2nMinus1) {
    for (std::size_t n : {1u, 2u, 5u, 40u, 100u})
        for (std::size_t degree = 0; degree <= 2 * n - 1; ++degree) {
            const double x1 = -0.6, x2 = 1.1;
            const Nodes nodes = GaussLegendreNodes(x1, x2, n);
            double sum = 0;
            for (std::size_t i = 0; i < n; ++i) sum += nodes.w[i] * std::pow(nodes.x[i], degree);
            const auto power = static_cast<double>(degree + 1);
            const double exact = (std::pow(x2, power) - std::pow(x1, power)) / power;
            EXPECT_NEAR(sum, exact, 1e-12 * std::fabs(exact)) << "order " << n << " degree " << degree;
        }
}

TEST(GaussLegendreNodes, FixedAndRunTimeOrdersAgreeOnAnyInterval) {
    const NodeSet<40> fixed = GaussLegendreNodes<40>(2, -5.5);
    const Nodes free = GaussLegendreNodes(2, -5.5, 40);
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_EQ(fixed.x[i], free.x[i]) << i;
        EXPECT_EQ(fixed.w[i], free.w[i]) << i;
    }
    EXPECT_LT(fixed.w[0], 0); // the integral from 2 down to -5.5
    EXPECT_TRUE(GaussLegendreNodes(0, 1, 0).x.empty());
}

} // namespace
} // namespace metrisk::testing
