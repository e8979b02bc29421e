#include "numerics/mathlib/Binomial.h"
#include "numerics/BinomialLimits.h"
#include "numerics/mathlib/StudentsT.h"
#include "tests/mathlib/Closeness.h"
#include "tests/mathlib/Oracle.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

TEST(Binomial, TailsAgreeWithTheOracle) {
    for (const double n : {1.0, 2.0, 20.0, 999.0, 1e6})
        for (const double p : {1e-9, 1e-3, 0.3, 0.5, 0.95})
            for (const double share : {0.0, 0.2, 0.9, 0.999, 1.0, 1.001, 1.1, 3.0}) {
                const double x = std::floor(n * p * share);
                if (x < 1 || x > n) continue;
                const double tail = binomialUpperTail(x, n, {p, 1 - p});
                if (tail < 1e-290) continue;
                EXPECT_TRUE(relativelyClose(callText("binomialUpperTail", x, n) + std::to_string(p), tail,
                                            oracle::betaI(x, n - x + 1, p), 1e-12));
            }
}

TEST(Binomial, LimitsLeaveTheirTail) {
    for (const double n : {1.0, 20.0, 1000.0, 1e6, 1e9})
        for (const double share : {0.0, 0.1, 0.5, 0.95, 1.0})
            for (const double tail : {0.5, 0.025, 1e-6}) {
                const double x = std::round(n * share);
                const Chance low = leastShare(x, n, tail), high = greatestShare(x, n, tail);
                EXPECT_NEAR(low.p + low.q, 1, 1e-15);
                if (x > 0) {
                    EXPECT_NEAR(binomialUpperTail(x, n, low) / tail, 1, 1e-9) << x << "/" << n;
                }
                if (x < n) {
                    EXPECT_NEAR(binomialLowerTail(x, n, high) / tail, 1, 1e-9) << x << "/" << n;
                }
            }
    EXPECT_NEAR(leastShare(20, 20, 0.05).p, 0.8608916593317347, 1e-15);
    EXPECT_EQ(leastShare(0, 20, 0.05).p, 0);
    EXPECT_EQ(greatestShare(20, 20, 0.05).p, 1);
}

TEST(Student, TailsKeepTheirDigits) {
    for (const double nu : {0.5, 1.0, 3.0, 20.5, 4999.0})
        for (double t = 1e-3; t < 1e6; t *= 3.7) {
            const double tail = studentsTail(t, nu);
            if (tail < 1e-290) continue;
            EXPECT_TRUE(relativelyClose(callText("studentsTail", t, nu), tail, oracle::tTail(t, nu), 1e-12));
            EXPECT_NEAR(studentsTail(-t, nu) + tail, 1, 1e-15);
        }
    EXPECT_EQ(studentsTail(0, 3), 0.5);
}

} // namespace
} // namespace metrisk::testing
