#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "numerics/IntegrationLimits.h"
#include "numerics/SubjectDensity.h"
#include "risk/FittedSubject.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <boost/math/quadrature/gauss_kronrod.hpp>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

SubjectBias fitted(const Entry& entry) {
    TestSession t;
    enter(t.record, entry);
    ValidateAndFit(t.session);
    EXPECT_FALSE(t.record.AbortFlag);
    return subjectBiasOf(t.record);
}

struct DensityRow {
    const char* name;
    Entry entry;
    double contentOfBounds; // how much of the distribution a plot at zoom 1 shows, at least
};

const DensityRow densityRows[] = {
    {"normal", {}, 0.9999},
    {"uniform", {.pctInTol = 100}, 0.999},
    {"lognormal above", {.upperOffset = 1.0, .pctInTol = 90}, 0.99},
    {"lognormal below", {.lowerOffset = 1.0, .pctInTol = 90}, 0.99},
    {"lognormal upper", withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90), 0.99},
    {"exponential upper", withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90), 0.98},
    {"exponential lower", withPhysicalLimit(Kind::SingleLower, 14, 2, 14, 90), 0.98},
};

TEST(SubjectDensity, IsADensityWhoseContentThePlotShows) {
    for (const DensityRow& row : densityRows) {
        const SubjectBias su = fitted(row.entry);
        const auto density = [&](double x) { return SubjectDensity(su, x - 1, 1, 1); };
        PlotBounds bounds;
        SetPlotBounds(su, 1, bounds);
        double content = 0;
        const int pieces = 200;
        for (int i = 0; i < pieces; ++i) {
            const double step = (bounds.upper - bounds.lower) / pieces;
            content += boost::math::quadrature::gauss_kronrod<double, 15>::integrate(
                density, bounds.lower + i * step, bounds.lower + (i + 1) * step, 0);
        }
        EXPECT_LE(content, 1.002) << row.name; // pieces that straddle an edge are rough
        EXPECT_GE(content, row.contentOfBounds) << row.name;

        PlotBounds zoomed;
        SetPlotBounds(su, 2, zoomed);
        EXPECT_NEAR(zoomed.upper - su.mode, 2 * (bounds.upper - su.mode), 1e-12) << row.name;
        EXPECT_NEAR(su.mode - zoomed.lower, 2 * (su.mode - bounds.lower), 1e-12) << row.name;
    }
}

TEST(SubjectDensity, EndsAtThePhysicalLimitAndAtTheLimitsOfAUniform) {
    const SubjectBias logNormal = fitted(withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90));
    EXPECT_EQ(SubjectDensity(logNormal, -0.1, 0, 1), 0);
    EXPECT_EQ(SubjectDensity(logNormal, 0, 0, 1), 0);
    EXPECT_GT(SubjectDensity(logNormal, 0.5, 0, 1), 0);
    const SubjectBias uniform = fitted({.pctInTol = 100});
    EXPECT_DOUBLE_EQ(SubjectDensity(uniform, uniform.upperLimit, 0, 1), 1);
    EXPECT_EQ(SubjectDensity(uniform, 10.5001, 0, 1), 0);
    SubjectBias exponential = fitted(withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90));
    EXPECT_EQ(SubjectDensity(exponential, 51 / exponential.expRate, 0, 1), 0) << "far out";
    SubjectBias broken = fitted({});
    broken.sigma = 0;
    EXPECT_THROW(SubjectDensity(broken, 10, 0, 1), RuntimeFault);
}

TEST(AcceptanceIntegrand, CountsTheEdgesOfAUniformAsInside) {
    const AcceptanceIntegrand f(fitted({.pctInTol = 100}), -0.5, 0.5, 0.06);
    EXPECT_GT(f.at(0.5), 0);
    EXPECT_GT(f.at(-0.5), 0);
    EXPECT_EQ(f.at(std::nextafter(0.5, 1)), 0);
}

TEST(AcceptanceIntegrand, GivesTheSameValuesAloneAndInBulk) {
    for (const DensityRow& row : densityRows) {
        const AcceptanceIntegrand f(fitted(row.entry), 0.1, 0.9, 0.07);
        std::vector<double> u, values(300);
        for (int i = 0; i < 300; ++i) u.push_back(-3 + 0.02 * i);
        f.evaluate(u.data(), values.data(), u.size());
        for (std::size_t i = 0; i < u.size(); ++i)
            EXPECT_EQ(values[i], f.at(u[i])) << row.name << " at " << u[i];
    }
}

TEST(IntegrationLimits, WithoutAScaleStayAsTheyWere) {
    SubjectBias su = fitted({});
    su.sigma = 0;
    const AcceptanceIntegrand f(su, -1, 1, 0.1);
    double x1 = 7, x2 = 8;
    EXPECT_FALSE(JointIntegrationLimits(f, 1e-14, x1, x2));
    EXPECT_FALSE(MarginalIntegrationLimits(f, 1e-14, x1, x2));
    su.distribution = Distribution::None;
    EXPECT_TRUE(JointIntegrationLimits(AcceptanceIntegrand(su, -1, 1, 0.1), 1e-14, x1, x2));
    EXPECT_EQ(x1, 7);
    EXPECT_EQ(x2, 8);
}

TEST(IntegrationLimits, OpenEndsReachWhereTheIntegrandHasFallen) {
    const Entry entries[] = {{.kind = Kind::SingleUpper}, {.kind = Kind::SingleLower, .pctInTol = 50.001}};
    for (const Entry& entry : entries) {
        const bool upper = entry.kind == Kind::SingleUpper;
        const SubjectBias su = fitted(entry);
        const AcceptanceIntegrand f(su, upper ? -7.9 : -0.1, upper ? 1.6 : 7.9, 0.06);
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        ASSERT_TRUE(JointIntegrationLimits(f, 1e-14, x1, x2));
        ASSERT_TRUE(MarginalIntegrationLimits(f, 1e-14, y1, y2));
        EXPECT_DOUBLE_EQ(upper ? x2 : -x1, (upper ? su.upperOffset : su.lowerOffset) / su.sigma);
        EXPECT_LE(f.at(upper ? x1 : x2), 1e-13 * f.at(0));
        EXPECT_EQ(y1, -y2);
    }
}

TEST(IntegrationLimits, AWalkThatCannotEndIsAFault) {
    SubjectBias su = fitted(withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90));
    su.expExponent = 1e-12; // never falls
    const AcceptanceIntegrand f(su, 0, 1e9, 1);
    double x1 = 0, x2 = 0;
    EXPECT_THROW(MarginalIntegrationLimits(f, 1e-14, x1, x2), RuntimeFault);
}

TEST(IntegrationLimits, SpanFollowsItsTableInOrder) {
    struct Row {
        double risk;
        const char* units;
        float zone;
    };
    for (const Row& row :
         {Row{0.00001, "%", 4.5f}, Row{0.0003, "%", 4.48f}, Row{3, "ppm", 4.48f}, Row{0.00005, "%", 4.48f},
          Row{0.0006, "%", 3.9f}, Row{0.005, "%", 3.5f}, Row{1, "%", 1.0f}, Row{1.5, "%", -1.0f}}) {
        float zone = -1;
        IntegrationSpanFromRisk(zone, row.risk, row.units);
        EXPECT_EQ(zone, row.zone) << row.risk << row.units;
    }
}

} // namespace
