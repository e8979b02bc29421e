// The baseline screen and the choice of the false accept option.
#include "risk/BaselineScreen.h"
#include "persistence/BaselineDefaults.h"
#include "risk/RiskConvention.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

constexpr const char* retainTitle = "Changes Made";
constexpr const char* retain = "Do you want to retain changes?";
constexpr const char* optionTitle = "False Accept Risk Option Change";
constexpr const char* usedDefault =
    "By using the default baseline, you have changed\nthe current False Accept "
    "option.  This will\nnecessitate recomputing the false accept risk and\n"
    "equivalent accuracy ratio.  Continue?";
constexpr const char* storedDefault =
    "You have changed the default baseline False\nAccept Option.\nContinuing will "
    "not only store the default baseline\nvalue, but may also change the main "
    "system False\nAccept Option.";

RunFalseAcceptScreen choosing(int option, bool asDefault = false) {
    return [=](FalseAcceptScreen& screen) {
        option == 1 ? screen.chooseProducer() : screen.chooseConsumer();
        screen.Chk_SetDefault = asDefault;
        EXPECT_TRUE(screen.leave());
    };
}

TEST(BaselineScreen, OpensWithTheRecordAndTheDefault) {
    TestSession test;
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptCriterion", "producer");
    test.settings.WriteSetting("BaselineDefaults", "SUPctInTol", "70,5");
    const BaselineScreen screen(test.session);
    EXPECT_EQ(screen.analysis.AccRat1, "4.00");
    EXPECT_EQ(screen.analysis.PctInTol1, "85.0000");
    EXPECT_EQ(screen.analysis.FAOption, "Consumer Option");
    EXPECT_EQ(screen.defaults.FAOption, "Producer Option");
    EXPECT_EQ(screen.defaults.PctInTol2, "70.5000") << "written where the comma was the decimal symbol";
    EXPECT_FALSE(screen.boxesLocked());
    EXPECT_FALSE(screen.changed());
}

TEST(BaselineScreen, ComputesTheStoredDefaults) {
    TestSession test;
    BaselineScreen screen(test.session);
    ASSERT_TRUE(screen.ComputeBaselineResults());
    EXPECT_NEAR(screen.analysis.falseAccept, 4.1, 0.06);
    EXPECT_NEAR(screen.analysis.falseReject, 3.75, 0.06);
    EXPECT_EQ(screen.analysis.FalseAcceptRiskUnits, "%");
    EXPECT_TRUE(test.record.BaselineComputed);
    screen.lostFocus(BaselineBox::BaseAccRat1, "1000");
    screen.lostFocus(BaselineBox::BaselinePctInTol1, "99.9");
    screen.lostFocus(BaselineBox::BaselinePctInTol2, "99.9999");
    ASSERT_TRUE(screen.ComputeBaselineResults());
    EXPECT_EQ(screen.analysis.FalseAccept, " < 1");
    EXPECT_EQ(screen.analysis.FalseAcceptRiskUnits, "ppm");
}

TEST(BaselineScreen, LeavingABox) {
    struct Case {
        BaselineBox box;
        const char *typed, *shown, *refusedTitle;
    };
    constexpr const char* measuring = "Inappropriate MTE % In-tolerance";
    constexpr const char* subject = "Inappropriate Subject Parameter % In-tolerance";
    const Case cases[] = {
        {BaselineBox::BaseAccRat1, "4.567", "4.57", nullptr},
        {BaselineBox::BaseAccRat2, "1500", "1,500.00", nullptr},
        {BaselineBox::BaselinePctInTol1, "99.9999 %", "99.9999", nullptr},
        {BaselineBox::BaselinePctInTol1, "100", "100", measuring},
        {BaselineBox::BaselinePctInTol1, "99.99999", "99.99999", measuring},
        {BaselineBox::BaselinePctInTol2, "0", "0", subject},
        {BaselineBox::BaselinePctInTol2, "", "", subject},
        {BaselineBox::BaselinePctInTol2, "-3", "-3", subject},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        TestSession test;
        BaselineScreen screen(test.session);
        if (c.refusedTitle) test.ui.expectBox(c.refusedTitle, "Must be between 0.0001% and 99.9999%.");
        const FieldResult result = screen.lostFocus(c.box, c.typed);
        EXPECT_EQ(result.stay, c.refusedTitle != nullptr);
        EXPECT_EQ(result.text, c.shown);
    }
}

TEST(BaselineScreen, ValidatesInOrder) {
    TestSession test;
    BaselineScreen screen(test.session);
    screen.analysis.AccRat2 = screen.analysis.PctInTol1 = screen.analysis.PctInTol2 = "0";
    test.ui.expectBox("Baseline Accuracy Ratio", "Accuracy Ratio Entry must be greater than Zero");
    EXPECT_FALSE(screen.ComputeBaselineResults());
    screen.analysis.AccRat2 = "1";
    test.ui.expectBox("Baseline MTE Parameter % In-Tolerance",
                      "In Tolerance Percent must be greater than Zero");
    EXPECT_FALSE(screen.cmd_OK());
    screen.analysis.PctInTol1 = "85";
    test.ui.expectBox("Baseline Subject Parameter % In-Tolerance",
                      "In Tolerance Percent must be greater than Zero");
    screen.Cmd_SetDefaultBaseline();
    EXPECT_EQ(screen.ComputeBaselineResultsCaption, "Compute Baseline &Risks");
    test.ui.expectBox("Default Baseline Procedure",
                      "To change the default baseline, enter changes in the analysis "
                      "baseline and click 'Set default baseline.'");
    screen.defaultKeyPressed();
}

TEST(BaselineScreen, ARatioWithoutAQuotientReachesNoField) {
    TestSession test;
    test.record.Base_AccRatDen = 0; // as a file may hold it
    BaselineScreen opened(test.session);
    EXPECT_TRUE(opened.cmd_OK()) << "nothing was changed";
    test.ui.expectBox("Baseline Accuracy Ratio", "Accuracy Ratio Entry must be greater than Zero");
    EXPECT_FALSE(opened.ComputeBaselineResults());
    opened.lostFocus(BaselineBox::BaseAccRat2, "0.01");
    opened.lostFocus(BaselineBox::BaseAccRat1, "1E308");
    EXPECT_TRUE(opened.cmd_OK());
    EXPECT_EQ(test.record.Base_AccRatNum, 1e308);
    EXPECT_EQ(test.record.Base_EqRatioTarget, 4) << "the target before";
}

TEST(BaselineScreen, Z540LocksAndFollowsTheConvention) {
    TestSession test;
    BaselineScreen screen(test.session);
    screen.chooseZ540();
    EXPECT_TRUE(screen.boxesLocked());
    EXPECT_EQ(screen.analysis.PctInTol1, "96.028");
    EXPECT_EQ(screen.analysis.PctInTol2, "85.000");
    EXPECT_EQ(screen.analysis.AccRat2, "1.00");
    EXPECT_EQ(screen.lostFocus(BaselineBox::BaseAccRat1, "5").text, "4.00");
}

TEST(BaselineScreen, OptionChangeRefreshesZ540) {
    TestSession test;
    BaselineScreen screen(test.session);
    screen.chooseZ540();
    const double consumerRisk = screen.analysis.falseAccept;
    test.ui.expectBox("Change Made", "Do you want to keep the new risk option?", Answer::Yes);
    screen.cmd_FAOption(choosing(1));
    EXPECT_EQ(screen.analysis.FAOption, "Producer Option");
    EXPECT_EQ(screen.analysis.PctInTol1, "90.601");
    EXPECT_NE(screen.analysis.falseAccept, consumerRisk);
    screen.chooseUser();
    EXPECT_FALSE(screen.boxesLocked());
    EXPECT_EQ(screen.analysis.PctInTol1, "90.601");

    test.ui.expectBox(retainTitle, retain, Answer::Cancel);
    EXPECT_FALSE(screen.mnu_Exit());
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    test.ui.expectBox(retainTitle, retain, Answer::No);
    EXPECT_TRUE(screen.mnu_Exit());
    EXPECT_EQ(test.record.FalseAcceptOption, 0);
    EXPECT_FALSE(test.record.RisksNeedCompute);
    EXPECT_EQ(test.record.Base_MTEPctInTol, 85);
}

TEST(BaselineScreen, StoresTheAnalysisSideAndDropsTheRatio) {
    TestSession test;
    test.record.EqAccRat = 3;
    BaselineScreen screen(test.session);
    screen.lostFocus(BaselineBox::BaseAccRat1, "10");
    screen.ComputeBaselineResults();
    test.ui.expectBox(retainTitle, retain, Answer::Yes);
    EXPECT_TRUE(screen.mnu_Exit());
    EXPECT_EQ(test.record.Base_AccRatNum, 10);
    EXPECT_EQ(test.record.Base_EqRatioTarget, 10);
    EXPECT_LT(test.record.Base_FalseAccept, 4.1);
    EXPECT_EQ(test.record.EqAccRat, 0);
    EXPECT_EQ(test.record.Last_Base1, -1);
    EXPECT_TRUE(test.record.FileChanged);
    EXPECT_TRUE(test.settings.values.empty());
}

TEST(BaselineScreen, StoresTheDefault) {
    TestSession test;
    test.session.regional = {";", ",", ".", "-"};
    test.record.FalseAcceptOption = 1;
    BaselineScreen screen(test.session);
    screen.lostFocus(BaselineBox::BaselinePctInTol2, "80,5");
    screen.ComputeBaselineResults();
    screen.Cmd_SetDefaultBaseline();
    EXPECT_TRUE(test.settings.values.empty()) << "stored on leaving";
    test.ui.expectBox(optionTitle, storedDefault, Answer::No);
    EXPECT_FALSE(screen.cmd_OK());
    EXPECT_TRUE(test.settings.values.empty());
    test.ui.expectBox(optionTitle, storedDefault, Answer::Yes);
    EXPECT_TRUE(screen.cmd_OK());
    const auto stored = [&](const char* section, const char* key) {
        return test.settings.ReadSetting(section, key, "", 60);
    };
    EXPECT_EQ(stored("BaselineDefaults", "SUPctInTol"), "80.5000");
    EXPECT_EQ(stored("BaselineDefaults", "Metrisk"), "4:1");
    EXPECT_EQ(stored("BaselineDefaults", "FalseAcceptCriterion"), "Producer");
    EXPECT_EQ(stored("RiskOption", "FalseAcceptConvention"), "Producer");
    EXPECT_EQ(BaselineScreen(test.session).defaults.PctInTol2, "80,5000");
}

TEST(BaselineScreen, UsingADefaultOfAnotherConvention) {
    TestSession test;
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptCriterion", "Producer");
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptRisk", "812");
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptUnits", "ppm");
    test.record.FalseAcceptRisk = 2;
    BaselineScreen screen(test.session);
    screen.Cmd_RetrieveDefaultBaseline();
    EXPECT_EQ(screen.analysis.FalseAccept, "812");
    test.ui.expectBox(optionTitle, usedDefault, Answer::Cancel);
    EXPECT_FALSE(screen.cmd_OK());
    test.ui.expectBox(optionTitle, usedDefault, Answer::Ok);
    EXPECT_TRUE(screen.cmd_OK());
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_TRUE(test.record.RisksNeedCompute);
    EXPECT_EQ(test.record.Base_AcceptUnits, "ppm");
    EXPECT_EQ(test.record.Base_Accept_fmt, "##0");
}

TEST(BaselineScreen, UsedZ540DefaultFollowsItsConvention) {
    TestSession test;
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptCriterion", "Producer");
    test.settings.WriteSetting("BaselineDefaults", "UserOption", "Z540");
    BaselineScreen screen(test.session);
    screen.Cmd_RetrieveDefaultBaseline();
    EXPECT_EQ(screen.analysis.PctInTol1, "96.028");
    EXPECT_TRUE(screen.cmd_OK());
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_EQ(test.record.Base_MTEPctInTol, 90.601);
    EXPECT_EQ(test.record.UserOption, "Z540");
}

TEST(FalseAcceptScreen, SettingsTakeTheConventionOnlyAsDefault) {
    TestSession test;
    constexpr const char* keep = "Do you want to keep the new risk option?";
    FalseAcceptScreen screen(test.session);
    EXPECT_TRUE(screen.leave()) << "nothing changed";
    screen.chooseProducer();
    test.ui.expectBox("Change Made", keep, Answer::Cancel);
    EXPECT_FALSE(screen.leave());
    test.ui.expectBox("Change Made", keep, Answer::No);
    EXPECT_TRUE(screen.leave());
    EXPECT_FALSE(test.record.RisksNeedCompute);
    test.ui.expectBox("Change Made", keep, Answer::Yes);
    screen.Chk_SetDefault = true;
    EXPECT_TRUE(screen.leave());
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_TRUE(test.record.RisksNeedCompute);
    EXPECT_EQ(ReadFalseAcceptConvention(test.settings), 1);
    const BaselineDefaults defaults = ReadBaselineDefaults(test.settings, 4);
    EXPECT_EQ(defaults.FalseAcceptOption, 1);
    EXPECT_EQ(defaults.figures.Base_FalseAccept,
              5.67); // 1 - (0.72 - 0.0375)/(0.72 + 0.041 - 0.0375) in percent
}

TEST(RiskConvention, RestatesByPpmAndPercent) {
    struct Case {
        double accept;
        const char* units;
        double restated;
        const char* restatedUnits;
    };
    // (p + fa - fr - (p - fr))/(p + fa - fr) = fa/(0.6825 + fa); ppm figures are divided by 100 as well.
    for (const Case& c : {Case{4.1, "%", 5.67, "%"}, {0.05, "%", 732, "ppm"}, {500, "ppm", 7, "ppm"}}) {
        BaselineDefaults defaults;
        defaults.figures.Base_FalseAccept = c.accept;
        defaults.figures.Base_AcceptUnits = c.units;
        ConvertRiskConvention(defaults, 0);
        EXPECT_EQ(defaults.figures.Base_FalseAccept, c.accept);
        ConvertRiskConvention(defaults, 1);
        EXPECT_EQ(defaults.figures.Base_FalseAccept, c.restated) << c.accept << " " << c.units;
        EXPECT_EQ(defaults.figures.Base_AcceptUnits, c.restatedUnits);
    }
}

} // namespace
} // namespace metrisk::testing
