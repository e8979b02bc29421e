#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/RatioPanels.h"
#include "desk/compute/ValidateAndFit.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <boost/math/distributions/normal.hpp>
#include <boost/math/quadrature/gauss_kronrod.hpp>
#include <cmath>
#include <gtest/gtest.h>

namespace {

using namespace metrisk;
using namespace metrisk::testing;
namespace bm = boost::math;

double phi(double z) {
    return bm::cdf(bm::normal(), z);
}

/// Reference risks with a subject limit of 1, measuring limit 1/ratio, by adaptive integration.
struct Reference {
    double accept, reject;
};
Reference referenceRisks(double ratio, double su, double mte, int option) {
    const double sx = 1 / bm::quantile(bm::normal(), (1 + su) / 2);
    const double sm = 1 / ratio / bm::quantile(bm::normal(), (1 + mte) / 2);
    const auto accepted = [&](double x) { return phi((1 - x) / sm) - phi((-1 - x) / sm); };
    const auto f = [&](double x) { return bm::pdf(bm::normal(0, sx), x) * accepted(x); };
    const double joint = bm::quadrature::gauss_kronrod<double, 61>::integrate(f, -1.0, 1.0, 15, 1e-14);
    const double all = 2 * phi(1 / std::hypot(sx, sm)) - 1;
    return {option == 1 ? all - joint : 1 - joint / all, su - joint};
}

TEST(Baseline, AgreesWithAnIndependentIntegration) {
    for (double ratio : {0.5, 1.0, 4.0, 10.0})
        for (double su : {0.5, 0.72, 0.95, 0.999})
            for (double mte : {0.6, 0.85, 0.96028})
                for (int option : {0, 1}) {
                    TestSession t;
                    t.record.FalseAcceptOption = option;
                    const auto risks = ComputeBaselineRisks(t.session, {ratio, su, mte});
                    ASSERT_TRUE(risks);
                    const Reference expected = referenceRisks(ratio, su, mte, option);
                    EXPECT_NEAR(risks->falseAccept, expected.accept, 1e-10)
                        << ratio << " : 1, SU " << su << ", MTE " << mte << ", option " << option;
                    EXPECT_NEAR(risks->falseReject, expected.reject, 1e-10)
                        << ratio << " : 1, SU " << su << ", MTE " << mte << ", option " << option;
                }
}

TEST(Baseline, MeetsTheFiguresOfTheStandard) {
    // The 2 % false accept requirement of ANSI/NCSL Z540.3, met at 4 : 1 by both conventions' figures.
    for (const auto& [option, mte] : {std::pair{0, 0.96028}, {1, 0.90601}}) {
        TestSession t;
        t.record.FalseAcceptOption = option;
        const auto risks = ComputeBaselineRisks(t.session, {4, 0.85, mte});
        ASSERT_TRUE(risks);
        EXPECT_NEAR(100 * risks->falseAccept, 2.0, 0.005);
    }
}

TEST(Baseline, RisksAreNeverNegative) {
    for (double ratio : {50.0, 1e4, 1e6})
        for (double su : {0.05, 0.72, 0.95})
            for (int option : {0, 1}) {
                TestSession t;
                t.record.FalseAcceptOption = option;
                const auto risks = ComputeBaselineRisks(t.session, {ratio, su, 0.9999});
                ASSERT_TRUE(risks);
                EXPECT_GE(risks->falseAccept, 0) << ratio << " : 1, " << su;
                EXPECT_GE(risks->falseReject, 0) << ratio << " : 1, " << su;
            }
}

TEST(Baseline, RefusesWhatIsNoReferenceCase) {
    TestSession t;
    for (double p : {0.0, 1.0, -0.1, 1.5, std::nan("")}) {
        EXPECT_FALSE(ComputeBaselineRisks(t.session, {4, p, 0.85})) << p;
        EXPECT_FALSE(ComputeBaselineRisks(t.session, {4, 0.72, p})) << p;
    }
    t.ui.expectBox("Compute Failed", "Unable to compute risks.  Baseline may be unrealistic.");
    EXPECT_FALSE(ComputeBaselineRisks(t.session, {0, 0.72, 0.85}));
    EXPECT_FALSE(t.record.AbortFlag);
}

struct SearchSetup {
    TestSession t;
    ComputingScreen screen{t.session};
    double ratio = -1;
    bool failed = false;

    explicit SearchSetup(Entry entry = {.pctInTol = 90}) {
        enter(t.record, entry);
        t.record.SU_CaseCode = 6;
    }
    void solve(double fa, double fr) { failed = !SolveEquivalentRatio(t.session, screen, {fa, fr}, ratio); }
};

TEST(EquivalentRatio, IsTheToleranceRatioOfAnAnalysisThatIsItsOwnBaseline) {
    SearchSetup s({.pctInTol = 72, .mteOffset = 0.1, .mtePctInTol = 85});
    s.t.ui.onProgress = [](Worksheet&) { ADD_FAILURE() << "no search is needed"; };
    s.solve(0.5, 0.5);
    EXPECT_EQ(s.ratio, 0.5 / 0.1);
    EXPECT_FALSE(s.failed);

    s.t.ui.onProgress = nullptr;
    for (auto change : std::initializer_list<void (*)(Analysis&)>{
             [](Analysis& r) { r.GB_UpperMult = 0.9; }, [](Analysis& r) { r.SU_PctInTol = 73; },
             [](Analysis& r) { r.MTE_PctInTol = 86; }, [](Analysis& r) { r.SU_CaseCode = 5; },
             [](Analysis& r) { r.MTEPlot_IncludeUncertainty = true; },
             [](Analysis& r) { r.IncludeUncertainty = true, r.ProcessUncertainty = 0.01; }}) {
        SearchSetup other({.pctInTol = 72, .mteOffset = 0.1, .mtePctInTol = 85});
        change(other.t.record);
        bool searched = false;
        other.t.ui.onProgress = [&](Worksheet&) { searched = true; };
        other.solve(0.02, 0.02);
        EXPECT_TRUE(searched);
    }
}

TEST(EquivalentRatio, FindsTheRatioWhoseRiskIsTheTarget) {
    for (int option : {0, 1})
        for (bool onAccept : {true, false})
            for (double ratio : {0.8, 2.0, 4.0, 12.0}) {
                SearchSetup s;
                s.t.record.FalseAcceptOption = option;
                s.t.record.EqRatioOnFalseAccept = onAccept;
                const Reference target = referenceRisks(ratio, 0.72, 0.85, option);
                s.solve(target.accept, target.reject);
                EXPECT_FALSE(s.failed);
                // The Producer's risk has a peak, so that a second, smaller ratio may give the same.
                const bool unique = option == 0 || !onAccept || ratio > 1;
                EXPECT_TRUE(!unique || std::fabs(s.ratio - ratio) < 1e-3 * ratio)
                    << "option " << option << ", on accept " << onAccept << ": " << s.ratio << " for "
                    << ratio;
                const Reference found = referenceRisks(s.ratio, 0.72, 0.85, option);
                const double t = onAccept ? target.accept : target.reject;
                EXPECT_LE(std::fabs((onAccept ? found.accept : found.reject) - t), t / 5000 + 1e-12);
            }
}

TEST(EquivalentRatio, UniformSearchesOnFalseReject) {
    SearchSetup s;
    s.t.record.SU_CaseCode = 9;
    const Reference target = referenceRisks(3, 0.72, 0.85, 0);
    s.solve(0, target.reject);
    EXPECT_FALSE(s.t.record.EqRatioOnFalseAccept);
    EXPECT_NEAR(s.ratio, 3, 3e-3);
}

TEST(EquivalentRatio, EndsWhateverTheTarget) {
    for (double target : {0.0, 4e-7, 0.2, 0.9999, 5.0, -1.0}) {
        SearchSetup s;
        s.solve(target, target);
        EXPECT_GE(s.ratio, std::exp(-30 * 0.72) * (1 - 1e-12)) << target;
        EXPECT_LE(s.ratio, 1000000) << target;
    }
    SearchSetup none;
    none.t.record.MTE_Offset = 0;
    none.solve(0.1, 0.1);
    EXPECT_EQ(none.ratio, -1);
}

TEST(EquivalentRatio, TellsItsFaultsOnce) {
    struct Row {
        double su, mte, mteOffset;
        const char *title, *text;
    };
    constexpr const char* unrealistic = "Unable to compute risks.  Baseline may be unrealistic.";
    for (const Row& row :
         {Row{0, 85, 0.1, "Compute Failed", unrealistic}, Row{100, 85, 0.1, "Compute Failed", unrealistic},
          Row{72, 100, 0.1, "Compute Failed", unrealistic},
          Row{72, 85, 1e-310, "Function Integration Error",
              "A fatal math error occurred during integration.  Please try a different set of inputs."}}) {
        SearchSetup s({.pctInTol = 90, .mteOffset = row.mteOffset});
        s.t.record.Base_SUPctInTol = row.su;
        s.t.record.Base_MTEPctInTol = row.mte;
        s.t.ui.expectBox(row.title, row.text);
        s.solve(0.02, 0.02);
        EXPECT_TRUE(s.t.record.AbortFlag) << row.su;
    }
}

TEST(EquivalentRatio, IsAttainedFromAHundredthToTenThousand) {
    for (double ratio : {0.01, 4.0, 10000.0}) EXPECT_TRUE(ratioAttained(ratio)) << ratio;
    for (double ratio : {0.0, 1e-13, 0.00999, 10000.1, 1e6, std::nan("")})
        EXPECT_FALSE(ratioAttained(ratio)) << ratio;
}

TEST(EquivalentRatio, CancelStopsBetweenPasses) {
    SearchSetup s;
    int reports = 0;
    s.t.ui.onYield = [&] {
        if (++reports == 5) s.screen.close(Way::Cancel);
    };
    s.solve(0.001, 0.001);
    EXPECT_TRUE(s.t.record.AbortFlag);
    EXPECT_FALSE(s.screen.Cmd_Cancel.enabled);
    EXPECT_EQ(reports, 5);
    EXPECT_TRUE(
        s.screen.Lbl_Message2.text.starts_with("Solving for Equivalent Accuracy Ratio\nIteration 4 = "))
        << s.screen.Lbl_Message2.text;
    EXPECT_TRUE(s.screen.Lbl_Message2.text.ends_with(" : 1")) << s.screen.Lbl_Message2.text;
}

TEST(EquivalentRatio, MeterFillsByOrdersOfMagnitude) {
    // error/tolerance and the bar: 99999 -> L = 5; 9999 -> 4; 999 -> 3; 99 -> 2; 9 -> 1; 0.5 -> 0
    struct Row {
        double ratio, meter;
    };
    for (const Row& row : {Row{99999.5, 0}, Row{9999.5, 20}, Row{999.5, 60 - 6.67 * 3}, Row{99.5, 60},
                           Row{9.5, 80}, Row{0.5, 100}, Row{-9.5, 80}, Row{1e300, 0}})
        EXPECT_NEAR(searchMeter(row.ratio * 2e-7, 2e-7), row.meter, 1e-6) << row.ratio;
    EXPECT_EQ(searchMeter(0.1, 0), 0);
}

TEST(RatioPanels, ShowBothRatiosOrNothing) {
    TestSession t;
    EXPECT_EQ(ratioPanels(t.session).pnl_UncRatio, "");
    EXPECT_EQ(ratioPanels(t.session).pnlTUR, "");
    enter(t.record, {});
    ValidateAndFit(t.session);
    EXPECT_EQ(ratioPanels(t.session).pnl_UncRatio, "4 : 1");
    // 0.5 / (1.959964 x 0.125/1.959964)
    EXPECT_EQ(ratioPanels(t.session).pnlTUR, "4 : 1");
}

} // namespace
