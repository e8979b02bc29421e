#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/ComputingScreen.h"
#include "desk/compute/ValidateAndFit.h"
#include "risk/PublishRisks.h"
#include "risk/Snapshot.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

constexpr const char* failureTitle = "Equivalent Accuracy Ratio Failure";
constexpr const char* failureOnAccept = "Unable to compute a precise equivalent accuracy ratio\n"
                                        "based on false accept risks.  Basing the equivalent\n"
                                        "accuracy search on false reject risks might provide\n"
                                        "better results.\n"
                                        "Try again using false reject?";
constexpr const char* failureOnReject = "Unable to compute a precise equivalent accuracy ratio\n"
                                        "based on false reject risks.  Basing the equivalent\n"
                                        "accuracy search on false accept risks might provide\n"
                                        "better results.\n"
                                        "Try again using false accept?";

void expectNotRequired(TestSession& t) {
    t.ui.expectBox("Compute Not Required", "Compute not required.\nNo changes have been made.", note);
}

/// A baseline of whole figures, so that a second press finds nothing changed.
struct Computed : TestSession {
    explicit Computed(Entry entry = {.pctInTol = 90}) {
        enter(record, entry);
        ComputeResults_Click(session);
    }
};

TEST(DisplayRule, ShowsSmallRisksInPpmEachOnItsOwn) {
    struct Row {
        double fraction, value;
        const char* units;
    };
    for (const Row& row : {Row{0.001, 0.1, "%"}, Row{0.00099999, 999.99, "ppm"}, Row{0.5, 50, "%"},
                           Row{0, 0, "ppm"}, Row{0.0005, 500, "ppm"}}) {
        const ShownRisk shown = shownRisk(row.fraction);
        EXPECT_DOUBLE_EQ(shown.value, row.value);
        EXPECT_EQ(shown.units, row.units);
        EXPECT_NEAR(riskFraction(shown.value, shown.units), row.fraction, 1e-18);
    }
    Analysis r;
    publishRisks(r, notNegative(-1e-17), 0.02);
    EXPECT_EQ(FormatNumber(r.FalseAcceptRisk, r.FalseAccept_fmt, {}) + r.FalseAcceptUnits, "0ppm");
    EXPECT_EQ(FormatNumber(r.FalseRejectRisk, r.FalseReject_fmt, {}) + r.FalseRejectUnits, "2.00%");
}

TEST(Pipeline, ComputesOnceAndThenOnlyAfterAChange) {
    Computed t;
    const Analysis first = t.record;
    EXPECT_GT(first.FalseAcceptRisk, 0);
    EXPECT_GT(first.FalseRejectRisk, 0);
    EXPECT_GT(first.EqAccRat, 0);
    EXPECT_EQ(first.EqAccRatDen, "1.00");
    EXPECT_FALSE(first.Computing);

    expectNotRequired(t);
    ComputeResults_Click(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_EQ(t.record.FalseAcceptRisk, first.FalseAcceptRisk);

    t.record.GB_UpperMult = 0.9; // not included: nothing has changed
    expectNotRequired(t);
    ComputeResults_Click(t.session);

    t.record.IncludeGuardbands = true;
    ComputeResults_Click(t.session);
    EXPECT_LT(t.record.FalseAcceptRisk, first.FalseAcceptRisk);
    EXPECT_EQ(t.record.GB_FARisk, t.record.FalseAcceptRisk) << "handed to the guardband worksheet";
    EXPECT_EQ(t.record.GB_EqAccRat, t.record.EqAccRat);
    EXPECT_TRUE(t.record.GB_EqAccRatValid);

    t.record.RisksNeedCompute = true;
    ComputeResults_Click(t.session);
    EXPECT_FALSE(t.record.AbortFlag);
    EXPECT_FALSE(t.record.RisksNeedCompute);
}

TEST(Pipeline, EveryInputOfTheSnapshotCounts) {
    struct Row {
        const char* name;
        void (*change)(Analysis&);
        bool counts;
    };
    const Row rows[] = {
        {"mode", [](Analysis& r) { r.SU_Mode += 1e-9; }, true},
        {"upper limit", [](Analysis& r) { r.SU_UpperLimit += 1e-9; }, true},
        {"lower limit", [](Analysis& r) { r.SU_LowerLimit += 1e-9; }, true},
        {"% in-tolerance", [](Analysis& r) { r.SU_PctInTol += 1e-9; }, true},
        {"physical limit of a two-sided case", [](Analysis& r) { r.PhysicalLimit = 3; }, false},
        {"measuring mode", [](Analysis& r) { r.MTE_Mode += 1; }, true},
        {"measuring upper limit", [](Analysis& r) { r.MTE_UpperLimit += 1e-9; }, true},
        {"measuring lower limit", [](Analysis& r) { r.MTE_LowerLimit += 1; }, false},
        {"measuring % in-tolerance", [](Analysis& r) { r.MTE_PctInTol += 1e-9; }, true},
        {"degrees of freedom", [](Analysis& r) { r.MTE_DegFreedom = 5; }, true},
        {"standard uncertainty, rounded", [](Analysis& r) { r.MTE_StdUncertainty *= 1 + 1e-13; }, false},
        {"standard uncertainty", [](Analysis& r) { r.MTE_StdUncertainty *= 1 + 1e-11; }, true},
        {"sigma, rounded", [](Analysis& r) { r.MTE_Sigma *= 1 + 1e-13; }, false},
        {"sigma", [](Analysis& r) { r.MTE_Sigma *= 1 + 1e-11; }, true},
        {"side", [](Analysis& r) { r.OptTwoSided = false, r.OptSingleUpper = true; }, true},
        {"physical limit box", [](Analysis& r) { r.PhysLimitRequired = true; }, true},
        {"process uncertainty", [](Analysis& r) { r.IncludeUncertainty = true; }, true},
        {"guardbands included", [](Analysis& r) { r.IncludeGuardbands = true; }, true},
        {"multiplier not included", [](Analysis& r) { r.GB_UpperMult = 0.5; }, false},
        {"description", [](Analysis& r) { r.SU_Description = "x"; }, false},
    };
    for (const Row& row : rows) {
        TestSession t;
        enter(t.record, {});
        ValidateAndFit(t.session);
        TakeSnapshot(t.record);
        CompareWithSnapshot(t.session.record);
        ASSERT_TRUE(t.record.NothingChanged && t.record.GuardbandsUnchanged);
        row.change(t.record);
        CompareWithSnapshot(t.session.record);
        EXPECT_EQ(static_cast<bool>(t.record.NothingChanged), !row.counts) << row.name;
    }
}

TEST(Pipeline, IncludedMultipliersCountAsGuardbandChange) {
    TestSession t;
    enter(t.record, {});
    t.record.IncludeGuardbands = true;
    TakeSnapshot(t.record);
    for (auto change :
         {+[](Analysis& r) { r.GB_UpperMult = 0.9; }, +[](Analysis& r) { r.GB_LowerMult = 0.9; },
          +[](Analysis& r) { r.GuardbandsChanged = true; }}) {
        const Analysis before = t.record;
        change(t.record);
        CompareWithSnapshot(t.session.record);
        EXPECT_TRUE(t.record.NothingChanged);
        EXPECT_FALSE(t.record.GuardbandsUnchanged);
        t.record = before;
    }
}

TEST(Pipeline, BaselineWithAFractionAlwaysCountsAsChanged) {
    TestSession t;
    TakeBaselineSnapshot(t.record);
    CompareBaseline(t.session.record);
    EXPECT_TRUE(t.record.BaselineUnchanged);
    t.record.Base_AccRatNum = 4.5;
    TakeBaselineSnapshot(t.record);
    EXPECT_EQ(t.record.Last_Base1, 4);
    CompareBaseline(t.session.record);
    EXPECT_FALSE(t.record.BaselineUnchanged);
    t.record.Base_AccRatNum = 1e12;
    TakeBaselineSnapshot(t.record);
    EXPECT_EQ(t.record.Last_Base1, 32767);
}

TEST(Pipeline, ABaselineChangeSearchesWithoutANewIntegral) {
    Computed t;
    const Analysis first = t.record;
    t.record.Base_SUPctInTol = 80;
    t.record.FalseAcceptRisk = 2; // shown risks stand: were they computed again, this would go
    t.record.FalseAcceptUnits = "%";
    ComputeResults_Click(t.session);
    EXPECT_EQ(t.record.FalseAcceptRisk, 2);
    EXPECT_NE(t.record.EqAccRat, first.EqAccRat);
    EXPECT_EQ(t.record.Last_Base4, 80);
}

TEST(Pipeline, WithoutTheRatioSearchTheOldRatioStays) {
    Computed t;
    const double ratio = t.record.EqAccRat;
    t.record.ComputeEqRatio = false;
    t.record.BeepWhenFinished = true;
    t.record.SU_PctInTol = 80;
    t.record.RisksNeedCompute = true;
    ComputeResults_Click(t.session);
    EXPECT_EQ(t.record.EqAccRat, ratio);
    EXPECT_FALSE(t.record.RisksNeedCompute);
    EXPECT_EQ(t.ui.beeps, 1);
    EXPECT_EQ(t.ui.busyDepth, 0);
}

TEST(Pipeline, ARefusedEntryLeavesResultsAlone) {
    Computed t;
    const Analysis before = t.record;
    t.record.SU_PctInTol = 0;
    t.ui.expectBox("Subject Parameter % In-Tolerance", "Must be greater than zero.");
    ComputeResults_Click(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_EQ(t.record.FalseAcceptRisk, before.FalseAcceptRisk);
    EXPECT_EQ(t.record.SU_Sigma, before.SU_Sigma);
    EXPECT_FALSE(t.record.Computing);
}

TEST(Pipeline, AComputeWithoutFiguresPublishesNothing) {
    struct Row {
        const char* name;
        void (*change)(Analysis&);
        const char* title;
        const char* text; // null: silent
    };
    constexpr const char* failed = "Compute Failed";
    constexpr const char* guardband = "Unable to compute risks.  Guardband may be unrealistic.";
    const Row rows[] = {
        {"nothing accepted",
         [](Analysis& r) { r.GB_UpperMult = 1000, r.GB_LowerMult = -999.9, r.IncludeGuardbands = true; },
         failed, guardband},
        {"limits crossed",
         [](Analysis& r) { r.GB_UpperMult = r.GB_LowerMult = -0.5, r.IncludeGuardbands = true; }, failed,
         guardband},
        {"no spread", [](Analysis& r) { enter(r, withPhysicalLimit(Kind::SingleUpper, 5, 2, -1e18, 90)); },
         failed, "Unable to compute risks.  Limits may be unrealistic."},
        {"refused", [](Analysis& r) { r.SU_PctInTol = 0; }, "Subject Parameter % In-Tolerance",
         "Must be greater than zero."},
        {"a fault in the fit",
         [](Analysis& r) { r.SU_UpperOffset = 1, r.SU_UpperLimit = 11, r.SU_PctInTol = 1e-300; }, nullptr,
         nullptr},
    };
    for (const bool direct : {false, true})
        for (const Row& row : rows) {
            Computed t;
            t.record.DirectCompute = direct;
            const Analysis before = t.record;
            row.change(t.record);
            if (row.text) t.ui.expectBox(row.title, row.text);
            t.ui.onProgress = [&](Worksheet& progress) {
                EXPECT_FALSE(progress.find("Meter")->visible) << row.name << ": no ratio for no figures";
            };
            ComputeResults_Click(t.session);
            t.ui.verifyAllShown();
            EXPECT_TRUE(t.record.AbortFlag) << row.name;
            EXPECT_TRUE(t.record.ResultsStale) << row.name;
            EXPECT_FALSE(t.record.RisksComputed) << row.name;
            EXPECT_EQ(t.record.FalseAcceptRisk, before.FalseAcceptRisk) << row.name;
            EXPECT_EQ(t.record.GB_FARisk, before.GB_FARisk) << row.name;
            EXPECT_EQ(t.record.EqAccRat, before.EqAccRat) << row.name;
            EXPECT_EQ(t.record.Last_GBUpper, before.Last_GBUpper) << row.name << ": no snapshot";
            EXPECT_EQ(t.record.Last_PctInTol, before.Last_PctInTol) << row.name << ": no snapshot";

            // Back at the entries of the figures shown, the same figures come again without a word.
            t.ui.onProgress = nullptr;
            const Flag stale = t.record.ResultsStale;
            t.record = before;
            t.record.ResultsStale = stale;
            ComputeResults_Click(t.session);
            EXPECT_FALSE(t.record.ResultsStale) << row.name;
            EXPECT_EQ(t.record.FalseAcceptRisk, before.FalseAcceptRisk) << row.name;
        }
}

TEST(Pipeline, AFailedSearchAsksForTheOtherKey) {
    // The Producer's risk has a peak in the baseline; this one lies above it.
    Entry entry{.pctInTol = 20, .mteOffset = 1};
    for (const Answer last : {Answer::No, Answer::Yes}) {
        TestSession t;
        enter(t.record, entry);
        t.record.FalseAcceptOption = 1;
        t.record.Base_SUPctInTol = 99;
        t.ui.expectBox(failureTitle, failureOnAccept, last);
        ComputeResults_Click(t.session);
        EXPECT_EQ(t.record.EqRatioOnFalseAccept, last == Answer::No);
        if (last == Answer::No) {
            EXPECT_EQ(t.record.EqAccRat, 0);
        } else {
            EXPECT_GT(t.record.EqAccRat, 0);
        }
        EXPECT_GT(t.record.FalseAcceptRisk, 0) << "the risks stand";
    }
}

TEST(Pipeline, TheKeysAlternateAsLongAsTheUserLikes) {
    TestSession t;
    enter(t.record, {.pctInTol = 20, .mteOffset = 2});
    ValidateAndFit(t.session);
    t.record.RisksNeedCompute = false;
    t.record.NothingChanged = t.record.GuardbandsUnchanged = true;
    t.record.FalseAcceptOption = 1;
    t.record.FalseAcceptRisk = 90;    // above the peak
    t.record.FalseRejectRisk = 1e-11; // below the last digit of what an integral can tell
    t.ui.expectBox(failureTitle, failureOnAccept, Answer::Yes);
    t.ui.expectBox(failureTitle, failureOnReject, Answer::Yes);
    t.ui.expectBox(failureTitle, failureOnAccept, Answer::No);
    ComputingScreen screen(t.session);
    RiskComputeStep(t.session, screen);
    EXPECT_EQ(t.record.EqAccRat, 0);
}

TEST(Pipeline, CancelInTheSearchKeepsTheRisks) {
    TestSession t;
    enter(t.record, {.pctInTol = 90});
    bool shown = false;
    t.ui.onProgress = [&](Worksheet& progress) {
        shown = shown || progress.find("Meter")->visible;
        if (shown) progress.close(Way::Cancel);
    };
    ComputeResults_Click(t.session);
    EXPECT_TRUE(shown);
    EXPECT_EQ(t.record.EqAccRat, 0);
    EXPECT_GT(t.record.FalseAcceptRisk, 0);
    t.ui.onProgress = nullptr;
    ComputeResults_Click(t.session);
    EXPECT_GT(t.record.EqAccRat, 0) << "the next press searches again";
}

TEST(Pipeline, ShowsBothRisksWhileSearching) {
    TestSession t;
    enter(t.record, {.pctInTol = 99.9999, .mteOffset = 0.01});
    std::string message;
    t.ui.onProgress = [&](Worksheet& progress) {
        if (progress.find("Meter")->visible) message = progress.find("Lbl_Message1")->text;
    };
    ComputeResults_Click(t.session);
    EXPECT_EQ(message.substr(0, message.find('\n')), "False Accept Risk:  < 1 ppm");
    EXPECT_TRUE(message.find("\nFalse Reject Risk: ") != std::string::npos) << message;
}

TEST(Pipeline, ScopesDecideWhatIsFitted) {
    for (const char* scope : {"SU", "MTE", "Both"}) {
        TestSession t;
        enter(t.record, {});
        t.record.ComputeScope = scope;
        t.record.ComputeNeeded = true;
        ValidateAndFit(t.session);
        EXPECT_EQ(t.record.SU_Sigma > 0, std::string(scope) != "MTE") << scope;
        EXPECT_EQ(t.record.MTE_Sigma > 0, std::string(scope) != "SU") << scope;
        EXPECT_FALSE(t.record.ComputeNeeded) << scope;
    }
    TestSession t;
    enter(t.record, {.mtePctInTol = 0});
    ValidateAndFit(t.session); // no validation: a fit that cannot be made is silent
    EXPECT_TRUE(t.record.AbortFlag);
    EXPECT_TRUE(t.record.ComputeNeeded);
    EXPECT_EQ(t.record.SU_Sigma, 0);
}

TEST(Pipeline, DirectComputeConvertsTheProducersRisk) {
    TestSession t;
    enter(t.record, {.pctInTol = 90});
    t.record.FalseAcceptOption = 1;
    t.record.DirectCompute = true;
    t.record.DirectComputeChanged = true;
    ComputeResults_Click(t.session);
    const double direct = riskFraction(t.record.FalseAcceptRisk, t.record.FalseAcceptUnits);
    const double reject = riskFraction(t.record.FalseRejectRisk, t.record.FalseRejectUnits);
    t.record.DirectCompute = t.record.DirectComputeChanged = false;
    t.record.RisksNeedCompute = true;
    ComputeResults_Click(t.session);
    const double producer = riskFraction(t.record.FalseAcceptRisk, t.record.FalseAcceptUnits);
    EXPECT_NEAR(direct, (0.9 - reject) * producer / (1 - producer), 1e-14);
}

TEST(Pipeline, GuardbandStepSearchesForTheWorksheet) {
    TestSession t;
    enter(t.record, {.pctInTol = 90});
    ValidateAndFit(t.session);
    const double mainRatio = t.record.EqAccRat;
    t.record.GB_RatioRequest = true;
    t.record.GB_FARisk = 0.02;
    t.record.GB_FRRisk = 0.03;
    requestCompute(t.session);
    EXPECT_GT(t.record.GB_EqAccRat, 1);
    EXPECT_EQ(t.record.EqAccRat, mainRatio);
    EXPECT_FALSE(t.record.ComputeRequested);

    t.record.GB_FRRisk = 0; // not the key
    requestCompute(t.session);
    EXPECT_GT(t.record.GB_EqAccRat, 1);
    t.record.SU_CaseCode = 9; // now it is
    requestCompute(t.session);
    EXPECT_EQ(t.record.GB_EqAccRat, 0);
    t.record.SU_CaseCode = 6;

    t.record.FalseAcceptOption = 1;
    t.record.GB_FARisk = t.record.GB_FRRisk = 0.9;
    t.ui.expectBox(failureTitle,
                   "Unable to compute a precise equivalent \naccuracy ratio based on false accept risks.");
    requestCompute(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
}

} // namespace
