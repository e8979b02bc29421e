#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/NormalArray.h"
#include "tests/mathlib/Closeness.h"
#include "tests/mathlib/Oracle.h"

#include <limits>
#include <vector>

namespace metrisk::testing {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Normal, AgreesWithTheOracleFromTheSmallestNormalDoubleUp) {
    for (int i = 0; i <= 9000; ++i) {
        const double x = -37.5 + i * (46.0 / 9000);
        EXPECT_TRUE(relativelyClose(callText("Normal", x), Normal(x), oracle::phi(x), 1e-15));
    }
}

TEST(Normal, IsHalfAndAStraightLineAboutZero) {
    EXPECT_EQ(Normal(0), 0.5);
    EXPECT_EQ(Normal(-0.0), 0.5);
    for (double x = 1e-300; x < 1; x *= 7)
        for (double side : {-x, x})
            EXPECT_TRUE(relativelyClose(callText("Normal", side), Normal(side), oracle::phi(side), 1e-15));
}

TEST(Normal, SaturatesAndNeverFails) {
    for (double x : {9.0, 40.0, 1e4, 1e300, std::numeric_limits<double>::max(), infinity}) {
        EXPECT_EQ(Normal(x), 1) << x;
        EXPECT_EQ(Normal(-x), x > 39 ? 0 : Normal(-9)) << x;
    }
    EXPECT_TRUE(std::isnan(Normal(std::nan(""))));
    double previous = 0;
    for (double x = -38.7; x < -37; x += 0.001) { // gradual underflow
        EXPECT_GE(Normal(x), previous) << x;
        previous = Normal(x);
    }
}

TEST(Normal, ArraysAgreeWithTheOracleAtEveryLength) {
    std::vector<double> x;
    for (int i = 0; i <= 10000; ++i) x.push_back(-37.5 + i * (46.0 / 10000));
    for (double small = 1e-300; small < 1; small *= 7) x.insert(x.end(), {-small, small});
    std::vector<double> content(x.size());
    Normal(x.data(), content.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_TRUE(relativelyClose(callText("Normal", x[i]), content[i], oracle::phi(x[i]), 2e-15));

    for (std::size_t n = 0; n < 20; ++n) { // whole registers and what is left over give the same bits
        std::vector<double> few(x.begin(), x.begin() + 20);
        Normal(few.data(), few.data(), n);
        for (std::size_t i = 0; i < 20; ++i) EXPECT_EQ(few[i], i < n ? content[i] : x[i]) << n << ' ' << i;
    }
}

TEST(Normal, ArraysSaturateAndNeverFail) {
    const double max = std::numeric_limits<double>::max();
    std::vector<double> x = {0, -0.0, 9, 40, 1e4, max, infinity, -39, -40, -1e4, -max, -infinity};
    const std::vector<double> expected = {0.5, 0.5, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0};
    Normal(x.data(), x.data(), x.size());
    EXPECT_EQ(x, expected);

    std::vector<double> nans(5, std::nan(""));
    Normal(nans.data(), nans.data(), nans.size());
    for (double content : nans) EXPECT_TRUE(std::isnan(content));

    std::vector<double> under; // gradual underflow
    for (double v = -38.7; v < -37; v += 0.001) under.push_back(v);
    std::vector<double> content(under.size());
    Normal(under.data(), content.data(), under.size());
    for (std::size_t i = 0; i < under.size(); ++i)
        EXPECT_NEAR(content[i], Normal(under[i]), 1e-323 + 2e-15 * content[i]) << under[i];
}

TEST(Normal, DensitiesOfArraysAgreeWithTheOracle) {
    std::vector<double> x;
    for (int i = -5000; i <= 5000; ++i) x.push_back(i * 0.0074);
    x.insert(x.end(), {39.0, -1e300, infinity});
    std::vector<double> density(x.size());
    NormalDensity(x.data(), density.data(), x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        const long double exact = i + 3 < x.size() ? oracle::density(x[i]) : 0;
        EXPECT_TRUE(relativelyClose(callText("NormalDensity", x[i]), density[i], exact, 1e-15));
    }
}

TEST(InvNorm, AgreesWithTheOracle) {
    const auto expectClose = [](double p) {
        EXPECT_TRUE(relativelyClose(callText("InvNorm", p), InvNorm(p), oracle::phiInverse(p), 1e-14));
    };
    for (int i = 1; i < 3000; ++i) expectClose(i / 3000.0 + 1e-5 / 3);
    for (double p = 1e-300; p < 0.1; p *= 1.37) expectClose(p);
    for (double gap = 0x1p-53; gap < 0.1; gap *= 1.37) {
        expectClose(1 - gap);
        expectClose(0.5 + 2 * gap);
        expectClose(0.5 - gap);
    }
}

TEST(InvNorm, MiddleEndsAndOutside) {
    EXPECT_EQ(InvNorm(0.5), 0);
    EXPECT_NEAR(InvNorm(0.975), 1.959963984540054, 1e-15); // the usual two-sided 95 % factor
    EXPECT_EQ(InvNorm(0), -infinity);
    EXPECT_EQ(InvNorm(1), infinity);
    for (double p : {-0.1, 1.1, std::nan(""), infinity, -infinity}) EXPECT_TRUE(std::isnan(InvNorm(p))) << p;
}

} // namespace
} // namespace metrisk::testing
