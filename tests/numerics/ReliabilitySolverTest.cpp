#include "numerics/ReliabilitySolver.h"
#include "base/Real.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace metrisk::testing {
namespace {

/// Runs a search on f and keeps the points it was asked at.
struct Observed {
    ReliabilitySearch search;
    std::vector<double> points;

    Observed(int model, double start, const std::function<double(double)>& f) {
        search.model = model;
        search.x = start;
        search.eps = 0.5;
        search.failed = true;
        SolveReliabilityEquation(
            [&](double x, double& value) {
                points.push_back(x);
                value = f(x);
                return true;
            },
            search);
    }
};

TEST(SolveReliabilityEquation, FindsRootsBothWaysAndInsideAndOutsideTheFirstBracket) {
    for (int model : {3, gammaReliabilityModel})
        for (double root : {0.03, 0.7, 1.0, 1.9, 40.0, 12345.0})
            for (double start : {1.0, 5.0, 300.0}) {
                const Observed rising(model, start, [=](double x) { return std::atan(x) - std::atan(root); });
                EXPECT_FALSE(rising.search.failed)
                    << "model " << model << " root " << root << " start " << start;
                EXPECT_NEAR(std::atan(rising.search.x), std::atan(root), 1e-11)
                    << "model " << model << " root " << root << " start " << start;
            }
    const Observed falling(1, 1, [](double x) { return 3 - x; });
    EXPECT_NEAR(falling.search.x, 3, 1e-11);
    EXPECT_FALSE(falling.search.failed);
    EXPECT_EQ(falling.search.eps, 1e-11);
}

TEST(SolveReliabilityEquation, AGuessOutsideItsRangeRestartsFromOne) {
    const auto f = [](double x) { return x - 1.7; };
    const struct {
        double start, firstPoint;
    } rows[] = {{500000, 0.5}, {100001, 0.5},   {0.2, 0.5}, {-3, 0.5},
                {0, 0.5},      {100000, 50000}, {1, 0.5},   {6, 3}};
    for (const auto& row : rows) {
        const Observed run(3, row.start, f);
        EXPECT_EQ(run.points.front(), row.firstPoint) << "start " << row.start;
        EXPECT_NEAR(run.search.x, 1.7, 1e-11) << "start " << row.start;
    }
}

TEST(SolveReliabilityEquation, TheGammaBracketKeepsTheEndsOneStepFurther) {
    // F is negative first at 0.5 and positive first at 8; kept are 0.25 and 16.
    const Observed run(gammaReliabilityModel, 1, [](double x) { return x - 7; });
    const std::vector<double> expected = {0.5, 2, 4, 8, 0.25, 0.25 + 15.75 / 2};
    ASSERT_GE(run.points.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(run.points[i], expected[i]) << i;
    EXPECT_NEAR(run.search.x, 7, 1e-11);
}

TEST(SolveReliabilityEquation, EqualResidualsForceAChangeOfSign) {
    // A parabola about the middle of the first bracket [0.5, 2], without a root: both ends are equal.
    const Observed run(2, 1, [](double x) { return 1 + (x - 1.25) * (x - 1.25); });
    EXPECT_TRUE(run.search.failed);
    EXPECT_EQ(run.points[0], 0.5);
    EXPECT_EQ(run.points[1], 2);
    EXPECT_EQ(run.points[2], 0.5) << "no point may be taken between the forced sign and the halving";
}

TEST(SolveReliabilityEquation, SearchesThatCannotSucceedEndAsFailed) {
    const double nan = std::nan("");
    const std::pair<const char*, std::function<double(double)>> rows[] = {
        {"no change of sign", [](double x) { return 1 + x * x; }},
        {"constant", [](double) { return -2; }},
        {"flat at zero", [](double) { return 0; }},
        {"a jump", [](double x) { return x < 1.3 ? -1 : 1; }},
        {"a root below zero", [](double x) { return x + 5; }},
        {"nan", [=](double) { return nan; }},
        {"nan inside", [=](double x) { return x == 0.5 ? -1
                                              : x == 2 ? 1
                                                       : nan; }},
        {"a thrown fault", [](double) -> double { throw RuntimeFault{}; }},
    };
    for (const auto& [name, f] : rows)
        for (int model : {3, gammaReliabilityModel}) {
            const Observed run(model, 1, f);
            EXPECT_TRUE(run.search.failed) << name << ", model " << model;
            EXPECT_TRUE(std::isfinite(run.search.x)) << name << ", model " << model;
            EXPECT_LT(run.points.size(), 10000u) << name << ", model " << model;
        }
    const Observed notANumber(3, nan, [](double x) { return x - 2; });
    EXPECT_TRUE(notANumber.search.failed);
}

TEST(SolveReliabilityEquation, AFailureToldByTheResidualStopsTheSearch) {
    for (int model : {3, gammaReliabilityModel})
        for (int lastGood : {0, 1, 2, 3, 5}) {
            int calls = 0;
            ReliabilitySearch search{.model = model, .x = 1};
            SolveReliabilityEquation(
                [&](double x, double& value) {
                    value = x - 7;
                    return ++calls <= lastGood;
                },
                search);
            EXPECT_EQ(calls, lastGood + 1) << "model " << model;
            EXPECT_FALSE(search.failed) << "model " << model << " after " << lastGood;
        }
}

TEST(SolveReliabilityEquation, ARootAtTheLowEndIsTaken) {
    // F(2) is so small that the halving is never entered.
    const Observed run(3, 4, [](double x) { return x <= 2 ? -1e-13 : x; });
    EXPECT_FALSE(run.search.failed);
    EXPECT_EQ(run.search.x, 2);
}

} // namespace
} // namespace metrisk::testing
