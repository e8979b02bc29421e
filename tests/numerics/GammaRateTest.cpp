#include "numerics/GammaRate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace metrisk::testing {
namespace {

double model(double c, double x) {
    return c * std::exp(-x) * (1 + x + x * x / 2 + x * x * x / 6);
}

TEST(SolveGammaRate, FindsTheRateToFourDecimals) {
    for (double c : {1.0, 0.95, 0.5})
        for (double rate : {0.1, 0.5, 1.2345, 3.0, 7.7777, 12.0, 15.5}) {
            double lambda = -1;
            bool failed = true;
            SolveGammaRate(lambda, c, model(c, rate), failed);
            EXPECT_FALSE(failed) << "c " << c << " rate " << rate;
            const double slope = c * std::exp(-rate) * rate * rate * rate / 6;
            EXPECT_NEAR(lambda, rate, 0.00005001 + 1e-9 / slope) << "c " << c;
            EXPECT_EQ(lambda, std::round(lambda * 1e4) / 1e4) << "more than four decimals";
        }
}

TEST(SolveGammaRate, EqualTargetsAndFailures) {
    const struct {
        const char* name;
        double c, target, expected;
        bool failed;
    } rows[] = {
        {"equal", 0.8, 0.8, 0, false},
        {"nearly equal", 0.8, 0.8 - 5e-11, 0, false},
        {"target above c", 0.8, 0.9, 77, true},
        {"target negative", 0.8, -0.1, 77, true},
        {"falling residual", -0.8, -0.3, 0, true},
        {"nan", std::nan(""), 0.5, 77, true},
        {"infinite", std::numeric_limits<double>::infinity(), 0.5, 77, true},
    };
    for (const auto& row : rows) {
        double lambda = 77;
        bool failed = !row.failed;
        SolveGammaRate(lambda, row.c, row.target, failed);
        EXPECT_EQ(failed, row.failed) << row.name;
        EXPECT_EQ(lambda, row.expected) << row.name;
    }
}

} // namespace
} // namespace metrisk::testing
