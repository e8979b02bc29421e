// The baseline screen and the choice of the false accept option.
#include "desk/baseline/BaselineScreen.h"
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "desk/compute/RiskConvention.h"
#include "desk/kit/Session.h"
#include "desk/options/EqRatioScreen.h"
#include "desk/options/FalseAcceptScreen.h"
#include "persistence/BaselineDefaults.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

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

struct Opened : TestSession {
    BaselineScreen screen{session};

    void press(const char* button) { testing::press(screen, button); }
    FieldResult type(const char* box, const char* text) { return testing::type(screen, box, text); }
    /// Chooses from the menu, as View does.
    void showDefaults() { screen.run(*findItem(screen.menus, "mnu_ShowDefaults")); }
    double shown(const TextBox& box) { return ParseValue(box.text, session.regional); }
};

TEST(BaselineScreen, OpensWithTheRecordAndTheDefault) {
    TestSession test;
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptCriterion", "producer");
    test.settings.WriteSetting("BaselineDefaults", "SUPctInTol", "70,5");
    BaselineScreen screen(test.session);
    EXPECT_EQ(screen.BaseAccRat1.text, "4.00");
    EXPECT_EQ(screen.BaselinePctInTol1.text, "85.0000");
    EXPECT_EQ(screen.pnl_FAOption.text, "Consumer Option");
    EXPECT_EQ(screen.pnl_DefaultFAOption.text, "Producer Option");
    EXPECT_EQ(screen.DefPctInTol2.text, "70.5000") << "written where the comma was the decimal symbol";
    EXPECT_FALSE(screen.BaseAccRat1.locked);
    EXPECT_FALSE(screen.pnl_Defaults.visible);
    EXPECT_TRUE(screen.close(Way::Cancel)) << "nothing has changed";
}

TEST(BaselineScreen, ComputesTheStoredDefaults) {
    Opened test;
    test.press("ComputeBaselineResults");
    EXPECT_NEAR(test.shown(test.screen.BaseFalseAccept), 4.1, 0.06);
    EXPECT_NEAR(test.shown(test.screen.BaseFalseReject), 3.75, 0.06);
    EXPECT_EQ(test.screen.FalseAcceptRiskUnits.text, "%");
    EXPECT_TRUE(test.record.BaselineComputed);
    test.type("BaseAccRat1", "1000");
    test.type("BaselinePctInTol1", "99.9");
    test.type("BaselinePctInTol2", "99.9999");
    test.press("ComputeBaselineResults");
    EXPECT_EQ(test.screen.BaseFalseAccept.text, " < 1");
    EXPECT_EQ(test.screen.FalseAcceptRiskUnits.text, "ppm");
}

TEST(BaselineScreen, LeavingABox) {
    struct Case {
        const char *box, *typed, *shown, *refusedTitle;
    };
    constexpr const char* measuring = "Inappropriate MTE % In-tolerance";
    constexpr const char* subject = "Inappropriate Subject Parameter % In-tolerance";
    const Case cases[] = {
        {"BaseAccRat1", "4.567", "4.57", nullptr},
        {"BaseAccRat2", "1500", "1,500.00", nullptr},
        {"BaselinePctInTol1", "99.9999 %", "99.9999", nullptr},
        {"BaselinePctInTol1", "100", "85.0000", measuring},
        {"BaselinePctInTol1", "99.99999", "85.0000", measuring},
        {"BaselinePctInTol2", "0", "72.0000", subject},
        {"BaselinePctInTol2", "", "72.0000", subject},
        {"BaselinePctInTol2", "-3", "72.0000", subject},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        Opened test;
        if (c.refusedTitle) test.ui.expectBox(c.refusedTitle, "Must be between 0.0001% and 99.9999%.");
        const FieldResult result = test.type(c.box, c.typed);
        EXPECT_EQ(result.stay, c.refusedTitle != nullptr);
        EXPECT_EQ(result.text, c.shown);
    }
}

TEST(BaselineScreen, ValidatesInOrder) {
    TestSession test;
    test.record.Base_AccRatDen = test.record.Base_MTEPctInTol = test.record.Base_SUPctInTol = 0;
    BaselineScreen screen(test.session);
    test.ui.expectBox("Baseline Accuracy Ratio", "Accuracy Ratio Entry must be greater than Zero");
    press(screen, "ComputeBaselineResults");
    type(screen, "BaseAccRat2", "1");
    test.ui.expectBox("Baseline MTE Parameter % In-Tolerance",
                      "In Tolerance Percent must be greater than Zero");
    EXPECT_FALSE(screen.close(Way::Ok));
    type(screen, "BaselinePctInTol1", "85");
    test.ui.expectBox("Baseline Subject Parameter % In-Tolerance",
                      "In Tolerance Percent must be greater than Zero");
    screen.run(*findItem(screen.menus, "mnu_ShowDefaults"));
    press(screen, "Cmd_SetDefaultBaseline");
    EXPECT_EQ(test.ui.focusMoves.back(), "BaselineAnalysis.BaselinePctInTol2 selected");
    EXPECT_EQ(screen.ComputeBaselineResults.text, "Compute Baseline &Risks");
    test.ui.expectBox("Default Baseline Procedure",
                      "To change the default baseline, enter changes in the analysis "
                      "baseline and click 'Set default baseline.'",
                      note);
    screen.key(screen.DefAccRat1);
}

TEST(BaselineScreen, ARatioWithoutAQuotientReachesNoField) {
    TestSession test;
    test.record.Base_AccRatDen = 0; // as a file may hold it
    BaselineScreen opened(test.session);
    test.ui.expectBox("Baseline Accuracy Ratio", "Accuracy Ratio Entry must be greater than Zero");
    press(opened, "ComputeBaselineResults");
    type(opened, "BaseAccRat2", "0.01");
    type(opened, "BaseAccRat1", "1E308");
    EXPECT_TRUE(opened.close(Way::Ok));
    EXPECT_EQ(test.record.Base_AccRatNum, 1e308);
    EXPECT_EQ(test.record.Base_EqRatioTarget, 4) << "the target before";
}

TEST(BaselineScreen, Z540LocksAndFollowsTheConvention) {
    Opened test;
    test.press("optZ540Baseline");
    EXPECT_TRUE(test.screen.BaseAccRat1.locked);
    EXPECT_EQ(test.screen.BaselinePctInTol1.text, "96.028");
    EXPECT_EQ(test.screen.BaselinePctInTol2.text, "85.000");
    EXPECT_EQ(test.screen.BaseAccRat2.text, "1.00");
    const std::string consumerRisk = test.screen.BaseFalseReject.text; // false accept is 2 % by either option

    test.ui.expectScreen("FAFORM", [](Worksheet& choice) {
        press(choice, "ProducerRiskOption");
        press(choice, "cmd_Close");
    });
    test.ui.expectBox("Change Made", "Do you want to keep the new risk option?", Answer::Yes, yesNoCancel);
    test.press("cmd_FAOption");
    EXPECT_EQ(test.screen.pnl_FAOption.text, "Producer Option");
    EXPECT_EQ(test.screen.BaselinePctInTol1.text, "90.601");
    EXPECT_NE(test.screen.BaseFalseReject.text, consumerRisk);
    test.press("optUserBaseline");
    EXPECT_FALSE(test.screen.BaseAccRat1.locked);
    EXPECT_EQ(test.screen.BaselinePctInTol1.text, "90.601");

    test.ui.expectBox(retainTitle, retain, Answer::Cancel);
    EXPECT_FALSE(test.screen.close(Way::Cancel));
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    test.ui.expectBox(retainTitle, retain, Answer::No, yesNoCancel);
    EXPECT_TRUE(test.screen.close(Way::Cancel));
    EXPECT_EQ(test.record.FalseAcceptOption, 0);
    EXPECT_FALSE(test.record.RisksNeedCompute);
    EXPECT_EQ(test.record.Base_MTEPctInTol, 85);
}

TEST(BaselineScreen, StoresTheAnalysisSideAndDropsTheRatio) {
    Opened test;
    test.record.EqAccRat = 3;
    test.type("BaseAccRat1", "10");
    test.press("ComputeBaselineResults");
    test.ui.expectBox(retainTitle, retain, Answer::Yes, yesNoCancel);
    EXPECT_TRUE(test.screen.close(Way::Cancel));
    EXPECT_EQ(test.record.Base_AccRatNum, 10);
    EXPECT_EQ(test.record.Base_EqRatioTarget, 10);
    EXPECT_LT(test.record.Base_FalseAccept, 4.1);
    EXPECT_EQ(test.record.EqAccRat, 0);
    EXPECT_EQ(test.record.Last_Base1, -1);
    EXPECT_TRUE(test.record.FileChanged);
    EXPECT_TRUE(test.settings.empty());
}

TEST(BaselineScreen, StoresTheDefault) {
    TestSession test;
    test.session.regional = {";", ",", ".", "-"};
    test.record.FalseAcceptOption = 1;
    BaselineScreen screen(test.session);
    type(screen, "BaselinePctInTol2", "80,5");
    press(screen, "ComputeBaselineResults");
    screen.run(*findItem(screen.menus, "mnu_ShowDefaults"));
    EXPECT_EQ(findItem(screen.menus, "mnu_ShowDefaults")->caption, "Hide &Defaults");
    press(screen, "Cmd_SetDefaultBaseline");
    EXPECT_TRUE(test.settings.empty()) << "stored on leaving";
    test.ui.expectBox(optionTitle, storedDefault, Answer::No);
    EXPECT_FALSE(screen.close(Way::Ok));
    EXPECT_TRUE(test.settings.empty());
    test.ui.expectBox(optionTitle, storedDefault, Answer::Yes);
    EXPECT_TRUE(screen.close(Way::Ok));
    EXPECT_EQ(test.settings.writes, 1) << "a crash leaves no half of a default";
    const auto stored = [&](const char* section, const char* key) {
        return test.settings.ReadSetting(section, key, "", 60);
    };
    EXPECT_EQ(stored("BaselineDefaults", "SUPctInTol"), "80.5000");
    EXPECT_EQ(stored("BaselineDefaults", "Metrisk"), "4:1");
    EXPECT_EQ(stored("BaselineDefaults", "FalseAcceptCriterion"), "Producer");
    EXPECT_EQ(stored("RiskOption", "FalseAcceptConvention"), "Producer");
    EXPECT_EQ(BaselineScreen(test.session).DefPctInTol2.text, "80,5000");
}

TEST(BaselineScreen, UsingADefaultOfAnotherConvention) {
    TestSession test;
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptCriterion", "Producer");
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptRisk", "812");
    test.settings.WriteSetting("BaselineDefaults", "FalseAcceptUnits", "ppm");
    test.record.FalseAcceptRisk = 2;
    BaselineScreen screen(test.session);
    screen.run(*findItem(screen.menus, "mnu_ShowDefaults"));
    press(screen, "Cmd_RetrieveDefaultBaseline");
    EXPECT_EQ(screen.BaseFalseAccept.text, "812");
    test.ui.expectBox(optionTitle, usedDefault, Answer::Cancel, okCancel);
    EXPECT_FALSE(screen.close(Way::Ok));
    test.ui.expectBox(optionTitle, usedDefault, okCancel);
    EXPECT_TRUE(screen.close(Way::Ok));
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
    screen.run(*findItem(screen.menus, "mnu_ShowDefaults"));
    press(screen, "Cmd_RetrieveDefaultBaseline");
    EXPECT_EQ(screen.BaselinePctInTol1.text, "96.028");
    EXPECT_TRUE(screen.close(Way::Ok));
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_EQ(test.record.Base_MTEPctInTol, 90.601);
    EXPECT_EQ(test.record.UserOption, "Z540");
}

TEST(FalseAcceptScreen, SettingsTakeTheConventionOnlyAsDefault) {
    TestSession test;
    constexpr const char* keep = "Do you want to keep the new risk option?";
    {
        FalseAcceptScreen screen(test.session);
        EXPECT_TRUE(screen.close(Way::Cancel)) << "nothing changed";
    }
    {
        FalseAcceptScreen screen(test.session);
        press(screen, "ProducerRiskOption");
        test.ui.expectBox("Change Made", keep, Answer::Cancel);
        press(screen, "cmd_Close");
        EXPECT_FALSE(screen.closedBy());
        test.ui.expectBox("Change Made", keep, Answer::No, yesNoCancel);
        press(screen, "cmd_Close");
        EXPECT_FALSE(test.record.RisksNeedCompute);
    }
    FalseAcceptScreen screen(test.session);
    press(screen, "ProducerRiskOption");
    press(screen, "Chk_SetDefault");
    test.ui.expectBox("Change Made", keep, Answer::Yes, yesNoCancel);
    press(screen, "cmd_Close");
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_TRUE(test.record.RisksNeedCompute);
    EXPECT_EQ(ReadFalseAcceptConvention(test.settings), 1);
    const BaselineDefaults defaults = ReadBaselineDefaults(test.settings, 4);
    EXPECT_EQ(defaults.FalseAcceptOption, 1);
    // (0.72 - 0.0375) 0.041/(1 - 0.041) in percent
    EXPECT_EQ(defaults.figures.Base_FalseAccept, 2.92);
}

TEST(EqRatioScreen, ChoicesCountWhenRetained) {
    TestSession test;
    test.record.EqAccRat = 3;
    const auto leave = [&](Way way, std::initializer_list<const char*> pressed) {
        EqRatioScreen screen(test.session);
        for (const char* button : pressed) press(screen, button);
        return screen.close(way);
    };
    EXPECT_TRUE(leave(Way::Cancel, {"BeepOn", "BeepOn"})) << "nothing changed";
    test.ui.expectBox(retainTitle, retain, Answer::Cancel);
    EXPECT_FALSE(leave(Way::Cancel, {"opt_Compute_1"}));
    test.ui.expectBox(retainTitle, retain, Answer::No, yesNoCancel);
    EXPECT_TRUE(leave(Way::Cancel, {"opt_Compute_1"}));
    EXPECT_TRUE(test.record.ComputeEqRatio);
    EXPECT_EQ(test.record.EqAccRat, 3);
    EXPECT_TRUE(leave(Way::Ok, {"OptFalseReject"}));
    EXPECT_FALSE(test.record.EqRatioOnFalseAccept);
    EXPECT_EQ(test.record.EqAccRat, 0) << "the next compute searches again";
    EXPECT_TRUE(test.record.FileChanged);
}

TEST(RiskConvention, RestatesByPpmAndPercent) {
    struct Case {
        double accept;
        const char* units;
        double restated;
        const char* restatedUnits;
    };
    // 0.6825 fa/(1 - fa) of all units
    for (const Case& c : {Case{4.1, "%", 2.92, "%"}, {0.05, "%", 341, "ppm"}, {500, "ppm", 341, "ppm"}}) {
        BaselineDefaults defaults;
        defaults.figures.Base_FalseAccept = c.accept;
        defaults.figures.Base_AcceptUnits = c.units;
        ConvertRiskConvention(defaults, 0);
        EXPECT_EQ(defaults.figures.Base_FalseAccept, c.accept);
        ConvertRiskConvention(defaults, 1);
        EXPECT_EQ(defaults.figures.Base_FalseAccept, c.restated) << c.accept << " " << c.units;
        EXPECT_EQ(defaults.figures.Base_AcceptUnits, c.restatedUnits);
        ConvertRiskConvention(defaults, 0);
        EXPECT_NEAR(riskFraction(defaults.figures.Base_FalseAccept, defaults.figures.Base_AcceptUnits),
                    riskFraction(c.accept, c.units), 2e-6)
            << "and back, but for the rounding of both ways";
    }
}

} // namespace
} // namespace metrisk::testing
