#include "numerics/mathlib/Gamma.h"
#include "tests/mathlib/Closeness.h"
#include "tests/mathlib/Oracle.h"

#include <limits>

namespace metrisk::testing {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Gammln, AgreesWithTheOracle) {
    const auto expectClose = [](double x) {
        EXPECT_TRUE(relativelyClose(callText("Gammln", x), Gammln(x), oracle::logGamma(x), 1e-15));
    };
    for (int i = 1; i <= 6000; ++i) expectClose(i * (15.0 / 6000) + 1e-4 / 3);
    for (double x = 1e-300; x < 1e300; x *= 3.7) expectClose(x);
    for (double gap = 0x1p-52; gap < 0.3; gap *= 1.7) // about its zeros
        for (double x : {1 - gap, 1 + gap, 2 - 2 * gap, 2 + 2 * gap}) expectClose(x);
}

TEST(Gammln, ZerosAndEnds) {
    EXPECT_EQ(Gammln(1), 0);
    EXPECT_EQ(Gammln(2), 0);
    EXPECT_EQ(Gammln(0), infinity);
    EXPECT_EQ(Gammln(infinity), infinity);
    for (double x : {-1e-300, -1.0, -2.5, -infinity, std::nan("")}) EXPECT_TRUE(std::isnan(Gammln(x))) << x;
}

TEST(Gammp, AgreesWithTheOracle) {
    for (double a = 0.01; a < 1e6; a *= 2.3)
        for (double ratio = 0.05; ratio < 10; ratio *= 1.13) {
            const long double expected = oracle::gammaP(a, a * ratio);
            if (expected < 1e-300L) continue; // below, digits end in gradual underflow
            EXPECT_TRUE(
                relativelyClose(callText("Gammp", a, a * ratio), Gammp(a, a * ratio), expected, 5e-12));
        }
}

TEST(Gammp, Saturates) {
    EXPECT_EQ(Gammp(3, 0), 0);
    EXPECT_EQ(Gammp(3, infinity), 1);
    EXPECT_EQ(Gammp(1e12, 2e12), 1);
    EXPECT_EQ(Gammp(1e12, 5e11), 0);
    EXPECT_TRUE(std::isnan(Gammp(0, 1)) && std::isnan(Gammp(-1, 1)) && std::isnan(Gammp(1, -1)));
}

TEST(Gammp, TheFormForLargeOrdersContinuesTheOther) {
    for (double deviate : {-4.0, -1.0, -0.01, 0.0, 0.5, 3.0}) {
        const double below = 9.999999e9, above = 1.0000001e10;
        const double left = Gammp(below, below + deviate * std::sqrt(below));
        const double right = Gammp(above, above + deviate * std::sqrt(above));
        EXPECT_TRUE(relativelyClose(callText("Gammp at deviate", deviate), right, left, 1e-9));
    }
}

} // namespace
} // namespace metrisk::testing
