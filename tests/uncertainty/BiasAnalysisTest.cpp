// The bias analysis against a numerical integration of the posterior.
#include "uncertainty/BiasAnalysis.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "desk/compute/ValidateAndFit.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/Samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace metrisk::testing {
namespace {

struct Posterior {
    double mean, inside;
};

/// Of e with the prior N(0, a^2), when d was seen with N(d; -e, b^2); Simpson's rule over everything and over
/// the tolerance.
Posterior posterior(double d, double limit, double a, double b) {
    const auto density = [=](double e) {
        return std::exp(-e * e / (2 * a * a) - (d + e) * (d + e) / (2 * b * b));
    };
    const auto integral = [&](double from, double to, auto f) {
        constexpr int steps = 20000;
        const double h = (to - from) / steps;
        double sum = f(from) + f(to);
        for (int i = 1; i < steps; ++i) sum += (i % 2 ? 4 : 2) * f(from + i * h);
        return sum * h / 3;
    };
    const double width = 12 * std::min(a, b) + std::fabs(d);
    const double all = integral(-width, width, density);
    return {integral(-width, width, [&](double e) { return e * density(e); }) / all,
            integral(-limit, limit, density) / all};
}

TEST(BiasPass, IsThePosteriorOfPriorAndReading) {
    const struct {
        double d, limit, a, b;
    } cases[] = {{0, 1, 0.5, 0.7}, {0.3, 1, 0.5, 0.7},  {-0.8, 1, 0.5, 0.2}, {2, 1, 0.5, 0.1},
                 {1, 0.4, 2, 1},   {0.5, 2, 0.05, 0.6}, {-3, 1, 1, 1}};
    for (const auto& c : cases) {
        const BiasEstimate is = BiasPass(c.d, c.limit, c.a, c.b);
        const Posterior want = posterior(c.d, c.limit, c.a, c.b);
        EXPECT_NEAR(is.bias, want.mean, 1e-10) << c.d << " " << c.a << " " << c.b;
        EXPECT_NEAR(is.inTolerance, want.inside, 1e-10) << c.d << " " << c.a << " " << c.b;
    }
    EXPECT_EQ(BiasPass(1e15, 1, 0.5, 0.5).inTolerance, 0);
    EXPECT_NEAR(BiasPass(40, 1, 1, 1).inTolerance, 2.459e-159, 1e-162) << "a tail, not a difference near 0";
}

/// Deviations of both parameters in mV on a mode in V.
struct Bias : TestSession {
    Bias() {
        Entry e = twoSided(0.05, 0.05, 95, 0.02, 90);
        enter(record, e);
        record.MTE_TolUnitsFactor = 1000;
        ValidateAndFit(session);
    }
    void store(int slot, std::initializer_list<double> values) {
        StoreSamples(record, slot, std::span(values.begin(), values.size()), 1, session.regional);
    }
};

TEST(BiasAnalysis, EstimatesLieBetweenTheReadings) {
    Bias b;
    Analysis& r = b.record;
    EnterError(r, 3, ErrorEntry::Uncertainty, "4", b.session.regional); // mV, both parameters' error
    b.store(1, {12, 14, 10, 16});
    r.Stat_Flag1[2] = 1; // measured values
    r.Stat_Flag2[2] = -1;
    b.store(2, {9.97, 9.99, 9.98});
    const SampleStatistics samples = r;
    RunBiasAnalysis(b.session);
    ASSERT_TRUE(r.SMPC_Computed);
    EXPECT_TRUE(BiasResultsStand(b.record, b.session.regional));
    EXPECT_EQ(r.Stat_SampleStdDev, samples.Stat_SampleStdDev) << "only the bias group is written";

    const double m1 = 10.013, m2 = 9.98, d = m1 - m2;
    const double a1 = r.MTE_StdUncertainty, a2 = r.SU_Sigma;
    // Row 3, and row 7 that the second sample has filled: the errors of both.
    const double e = std::hypot(0.004, 0.01 / std::sqrt(3.0));
    const double u1 = std::sqrt(20.0 / 3 / 4 * 1e-6 + a1 * a1 + e * e);
    const double u2 = std::sqrt(1e-4 / 3 + a2 * a2 + e * e);
    const Posterior measuring = posterior(d, 0.02, a1, u2), subject = posterior(-d, 0.05, a2, u1);
    EXPECT_NEAR(r.SMPC_Sigma[1], u1, 1e-14);
    EXPECT_NEAR(r.SMPC_Sigma[2], u2, 1e-14);
    EXPECT_NEAR(r.SMPC_Bias[1], measuring.mean, 1e-11);
    EXPECT_NEAR(r.SMPC_InTolProb[1], measuring.inside, 1e-9);
    EXPECT_NEAR(r.SMPC_Bias[2], subject.mean, 1e-11);
    EXPECT_NEAR(r.SMPC_InTolProb[2], subject.inside, 1e-9);
    const double truth = r.SU_Mode + r.SMPC_TrueOffset;
    EXPECT_GT(truth, m2);
    EXPECT_LT(truth, m1);
    const double uncertainty = a1 * a1 / (a1 * a1 + u2 * u2) * std::hypot(u1, u2);
    EXPECT_NEAR(r.SMPC_MTEUncertainty, uncertainty, 1e-14);
    EXPECT_NEAR(r.SMPC_Limits[1], 1.959963984540054 * uncertainty, 1e-14);

    r.MTE_StdUncertainty *= 1.01; // an entry that matters has changed
    EXPECT_FALSE(BiasResultsStand(b.record, b.session.regional));
}

TEST(BiasAnalysis, OneSampleStandsForBoth) {
    Bias b;
    Analysis& r = b.record;
    b.store(2, {5, 7, 6});
    RunBiasAnalysis(b.session);
    ASSERT_TRUE(r.SMPC_Computed);
    // The measuring parameter is taken to show the mode, as often and with the same spread.
    const double others = 0.001; // row 7
    EXPECT_NEAR(r.SMPC_Sigma[1], std::hypot(0.001 / std::sqrt(3.0), r.MTE_StdUncertainty, others), 1e-15);
    EXPECT_LT(r.SMPC_Bias[2], 0);
    EXPECT_NEAR(r.SMPC_Bias[2],
                -0.006 * std::pow(r.SU_Sigma, 2) / (std::pow(r.SU_Sigma, 2) + std::pow(r.SMPC_Sigma[1], 2)),
                1e-14);
    b.store(1, {6, 6, 6});
    RunBiasAnalysis(b.session);
    EXPECT_NEAR(r.SMPC_Bias[1], 0, 1e-15) << "equal means";

    r.SU_PctInTol = 0;
    b.ui.expectBox("Metrisk", "Subject parameter and/or measuring parameter % in-tolerance missing.");
    const double bias = r.SMPC_Bias[2];
    r.SU_Sigma = 1;
    RunBiasAnalysis(b.session);
    EXPECT_FALSE(r.SMPC_Computed);
    EXPECT_EQ(r.SMPC_Bias[2], bias) << "the earlier result stays";
}

TEST(BiasAnalysis, WithoutSamplesOrSpreadThereIsNothing) {
    Bias b;
    Analysis& r = b.record;
    r.SMPC_TrueOffset = r.SMPC_Bias[1] = 3;
    RunBiasAnalysis(b.session);
    EXPECT_FALSE(r.SMPC_Computed);
    EXPECT_EQ(r.SMPC_TrueOffset, 0);
    EXPECT_EQ(r.SMPC_Bias[1], 0);

    b.store(1, {1e15, 1e15});
    b.store(2, {-1e15, -1e15});
    RunBiasAnalysis(b.session);
    ASSERT_TRUE(r.SMPC_Computed);
    EXPECT_EQ(r.SMPC_InTolProb[2], 0) << "means this far apart leave no hope";
    EXPECT_TRUE(std::isfinite(r.SMPC_TrueOffset));
    SampleStatistics samples;
    BiasAnalysis group;
    group.SMPC_PctInTol.fill(95);
    group.SMPC_Tolerance.fill(1);
    EXPECT_TRUE(ComputeBias(samples, group, {}));
    EXPECT_EQ(samples.Stat_SampleSize[1], 1) << "no size counts as one";
}

} // namespace
} // namespace metrisk::testing
