#include "desk/compute/FitSubject.h"
#include "base/NumberText.h"
#include "desk/compute/Risks.h"
#include "desk/files/AnalysisFile.h"
#include "numerics/Distribution.h"
#include "risk/FittedSubject.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

double phi(double z) {
    return boost::math::cdf(boost::math::normal(), z);
}

/// Probability below x of the LogNormal that the record describes, mirrored when it runs downwards.
double logNormalBelow(const Analysis& r, double x) {
    const double t = (x - r.PhysicalLimit) / (r.SU_Mode - r.PhysicalLimit);
    return phi(std::log(t / std::exp(r.SU_LogSigma * r.SU_LogSigma)) / r.SU_LogSigma);
}

struct FitRow {
    const char* name;
    Entry entry;
    const char* distribution;
    int caseCode;
};

const FitRow fitRows[] = {
    {"two-sided", twoSided(0.5, 0.5, 95), "Normal", 6},
    {"two-sided, equal to rounding", twoSided(0.5, 0.5 + 5e-14, 95), "Normal", 6},
    {"two-sided, all in tolerance", twoSided(0.5, 0.5, 100), "Uniform", 9},
    {"two-sided, wider above", twoSided(1.0, 0.5, 90), "LogNormal", 3},
    {"two-sided, wider below", twoSided(0.5, 1.5, 80), "LogNormal", 3},
    {"two-sided, nearly equal", twoSided(0.5, 0.51, 95), "LogNormal", 3},
    {"two-sided, far from equal",
     {.mode = 0, .upperOffset = 8, .lowerOffset = 1, .pctInTol = 70},
     "LogNormal",
     3},
    {"single upper", single(Kind::SingleUpper, 95), "Normal", 5},
    {"single lower", single(Kind::SingleLower, 50.0001), "Normal", 4},
    {"upper, limit at mode", withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90), "Exponential", 8},
    {"lower, limit at mode", withPhysicalLimit(Kind::SingleLower, 14, 2, 14, 40), "Exponential", 8},
    {"upper, limit below", withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90), "LogNormal", 2},
    {"lower, limit above", withPhysicalLimit(Kind::SingleLower, 7, 2, 14, 45), "LogNormal", 2},
    {"lower, limit below", withPhysicalLimit(Kind::SingleLower, 7, 2, 0, 90), "LogNormal", 1},
    {"upper, limit above", withPhysicalLimit(Kind::SingleUpper, 7, 2, 14, 97), "LogNormal", 1},
};

/// The content of the tolerance under the fitted distribution, independent of the fit's own algebra.
double contentOf(const Analysis& r, int caseCode) {
    switch (caseCode) {
    case 1:
    case 2: {
        const double limit = r.OptSingleUpper ? r.SU_UpperLimit : r.SU_LowerLimit;
        const double below = logNormalBelow(r, limit); // in the direction away from the physical limit
        return caseCode == 2 ? below : 1 - below;
    }
    case 3: return std::fabs(logNormalBelow(r, r.SU_UpperLimit) - logNormalBelow(r, r.SU_LowerLimit));
    case 4:
    case 5: return phi((caseCode == 5 ? r.SU_UpperOffset : r.SU_LowerOffset) / r.SU_Sigma);
    case 6: return 2 * phi(r.SU_UpperOffset / r.SU_Sigma) - 1;
    case 8:
        return 1 -
               std::exp(-r.SU_ExpRate * ((r.OptSingleUpper ? r.SU_UpperLimit : r.SU_LowerLimit) - r.SU_Mode));
    default: return 1;
    }
}

TEST(FitSubject, ChoosesTheDistributionAndHoldsThePctInTol) {
    for (const FitRow& row : fitRows) {
        TestSession t;
        enter(t.record, row.entry);
        FitSubjectParameter(t.session);
        const Analysis& r = t.record;
        ASSERT_FALSE(r.AbortFlag) << row.name;
        EXPECT_EQ(r.SU_Distribution, row.distribution) << row.name;
        EXPECT_EQ(r.SU_CaseCode, row.caseCode) << row.name;
        const double p = row.entry.pctInTol / 100;
        EXPECT_NEAR(contentOf(r, row.caseCode), p, 1e-13)
            << row.name << " physical limit " << r.PhysicalLimit;
        EXPECT_NEAR(inTolerance(subjectBiasOf(r)), p, 1e-13) << row.name;
        EXPECT_TRUE(t.ui.statusTexts.empty() || t.ui.statusTexts.back().empty()) << row.name;
    }
}

TEST(FitSubject, TwoSidedLogNormalSplitsTheTailsEvenly) {
    for (const FitRow& row : fitRows) {
        if (row.caseCode != 3) continue;
        TestSession t;
        enter(t.record, row.entry);
        FitSubjectParameter(t.session);
        const Analysis& r = t.record;
        const double near = r.PhysLimitBelow ? r.SU_LowerLimit : r.SU_UpperLimit;
        EXPECT_NEAR(logNormalBelow(r, near), (1 - row.entry.pctInTol / 100) / 2, 1e-13) << row.name;
        EXPECT_EQ(r.PhysLimitBelow, row.entry.upperOffset > row.entry.lowerOffset) << row.name;
        if (r.PhysLimitBelow) {
            EXPECT_LT(r.PhysicalLimit, r.SU_LowerLimit) << row.name;
        } else {
            EXPECT_GT(r.PhysicalLimit, r.SU_UpperLimit) << row.name;
        }
    }
}

TEST(FitSubject, DoesNotDependOnTheUnitOfMeasurement) {
    for (double unit : {1e-9, 1e-3, 1e3, 1e9}) {
        TestSession base, scaled;
        enter(base.record, twoSided(1.0, 0.4, 88));
        enter(scaled.record,
              {.mode = 10 * unit, .upperOffset = 1.0 * unit, .lowerOffset = 0.4 * unit, .pctInTol = 88});
        FitSubjectParameter(base.session);
        FitSubjectParameter(scaled.session);
        EXPECT_NEAR(scaled.record.SU_Sigma / unit / base.record.SU_Sigma, 1, 1e-11) << unit;
        EXPECT_NEAR(scaled.record.PhysicalLimit / unit / base.record.PhysicalLimit, 1, 1e-11) << unit;
        EXPECT_NEAR(scaled.record.SU_LogSigma, base.record.SU_LogSigma, 1e-12) << unit;
    }
}

TEST(FitSubject, SymmetricTolerancesStaySymmetricWhateverTheirSizeAndThroughAFile) {
    std::mt19937 random(20250101);
    std::uniform_real_distribution<double> unit;
    const auto figure = [&](double size, int digits) { // typed with so many digits
        const double grain = std::pow(10, std::floor(std::log10(size)) + 1 - digits);
        return std::round(size / grain) * grain;
    };
    for (int i = 0; i < 480; ++i) {
        const double mode = figure(std::pow(10, -3 + 8 * unit(random)), 6);
        const double offset = figure(mode * std::pow(10, -5 + 4 * unit(random)), 3);
        TestSession t;
        enter(t.record, {.mode = mode,
                         .upperOffset = offset,
                         .lowerOffset = offset,
                         .pctInTol = i % 3 == 0 ? 100.0 : 90.0});
        if (i % 2) { // entered as limits
            t.record.SU_UpperOffset = t.record.SU_UpperLimit - mode;
            t.record.SU_LowerOffset = mode - t.record.SU_LowerLimit;
        }
        const char* expected = i % 3 == 0 ? "Uniform" : "Normal";
        FitSubjectParameter(t.session);
        EXPECT_EQ(t.record.SU_Distribution, expected) << mode << " +/- " << offset;
        TestSession again;
        ReadAnalysisText(again.session, AnalysisText(t.record), "a.mrk");
        FitSubjectParameter(again.session);
        EXPECT_EQ(again.record.SU_Distribution, expected) << mode << " +/- " << offset << ", reloaded";
        EXPECT_NEAR(again.record.SU_Sigma / t.record.SU_Sigma, 1, 1e-10) << mode << " +/- " << offset;
    }
}

TEST(FitSubject, OffsetsAreUnequalByTheirSize) {
    struct Row {
        double mode, upper, lower;
        bool symmetric;
    };
    for (const Row& row :
         {Row{1020.3, 30.1, 30.1, true}, Row{0, 1e-14, 2e-14, false}, Row{0, 1e-14, 1e-14, true},
          Row{0, 1, 1 + 0.9e-7, true}, Row{0, 1, 1 + 1.1e-7, false}, Row{1e9, 1, 1 + 1e-6, true},
          Row{1e9, 1, 1 + 3e-6, false}, Row{-1020.3, 30.1, 30.1, true}}) {
        TestSession t;
        enter(t.record, {.mode = row.mode, .upperOffset = row.upper, .lowerOffset = row.lower});
        FitSubjectParameter(t.session);
        EXPECT_EQ(t.record.SU_Distribution, row.symmetric ? "Normal" : "LogNormal")
            << row.mode << ": " << row.lower;
        const bool near = row.upper == 1 && row.mode == 0;
        const double normal = row.upper / boost::math::quantile(boost::math::normal(), 0.975);
        EXPECT_TRUE(!near || std::fabs(t.record.SU_Sigma - normal) < 1e-6) << "the two models meet";
    }
}

TEST(FitSubject, ASpreadOfNothingIsAFailedFit) {
    TestSession t;
    enter(t.record, withPhysicalLimit(Kind::SingleUpper, 5, 2, -1e18, 90));
    t.ui.expectBox("Compute Failed", "Unable to compute risks.  Limits may be unrealistic.");
    FitSubjectParameter(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_EQ(t.record.SU_Distribution, "");
}

TEST(FitSubject, GivesTheSpreadOfEachDistribution) {
    TestSession t;
    const double& sigma = t.record.SU_Sigma;
    enter(t.record, twoSided(0.5, 0.5, 100));
    FitSubjectParameter(t.session);
    EXPECT_NEAR(sigma, 1.0 / (2 * std::sqrt(3.0)), 1e-15);

    enter(t.record, withPhysicalLimit(Kind::SingleUpper, 0, 4, 0, 90));
    FitSubjectParameter(t.session);
    EXPECT_NEAR(sigma, 2 / std::log(10.0), 1e-14);

    enter(t.record, withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90));
    FitSubjectParameter(t.session);
    const double s = t.record.SU_LogSigma, w = std::exp(s * s);
    EXPECT_NEAR(sigma, 3 * std::sqrt(w * w * w * (w - 1)), 1e-13); // the distribution's own deviation
}

TEST(FitSubject, FitsAwayFromTheLimitOnTheWrongSide) {
    // Code 7: the limit lies beyond a physical limit at the mode. Validation stops it, the formulas hold.
    TestSession t;
    Entry e = withPhysicalLimit(Kind::SingleLower, 5, 2, 5, 80);
    enter(t.record, e);
    t.record.SU_LowerLimit = 7;
    FitSubjectParameter(t.session);
    EXPECT_TRUE(t.record.AbortFlag) << "the root of a negative distance is a fault";
    EXPECT_EQ(t.record.SU_Sigma, 0);

    enter(t.record, withPhysicalLimit(Kind::SingleUpper, 5, 2, 5, 80));
    t.record.SU_UpperLimit = 5;
    FitSubjectParameter(t.session);
    EXPECT_TRUE(t.record.AbortFlag) << "no distance at all";
}

struct RefusalRow {
    const char* name;
    Entry entry;
    const char* title;
    const char* text;
    const char* focus;
};

TEST(FitSubject, RefusesWithMessageFocusAndUnchangedFit) {
    Entry lowerAbove = single(Kind::SingleLower, 90);
    lowerAbove.lowerOffset = -1;
    Entry upperBelow = single(Kind::SingleUpper, 90);
    upperBelow.upperOffset = -1;
    const RefusalRow rows[] = {
        {"lower limit above mode", lowerAbove, "Subject Parameter Lower Limit",
         "Must be less than the\nMode for the case in question.", "LowerLimitBox selected"},
        {"upper limit below mode", upperBelow, "Subject Parameter Upper Limit",
         "Must be greater than the Mode\nfor the case in question.", "UpperLimitBox selected"},
        {"half in tolerance", single(Kind::SingleUpper, 50), "Subject Parameter % In-Tolerance",
         "Must be greater than 50% for \nthe case in question.", "PctInTolBox selected"},
        {"limit between, half in tolerance", withPhysicalLimit(Kind::SingleLower, 7, 2, 0, 50),
         "Subject Parameter % In-Tolerance", "Must be greater than 50% for \nthe case in question.",
         "PctInTolBox selected"},
    };
    for (const RefusalRow& row : rows) {
        TestSession t;
        enter(t.record, twoSided(0.5, 0.5, 95));
        FitSubjectParameter(t.session);
        const double sigma = t.record.SU_Sigma;
        enter(t.record, row.entry);
        t.ui.expectBox(row.title, row.text);
        FitSubjectParameter(t.session);
        EXPECT_TRUE(t.record.AbortFlag) << row.name;
        EXPECT_TRUE(t.record.ComputeNeeded) << row.name;
        EXPECT_EQ(t.record.SU_Sigma, sigma) << row.name;
        EXPECT_EQ(t.record.SU_CaseCode, 6) << row.name;
        ASSERT_FALSE(t.ui.focusMoves.empty()) << row.name;
        EXPECT_EQ(t.ui.focusMoves.back(), row.focus) << row.name;
    }
}

TEST(FitSubject, NamesTheRangeThatThePhysicalLimitMustLeave) {
    TestSession t;
    enter(t.record, withPhysicalLimit(Kind::SingleLower, 7, 2, 4.9, 90));
    // z = InvNorm(0.1) = -1.2815516, q = exp(-(z/2)^2) = 0.663256, bound = (7 q - 5)/(q - 1) = 1.06077
    t.ui.expectBox("Physical Limit Violation",
                   "The Physical Limit must lie outside the range\n1.0608 to 7.0000.");
    FitSubjectParameter(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_EQ(t.ui.focusMoves.back(), "UpperLimitBox selected");
}

TEST(FitSubject, AllInToleranceWithoutEarlierTailsIsASilentFault) {
    TestSession t;
    enter(t.record, twoSided(1.0, 0.5, 100));
    FitSubjectParameter(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_EQ(t.record.SU_Sigma, 0);

    enter(t.record, twoSided(1.0, 0.5, 90));
    FitSubjectParameter(t.session);
    const double fitted = t.record.SU_Sigma;
    t.record.SU_PctInTol = 100;
    FitSubjectParameter(t.session);
    EXPECT_FALSE(t.record.AbortFlag) << "the tails of the last fit stand in";
    EXPECT_NEAR(t.record.SU_Sigma, fitted, 1e-12);
}

} // namespace
