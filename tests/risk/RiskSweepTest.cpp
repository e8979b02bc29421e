// Sweeps and maps against single computes of the same analysis, and how they end.
#include "risk/sweeps/RiskSweep.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/Risks.h"
#include "numerics/mathlib/Normal.h"
#include "risk/sweeps/RiskMap.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

void fit(TestSession& t) {
    FitMeasuringParameter(t.session);
    FitSubjectParameter(t.session);
    ASSERT_FALSE(t.record.AbortFlag);
}

const Entry tests[] = {
    twoSided(0.5, 0.5, 90),
    twoSided(1, 0.5, 90),
    single(Kind::SingleUpper, 90),
    single(Kind::SingleLower, 90),
    withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90),
    withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 90),
};

struct SweptRow {
    Swept swept;
    SweepOptions options;
    SweepRange range;
    std::function<void(Analysis&, double)> enter; // the value, as a user would
};

TEST(RiskSweep, GivesToTheLastBitWhatASingleComputeGives) {
    const SweptRow rows[] = {
        {Swept::Multiplier,
         {},
         {0.7, 1.1, 5},
         [](Analysis& r, double x) { r.GB_LowerMult = r.GB_UpperMult = x; }},
        {Swept::KFactor,
         {},
         {-0.5, 1, 5},
         [](Analysis& r, double k) {
             r.GB_LowerMult = r.OptSingleUpper ? 1 : multiplierFromK(k, r.SU_LowerOffset, r.MTE_Sigma);
             r.GB_UpperMult = r.OptSingleLower ? 1 : multiplierFromK(k, r.SU_UpperOffset, r.MTE_Sigma);
         }},
        {Swept::SubjectPct,
         {.includeGuardbands = true},
         {60, 99.5, 5},
         [](Analysis& r, double x) { r.SU_PctInTol = x; }},
        {Swept::MeasuringPct,
         {.includeProcess = true},
         {60, 99.5, 5},
         [](Analysis& r, double x) { r.MTE_PctInTol = x; }},
    };
    for (const Entry& entry : tests) {
        for (const SweptRow& row : rows) {
            TestSession t;
            Analysis& r = t.record;
            metrisk::testing::enter(r, entry);
            r.SU_ToleranceUnits = "units whose name is long enough to be kept elsewhere";
            r.MTE_DegFreedom = 30;
            r.ProcessUncertainty = 0.01;
            r.IncludeUncertainty = row.options.includeProcess;
            if (row.options.includeGuardbands) r.GB_LowerMult = r.GB_UpperMult = 0.9;
            fit(t);
            const RiskSweep sweep(r, {}, row.swept, row.options);
            const auto points = sweep.over(row.range);
            for (std::size_t i = 0; i < row.range.points; ++i) {
                const double x = row.range.at(i);
                row.enter(r, x);
                fit(t);
                Risks risks{};
                ASSERT_EQ(ComputeRisks(t.session, acceptanceRange(r, true), risks), RiskOutcome::Computed);
                ASSERT_TRUE(points[i]) << x;
                EXPECT_EQ(points[i]->risks.falseAccept, std::max(0.0, risks.falseAccept)) << x;
                EXPECT_EQ(points[i]->risks.falseReject, std::max(0.0, risks.falseReject)) << x;
                EXPECT_EQ(points[i]->subjectSigma, r.SU_Sigma);
            }
        }
    }
}

// At a high ratio the measurement sees the true value: what is accepted is what lies within the test limits.
TEST(RiskMap, IsExactWhereThePublishedFiguresAreLost) {
    TestSession t;
    enter(t.record, twoSided(1, 1, 90));
    t.record.MTE_PctInTol = 95;
    fit(t);
    const auto within = [&](double limit) { return 2 * Normal(limit / t.record.SU_Sigma) - 1; };
    const MapRequest request{
        {MapQuantity::Ratio, 1, 100}, {MapQuantity::Multiplier, 0.5, 1.5}, 100, 101, {{4, 90, 95, 1}}};
    const RiskGrid grid = RiskMap(t.record, {}).grid(request);
    for (std::size_t i = 0; i < grid.falseAccept.size(); ++i) {
        const double ratio = request.x.at(i % grid.columns, grid.columns);
        const double multiplier = request.y.at(i / grid.columns, grid.rows);
        SCOPED_TRACE(std::to_string(ratio) + ":1, multiplier " + std::to_string(multiplier));
        ASSERT_GE(grid.falseAccept[i], 0);
        ASSERT_GE(grid.falseReject[i], 0);
        if (ratio < 90 || std::fabs(multiplier - 1) < 0.1) continue;
        const double accept = multiplier < 1 ? 0 : 1 - within(1) / within(multiplier);
        const double reject = multiplier < 1 ? within(1) - within(multiplier) : 0;
        EXPECT_NEAR(grid.falseAccept[i], accept, 1e-3 * accept + 1e-12);
        EXPECT_NEAR(grid.falseReject[i], reject, 1e-3 * reject + 1e-12);
    }
}

TEST(RiskSweep, OfTheReferenceCaseIsItsRisks) {
    TestSession t;
    const RiskSweep sweep(t.record, {}, Swept::BaselineRatio,
                          {.baselineSubjectPct = 72, .baselineMeasuringPct = 85});
    for (const double ratio : {1.0, 4.0, 20.0}) {
        const auto single = ComputeBaselineRisks(t.session, {ratio, 0.72, 0.85});
        EXPECT_EQ(sweep.at(ratio)->risks.falseAccept, single->falseAccept);
        EXPECT_EQ(sweep.at(ratio)->risks.falseReject, single->falseReject);
        EXPECT_NEAR(sweep.at(ratio, SweepFigure::Exact)->risks.falseAccept, single->falseAccept, 2e-5);
    }
    EXPECT_FALSE(RiskSweep(t.record, {}, Swept::BaselineRatio, {.baselineSubjectPct = 100}).at(4));
}

TEST(RiskSweep, EndsBeforeTheFirstPointWithoutRisks) {
    struct Row {
        const char* name;
        Entry entry;
        Swept swept;
        SweepRange range;
        std::size_t skipped, reached;
    };
    const Row rows[] = {
        {"whole", twoSided(0.5, 0.5, 90), Swept::Multiplier, {0.5, 1, 31}, 0, 31},
        {"test limits meet at the fifth point",
         twoSided(0.5, 0.5, 90),
         Swept::KFactor,
         {0, 9.799819922700, 6},
         0,
         4},
        {"no single-sided sigma at half",
         single(Kind::SingleUpper, 90),
         Swept::SubjectPct,
         {48, 52, 5},
         3,
         2},
        {"high accuracy: rounding is no end",
         twoSided(0.5, 0.5, 90, 0.05),
         Swept::Multiplier,
         {0.5, 1, 31},
         0,
         31},
        {"nothing to measure with", twoSided(0.5, 0.5, 90), Swept::MeasuringPct, {0, 50, 3}, 0, 0},
    };
    for (const Row& row : rows) {
        TestSession t;
        enter(t.record, row.entry);
        fit(t);
        const RiskSweep sweep(t.record, {}, row.swept, {});
        SweepCourse course(sweep);
        for (std::size_t i = 0; i < row.range.points; ++i) {
            const double x = row.range.at(i);
            if (!course.add(x, sweep.at(x))) break;
        }
        EXPECT_EQ(course.skipped(), row.skipped) << row.name;
        EXPECT_EQ(course.points().size(), row.reached) << row.name;
    }
}

} // namespace
} // namespace metrisk::testing
