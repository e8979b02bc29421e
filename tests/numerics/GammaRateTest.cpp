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

TEST(RoundedToFourDecimals, HalfAwayFromZeroOnFifteenDigits) {
    const struct {
        double value, expected;
    } rows[] = {{0, 0},
                {1.00005, 1.0001},   // a little below the half in binary
                {-1.00005, -1.0001}, //
                {2.000049999999, 2},
                {0.00005, 0.0001},
                {0.0000499999999999999, 0},
                {0.000049999999999999999, 0.0001}, // 5.00000000000000e-05 in 15 digits
                {1e-20, 0},
                {123456.78905, 123456.7891},
                {12345678901.2345, 12345678901.2345},
                {1234567890123456.7, 1234567890123460.0},
                {9.99995, 10},
                {1e300, 1e300}};
    for (const auto& row : rows) EXPECT_EQ(roundedToFourDecimals(row.value), row.expected) << row.value;
    EXPECT_TRUE(std::signbit(roundedToFourDecimals(-1e-7)));
}

} // namespace
} // namespace metrisk::testing
