#include "numerics/mathlib/StudentsT.h"
#include "numerics/mathlib/Normal.h"
#include "tests/mathlib/Closeness.h"
#include "tests/mathlib/Oracle.h"

#include <limits>
#include <vector>

namespace metrisk::testing {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Degrees of freedom from 0.1 to 1e6, whole and not.
std::vector<double> freedoms() {
    std::vector<double> list = {1, 2, 3, 4, 5, 6, 10, 19, 20, 21, 30, 60, 120, 4999, 1e6};
    for (double nu = 0.1; nu < 1e6; nu *= 1.7) list.push_back(nu);
    return list;
}

TEST(tDistribution, AgreesWithTheOracle) {
    for (double nu : freedoms()) {
        for (double t = 1e-150; t < 1e-3; t *= 1e7)
            EXPECT_TRUE(relativelyClose(callText("tDistribution", t, nu), tDistribution(t, nu),
                                        oracle::tContent(t, nu), 1e-12));
        for (double t = 1e-3; t < 1e8; t *= 1.31)
            EXPECT_TRUE(relativelyClose(callText("tDistribution", t, nu), tDistribution(t, nu),
                                        oracle::tContent(t, nu), 1e-12));
    }
}

TEST(tDistribution, EndsAndOutside) {
    EXPECT_EQ(tDistribution(0, 5), 0);
    EXPECT_EQ(tDistribution(-1, 5), 0);
    EXPECT_EQ(tDistribution(infinity, 5), 1);
    EXPECT_EQ(tDistribution(1e308, 1e308), 1);
    for (double nu : {0.0, -1.0, std::nan("")}) EXPECT_TRUE(std::isnan(tDistribution(1, nu))) << nu;
}

TEST(tDistribution, ApproachesTheNormalContentWithoutAStep) {
    for (double t : {0.1, 1.0, 2.0, 3.0, 5.0}) {
        EXPECT_TRUE(relativelyClose(callText("tDistribution", t, 1.01e10), tDistribution(t, 1.01e10),
                                    tDistribution(t, 9.9e9), 1e-9));
        EXPECT_TRUE(relativelyClose(callText("tDistribution", t, infinity), tDistribution(t, infinity),
                                    1 - 2 * Normal(-t), 1e-14));
    }
}

TEST(StudentsT, AgreesWithTheOracle) {
    std::vector<double> contents;
    for (int i = 1; i < 60; ++i) contents.push_back(i / 60.0 + 1e-5 / 3);
    for (double p = 1e-300; p < 0.1; p *= 2e4) contents.push_back(p);
    for (double gap = 0x1p-52; gap < 0.1; gap *= 37)
        for (double p : {0.5 - gap, 0.5 + gap, 1 - gap}) contents.push_back(p);

    for (double nu : freedoms())
        for (double p : contents) {
            if (std::log(p) / nu < -690) continue; // the quantile exceeds the largest double
            const double t = StudentsT(nu, p);
            const long double error = oracle::tQuantileError(t, nu, p);
            EXPECT_LE(std::fabs(error), 1e-12L)
                << callText("StudentsT", nu, p) << ": got " << std::setprecision(17) << t << ", expected "
                << t * (1 + error);
        }
}

TEST(StudentsT, ZeroMeansNoAnswer) {
    for (double nu : {0.0, -3.0, std::nan("")}) EXPECT_EQ(StudentsT(nu, 0.9), 0) << nu;
    for (double p : {0.0, 1.0, -0.2, 1.2, 0.5, std::nan("")}) EXPECT_EQ(StudentsT(7, p), 0) << p;
    EXPECT_EQ(StudentsT(0.1, 1e-300), 0); // about -1e2999
    EXPECT_LT(StudentsT(infinity, 1e-300), -37);
    EXPECT_LT(StudentsT(1e-3, 0.49), 0);
}

} // namespace
} // namespace metrisk::testing
