#include "desk/compute/Risks.h"
#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "numerics/AcceptanceIntegral.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <algorithm>
#include <boost/math/distributions/exponential.hpp>
#include <boost/math/distributions/lognormal.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/quadrature/gauss_kronrod.hpp>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace metrisk;
using namespace metrisk::testing;
namespace bm = boost::math;

double phi(double z) {
    return bm::cdf(bm::normal(), z);
}

/// The test as an experiment in nominal units: a density of the true value and a region of acceptance
/// of the measured one, integrated adaptively and in pieces. Shares nothing with the program.
struct Experiment {
    std::function<double(double)> density;
    double from, to; // where the density lives
    double tolFrom, tolTo;
    double acceptFrom, acceptTo;
    double sigma;

    double acceptance(double x) const {
        const double upper = std::isinf(acceptTo) ? 1 : phi((acceptTo - x) / sigma);
        const double lower = std::isinf(acceptFrom) ? 0 : phi((acceptFrom - x) / sigma);
        return upper - lower;
    }
    double integrate(double a, double b, bool accepted) const {
        a = std::max(a, from);
        b = std::min(b, to);
        std::vector<double> cuts = {a, b};
        for (double edge : {acceptFrom, acceptTo, tolFrom, tolTo})
            for (double k : {-8.0, -3.0, 0.0, 3.0, 8.0})
                if (edge + k * sigma > a && edge + k * sigma < b) cuts.push_back(edge + k * sigma);
        for (int i = 1; i < 40; ++i) cuts.push_back(a + (b - a) * i / 40);
        std::sort(cuts.begin(), cuts.end());
        double sum = 0;
        for (std::size_t i = 1; i < cuts.size(); ++i)
            sum += bm::quadrature::gauss_kronrod<double, 31>::integrate(
                [&](double x) { return density(x) * (accepted ? acceptance(x) : 1); }, cuts[i - 1], cuts[i],
                6, 1e-14);
        return sum;
    }
    double joint() const { return integrate(tolFrom, tolTo, true); }
    double accepted() const { return integrate(from, to, true); }
    double conforming() const { return integrate(tolFrom, tolTo, false); }
};

constexpr double inf = std::numeric_limits<double>::infinity();

/// The experiment of a fitted record with the given acceptance limits.
Experiment experimentOf(const Analysis& r, double lower, double upper) {
    Experiment e;
    e.sigma = r.MTE_Sigma;
    const double m = r.SU_Mode, p = r.PhysicalLimit;
    if (r.SU_Distribution == std::string("Normal")) {
        const bm::normal d(m, r.SU_Sigma);
        e.density = [d](double x) { return bm::pdf(d, x); };
        e.from = m - 10 * r.SU_Sigma;
        e.to = m + 10 * r.SU_Sigma;
    } else if (r.SU_Distribution == std::string("LogNormal")) {
        const double s = r.SU_LogSigma, side = m > p ? 1 : -1;
        const bm::lognormal d(std::log(std::fabs(m - p)) + s * s, s); // its mode is |m - p|
        e.density = [d, p, side](double x) { return (x - p) * side > 0 ? bm::pdf(d, (x - p) * side) : 0; };
        const double reach = bm::quantile(bm::complement(d, 1e-15));
        e.from = side > 0 ? p : p - reach;
        e.to = side > 0 ? p + reach : p;
    } else if (r.SU_Distribution == std::string("Exponential")) {
        const double side = r.SU_ExpRate > 0 ? 1 : -1;
        const bm::exponential d(std::fabs(r.SU_ExpRate));
        e.density = [d, m, side](double x) { return (x - m) * side >= 0 ? bm::pdf(d, (x - m) * side) : 0; };
        const double reach = bm::quantile(bm::complement(d, 1e-15));
        e.from = side > 0 ? m : m - reach;
        e.to = side > 0 ? m + reach : m;
    } else {
        const double width = r.SU_UpperLimit - r.SU_LowerLimit;
        e.density = [width](double) { return 1 / width; };
        e.from = r.SU_LowerLimit;
        e.to = r.SU_UpperLimit;
    }
    e.tolFrom = r.OptSingleUpper ? e.from : r.SU_LowerLimit;
    e.tolTo = r.OptSingleLower ? e.to : r.SU_UpperLimit;
    e.acceptFrom = r.OptSingleUpper ? -inf : lower;
    e.acceptTo = r.OptSingleLower ? inf : upper;
    // A reading beyond the physical limit is no reading where that side is the open one.
    const bool bounded = r.SU_CaseCode == 2 || r.SU_CaseCode == 8;
    if (bounded && r.OptSingleUpper) e.acceptFrom = p;
    if (bounded && r.OptSingleLower) e.acceptTo = p;
    return e;
}

struct RiskRow {
    const char* name;
    Entry entry;
    double guardUpper = 1;
    double guardLower = 1;
    /// A single panel of 100 points resolves a measuring sigma of a fiftieth of the range and more.
    double tolerance = 2e-8;
};

const RiskRow riskRows[] = {
    {"normal 4:1", twoSided(0.5, 0.5, 95)},
    {"normal 1:1", twoSided(0.5, 0.5, 72, 0.5, 85)},
    {"normal 10:1", twoSided(0.5, 0.5, 99, 0.05)},
    {"normal guarded", twoSided(0.5, 0.5, 90), 0.8, 0.9},
    {"normal relaxed", twoSided(0.5, 0.5, 90), 1.2, 1.1},
    {"normal upper", single(Kind::SingleUpper, 90)},
    {"normal upper, barely above half", single(Kind::SingleUpper, 51), 1, 1, 2e-5},
    {"normal lower guarded", single(Kind::SingleLower, 85), 1, 0.85},
    {"uniform", twoSided(0.5, 0.5, 100)},
    {"uniform guarded", twoSided(0.5, 0.5, 100), 0.9, 0.9},
    {"lognormal wider above", twoSided(1.0, 0.5, 90)},
    {"lognormal wider below", twoSided(0.4, 1.5, 85)},
    {"lognormal wider below, guarded", twoSided(0.4, 1.5, 85), 0.9, 0.95},
    {"lognormal upper, limit below", withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90)},
    {"lognormal upper, limit below, under half", withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 40)},
    {"lognormal upper, limit below, half", withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 50)},
    {"lognormal lower, limit above", withPhysicalLimit(Kind::SingleLower, 7, 2, 14, 95)},
    {"lognormal lower, limit above, under half", withPhysicalLimit(Kind::SingleLower, 7, 2, 14, 45)},
    {"lognormal lower, limit below", withPhysicalLimit(Kind::SingleLower, 7, 2, 0, 90)},
    {"lognormal upper, limit above", withPhysicalLimit(Kind::SingleUpper, 7, 2, 14, 97)},
    {"lognormal upper, limit above, guarded", withPhysicalLimit(Kind::SingleUpper, 7, 2, 14, 97), 0.9},
    {"exponential upper", withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90)},
    {"exponential upper, under half", withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 30)},
    {"exponential lower", withPhysicalLimit(Kind::SingleLower, 14, 2, 14, 90)},
    {"exponential lower, guarded", withPhysicalLimit(Kind::SingleLower, 14, 2, 14, 90), 1, 0.7},
};

TEST(Risks, AgreeWithAnIndependentIntegration) {
    for (const RiskRow& row : riskRows) {
        for (int option : {0, 1}) {
            TestSession t;
            Analysis& r = t.record;
            enter(r, row.entry);
            r.FalseAcceptOption = option;
            r.GB_UpperMult = row.guardUpper;
            r.GB_LowerMult = row.guardLower;
            FitMeasuringParameter(t.session);
            FitSubjectParameter(t.session);
            ASSERT_FALSE(r.AbortFlag) << row.name;
            const AcceptanceRange range = acceptanceRange(t.record, true);
            Risks risks{-1, -1};
            ASSERT_EQ(ComputeRisks(t.session, range, risks), RiskOutcome::Computed) << row.name;
            const Experiment e = experimentOf(r, r.SU_Mode + range.lower, r.SU_Mode + range.upper);
            const double joint = e.joint();
            const bool uniform = r.SU_CaseCode == 9;
            const double accepted = uniform ? joint : e.accepted();
            const double expectedFa = uniform ? 0 : option == 1 ? accepted - joint : 1 - joint / accepted;
            EXPECT_NEAR(risks.falseAccept, expectedFa, row.tolerance) << row.name << ", option " << option;
            EXPECT_NEAR(risks.falseReject, e.conforming() - joint, row.tolerance)
                << row.name << ", option " << option;
        }
    }
}

TEST(Risks, EndWithoutAResultAsTheirCauseDemands) {
    TestSession t;
    Analysis& r = t.record;
    enter(r, twoSided(0.5, 0.5, 90));
    FitMeasuringParameter(t.session);
    Risks risks{7, 8};
    EXPECT_EQ(ComputeRisks(t.session, {-0.5, 0.5}, risks), RiskOutcome::NoSpread) << "no sigma";
    EXPECT_FALSE(r.AbortFlag);

    FitSubjectParameter(t.session);
    EXPECT_EQ(ComputeRisks(t.session, {0.5, -0.5}, risks), RiskOutcome::Negative) << "limits crossed";
    EXPECT_EQ(ComputeRisks(t.session, {990, 1990}, risks), RiskOutcome::Failed) << "nothing accepted";
    EXPECT_TRUE(r.AbortFlag);
    EXPECT_TRUE(r.SearchAbort);

    const double sigma = r.MTE_Sigma;
    r.MTE_Sigma = 0;
    EXPECT_EQ(ComputeRisks(t.session, {-0.5, 0.5}, risks), RiskOutcome::NoSpread) << "no measuring sigma";
    r.MTE_Sigma = sigma;

    enter(r, withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90));
    FitSubjectParameter(t.session);
    r.MTE_Sigma = 0;
    t.ui.expectBox("Function Integration Error",
                   "A fatal math error occurred during integration.  Please try a different set of inputs.");
    EXPECT_EQ(ComputeRisks(t.session, {0, 2}, risks), RiskOutcome::FailedAndReported) << "division by zero";
    EXPECT_EQ(risks.falseAccept, 7);
    EXPECT_EQ(risks.falseReject, 8);
}

TEST(Risks, CaseSevenFollowsItsFormulas) {
    // Reached by no valid entry; the acceptance bound read there is the far one, so nearly nothing
    // is accepted by the integral while A and J shrink alike.
    SubjectBias su;
    su.distribution = Distribution::Exponential;
    su.caseCode = 7;
    su.twoSided = false;
    su.singleUpper = true;
    su.physLimitBelow = false;
    su.upperOffset = 2;
    su.expExponent = -std::log(0.8);
    EXPECT_NEAR(inTolerance(su), 0.8, 1e-15);
    const double lo = -1, hi = 7.914196455574245, mteSigma = 2.0, sm = mteSigma / su.upperOffset;
    const auto value = [&](double u) {
        return su.expExponent * std::exp(-su.expExponent * u) * (1 - phi((hi - u) / sm));
    };
    const double all = IntegrateAcceptance(Integral::Marginal, su, lo, hi, mteSigma).value();
    const double expected =
        bm::quadrature::gauss_kronrod<double, 61>::integrate(value, 0.0, 200.0, 15, 1e-13);
    EXPECT_NEAR(all, expected, 1e-6);
    const double inside = IntegrateAcceptance(Integral::Joint, su, lo, hi, mteSigma).value();
    const double tail = bm::quadrature::gauss_kronrod<double, 61>::integrate(value, 1.0, 200.0, 15, 1e-13);
    EXPECT_NEAR(inside, tail, 1e-6);
}

} // namespace
