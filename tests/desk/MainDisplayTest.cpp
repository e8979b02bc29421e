// What the main screen shows of a record.
#include "desk/compute/ValidateAndFit.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/mainscreen/ToleranceOptions.h"
#include "desk/shell/MainCommands.h"
#include "desk/shell/Toolbar.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace metrisk::testing {
namespace {

struct NoFiles final : FileChooser {
    std::optional<std::string> chooseToOpen(const FileRequest&) override { return std::nullopt; }
    std::optional<std::string> chooseToSave(const FileRequest&) override { return std::nullopt; }
};

struct Shown : TestSession {
    MainScreen main{session};

    template <class Kind>
    Kind& at(const char* name) {
        main.refresh();
        return control<Kind>(main, name);
    }
    std::string text(const char* name) { return at<Control>(name).text; }
    bool locked(const char* box) { return at<TextBox>(box).locked; }
};

TEST(MainDisplay, RisksBelowOnePpm) {
    struct Case {
        double value;
        const char *units, *picture, *shown;
    };
    for (const Case& c : {Case{0, "ppm", "##0", " < 1"},
                          {0.99, "ppm", "##0", " < 1"},
                          {1, "ppm", "##0", "1"},
                          {0.4, "%", "##0.00", "0.40"},
                          {999.6, "ppm", "##0", "1000"},
                          {0, "%", "##0.00", "0.00"}}) {
        SCOPED_TRACE(std::to_string(c.value) + " " + c.units);
        Shown shown;
        shown.record.FalseAcceptRisk = c.value;
        shown.record.FalseAcceptUnits = c.units;
        shown.record.FalseAccept_fmt = c.picture;
        shown.record.Last_PctInTol = 95; // a compute has ended
        EXPECT_EQ(shown.text("AcceptRisk"), c.shown);
    }
}

TEST(MainDisplay, BaselinePanelHasItsOwnPictures) {
    Shown shown;
    EXPECT_EQ(shown.text("BaseAcceptRisk"), "4.1000");
    EXPECT_EQ(shown.text("BaselineAccRat1Box"), "4.00");
    shown.record.Base_FalseReject = 812.34;
    shown.record.Base_RejectUnits = "ppm";
    EXPECT_EQ(shown.text("BaseRejectRisk"), "812.3");
    EXPECT_EQ(shown.text("AccRatEquivalent1Box") + shown.text("Lbl_EqAccRatColon"), "") << "not searched yet";
    shown.record.EqAccRat = 1234.567;
    shown.record.EqAccRatDen = "1.00";
    EXPECT_EQ(shown.text("AccRatEquivalent1Box"), "1,234.57");
    shown.session.regional = {";", ",", ".", "-"};
    EXPECT_EQ(shown.text("AccRatEquivalent1Box"), "1234,57");
    EXPECT_EQ(shown.text("AccRatEquivalent2Box"), "1,00");
}

TEST(MainDisplay, HeadingsFollowTheConvention) {
    Shown shown;
    EXPECT_EQ(shown.text("Heading_0"), "    COMPUTED RISKS (Consumer Option)");
    shown.record.FalseAcceptOption = 1;
    EXPECT_EQ(shown.text("Heading_1"), "    BASELINE RISKS (Producer Option)");
    EXPECT_TRUE(shown.at<Label>("pnl_RiskLabel_0").emphasised);
    shown.record.EqRatioOnFalseAccept = false;
    EXPECT_FALSE(shown.at<Label>("pnl_RiskLabel_0").emphasised);
    EXPECT_TRUE(shown.at<Label>("pnl_RiskLabel_1").emphasised);
    shown.record.ComputeEqRatio = false;
    EXPECT_FALSE(shown.at<Label>("pnl_RiskLabel_1").emphasised);
}

TEST(MainDisplay, LimitRowsByToleranceKind) {
    struct Case {
        Kind kind;
        bool limits, physical;
        const char *upperLabel, *upper;
        bool upperLocked;
        const char *lowerLabel, *lower;
        bool lowerLocked;
    };
    const Case cases[] = {
        {Kind::TwoSided, false, false, "Upper Tolerance Limit", "500.0 mV", false, "Lower Tolerance Limit",
         "250.0 mV", false},
        {Kind::TwoSided, true, false, "Upper Tolerance", "10.5000 V", false, "Lower Tolerance", "9.7500 V",
         false},
        {Kind::SingleLower, false, false, "Physical Limit", "", true, "Lower Tolerance Limit", "250.0 mV",
         false},
        {Kind::SingleLower, false, true, "Physical Limit", "12.0000 V", false, "Lower Tolerance Limit",
         "250.0 mV", false},
        {Kind::SingleUpper, true, true, "Upper Tolerance", "10.5000 V", false, "Physical Limit", "12.0000 V",
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.upperLabel) + "/" + c.lowerLabel + "/" + c.upper);
        Shown shown;
        Entry entry;
        entry.kind = c.kind;
        entry.lowerOffset = 0.25;
        entry.hasPhysicalLimit = c.physical;
        entry.physicalLimit = 12;
        enter(shown.record, entry);
        shown.record.ShowLimits = c.limits;
        shown.record.NominalUnits = "V";
        shown.record.SU_ToleranceUnits = "mV";
        shown.record.SU_TolUnitsFactor = 1000;
        shown.record.SU_TolDecimalShift = 3;
        EXPECT_EQ(shown.text("pnl_SUUpper"), c.upperLabel);
        EXPECT_EQ(shown.text("UpperLimitBox"), c.upper);
        EXPECT_EQ(shown.locked("UpperLimitBox"), c.upperLocked);
        EXPECT_EQ(shown.text("pnl_SULower"), c.lowerLabel);
        EXPECT_EQ(shown.text("LowerLimitBox"), c.lower);
        EXPECT_EQ(shown.locked("LowerLimitBox"), c.lowerLocked);
        EXPECT_EQ(shown.at<Control>("PhysLimitRequired").enabled, c.kind != Kind::TwoSided);
        EXPECT_EQ(shown.at<Control>("chk_Symmetric").enabled, c.kind == Kind::TwoSided);
        EXPECT_EQ(shown.at<Control>("txt_GuardbandMultiplier_0").visible, c.kind != Kind::SingleLower);
    }
}

TEST(MainDisplay, EmptyLimitBoxesShowWhatTheyAskFor) {
    struct Row {
        bool limits, physical;
        const char *upper, *lower;
    };
    for (const Row& row : {Row{false, false, "e.g. 0.5", "e.g. 0.5"},
                           {true, false, "e.g. 10.5", "e.g. 9.5"},
                           {false, true, "e.g. 0.5", "e.g. 0"},
                           {true, true, "e.g. 10.5", "e.g. 0"}}) {
        Shown shown;
        shown.record.ShowLimits = row.limits;
        shown.record.OptTwoSided = !row.physical;
        shown.record.OptSingleUpper = shown.record.PhysLimitRequired = row.physical;
        EXPECT_EQ(shown.at<TextBox>("UpperLimitBox").hint, row.upper);
        EXPECT_EQ(shown.at<TextBox>("LowerLimitBox").hint, row.lower);
    }
}

TEST(MainDisplay, UncertaintyModeRelabelsTheMeasuringRow) {
    Shown shown;
    enter(shown.record, Entry{});
    EXPECT_EQ(shown.text("pnl_MTELimit"), "Tolerance Limit");
    EXPECT_TRUE(shown.at<Control>("Lbl_Plus").visible);
    shown.record.MTE_EntryByUncertainty = true;
    shown.record.MTE_StdUncertainty = 0.0625;
    EXPECT_EQ(shown.text("pnl_MTELimit"), "Expanded Uncertainty");
    EXPECT_EQ(shown.text("pnl_PctReading"), "Deg Freedom");
    EXPECT_EQ(shown.text("MTEFixedOffsetBox"), "0.0625");
    EXPECT_FALSE(shown.at<Control>("Lbl_Equals").visible);
}

TEST(MainDisplay, ProcessUncertaintyWidensAndGuardbandsShowBothForms) {
    Shown shown;
    enter(shown.record, Entry{});
    shown.record.ProcessUncertainty = 0.000002;
    shown.record.MTE_ToleranceUnits = "V";
    EXPECT_EQ(shown.text("pnl_ProcessUncertainty"), "0.000002 V");
    shown.record.GB_UpperMult = 0.95;
    EXPECT_EQ(shown.text("txt_GuardbandMultiplier_0"), "0.95");
    press(shown.main, "optGuardbands_0");
    EXPECT_EQ(shown.text("txt_GuardbandMultiplier_0"), "10.475000");
}

TEST(ToleranceOptions, KindChangesForgetThePhysicalLimit) {
    Shown shown;
    enter(shown.record, withPhysicalLimit(Kind::SingleLower, 10, 1, 12, 95));
    chooseTolerance(shown.session, ToleranceKind::SingleLower);
    EXPECT_FALSE(shown.record.FileChanged) << "no real change";
    EXPECT_TRUE(shown.record.PhysicalLimitEntered);
    chooseTolerance(shown.session, ToleranceKind::TwoSided);
    EXPECT_TRUE(shown.record.OptTwoSided);
    EXPECT_FALSE(shown.record.OptSingleLower);
    EXPECT_FALSE(shown.record.PhysLimitRequired);
    EXPECT_EQ(shown.record.PhysicalLimit, 0);
    EXPECT_TRUE(shown.record.ComputeNeeded);
    EXPECT_TRUE(shown.record.FileChanged);
    PhysLimitRequired_Click(shown.session, true);
    EXPECT_FALSE(shown.record.PhysLimitRequired) << "means nothing on two-sided tolerances";
}

TEST(ToleranceOptions, TheKindChosenAlreadyKeepsTheLimitOfTheFit) {
    Shown shown;
    enter(shown.record, twoSided(1, 0.5, 95));
    press(shown.main, "ComputeResults");
    const double fitted = shown.record.PhysicalLimit;
    ASSERT_NE(fitted, 0);
    press(shown.main, "TwoSideOption");
    EXPECT_EQ(shown.record.PhysicalLimit, fitted) << "the risks are of a distribution that ends there";
}

TEST(ToleranceOptions, SymmetryCopiesTheUpperSide) {
    Shown shown;
    Entry entry;
    entry.lowerOffset = 2;
    enter(shown.record, entry);
    shown.record.SU_UpperOffset_fmt = "#,##0.0";
    chk_Symmetric_Click(shown.session, true);
    EXPECT_EQ(shown.record.SU_LowerLimit, 9.5);
    EXPECT_EQ(shown.text("LowerLimitBox"), "0.5");
    EXPECT_TRUE(shown.locked("LowerLimitBox"));
    chk_Symmetric_Click(shown.session, false);
    EXPECT_FALSE(shown.locked("LowerLimitBox"));
    EXPECT_EQ(shown.record.SU_LowerOffset, 0.5);
}

TEST(ToleranceOptions, IncludingProcessUncertaintyFitsAtOnce) {
    Shown shown;
    enter(shown.record, Entry{});
    shown.record.ProcessUncertainty = 0.1;
    chk_IncludeUncertainty_Click(shown.session, true);
    EXPECT_GT(shown.record.MTE_Sigma, 0.1);
    chk_IncludeUncertainty_Click(shown.session, false);
    EXPECT_LT(shown.record.MTE_Sigma, 0.1);
}

TEST(SavedCopy, ListsWhatCountsAsAChange) {
    struct Case {
        const char* name;
        void (*change)(Analysis&);
        bool counts;
    };
    const Case cases[] = {
        {"model number", [](Analysis& r) { r.SU_ModelNumber = "x"; }, false},
        {"description", [](Analysis& r) { r.MTE_Description = "x"; }, false},
        {"qualifier", [](Analysis& r) { r.MTE_Qualifier2 = "x"; }, true},
        {"manufacturer", [](Analysis& r) { r.SU_Manufacturer = "x"; }, true},
        {"nominal units", [](Analysis& r) { r.NominalUnits = "V"; }, true},
        {"mode", [](Analysis& r) { r.SU_Mode += 1e-15; }, true},
        {"physical limit", [](Analysis& r) { r.PhysicalLimit = 1; }, true},
        {"process uncertainty", [](Analysis& r) { r.ProcessUncertainty = 1; }, true},
        {"symmetry", [](Analysis& r) { r.SymmetricTolerances = true; }, true},
        {"guardband", [](Analysis& r) { r.GB_LowerMult = 0.9; }, true},
        {"std uncertainty, last digit", [](Analysis& r) { r.MTE_StdUncertainty *= 1 + 1e-15; }, false},
        {"small std uncertainty", [](Analysis& r) { r.MTE_StdUncertainty *= 1 + 1e-11; }, true},
        {"results", [](Analysis& r) { r.FalseAcceptRisk = 1; }, false},
    };
    for (const Case& c : cases) {
        Shown shown;
        shown.record.MTE_StdUncertainty = 2e-15;
        MainScreen main(shown.session);
        c.change(shown.record);
        main.DetectChanges();
        EXPECT_EQ(shown.record.FileChanged, c.counts) << c.name;
    }
}

/// A typed k-factor is a distance in process uncertainties, whichever screen changed them.
TEST(MainDisplay, TypedKFactorsAreFollowedAfterEveryScreen) {
    NoFiles files;
    struct Row {
        const char* name;
        std::function<void(Shown&)> change;
    };
    const Row rows[] = {{"reliability",
                         [](Shown& s) {
                             s.ui.expectScreen("ReliabilityModelCoefficients", [&s](Worksheet& screen) {
                                 s.record.MTE_Sigma *= 2;
                                 screen.close(Way::Cancel);
                                 s.record.MTE_Sigma *= 2;
                             });
                             s.main.open(screens::reliability[1], {s.session});
                         }},
                        {"observed",
                         [](Shown& s) {
                             s.ui.expectScreen("ObservedPctWorksheet", [&s](Worksheet& screen) {
                                 screen.close(Way::Cancel);
                                 s.record.MTE_Sigma *= 2;
                             });
                             s.main.open(screens::observed, {s.session});
                         }},
                        {"sides", [](Shown& s) {
                             s.record.MTE_Sigma *= 2;
                             press(s.main, "SingleUpperOption");
                         }}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Shown s;
        enter(s.record, Entry{});
        ValidateAndFit(s.session);
        s.record.GB_UpperKEntered = true;
        s.record.GB_UpperK = 1;
        row.change(s);
        EXPECT_NEAR(s.record.GB_UpperMult, 1 - s.record.MTE_Sigma / 0.5, 1e-12);
    }
}

/// A box reads the figure alone: 0.5 mV beside 10 V would be half a volt without a word.
TEST(MainDisplay, AUnitThatIsNotReadIsTold) {
    struct Row {
        const char *text, *nominal, *tolerance;
        bool told;
    };
    for (const Row& row : {Row{"0.5 mV", "", "", true}, Row{"0.5", "", "", false}, Row{"1e-3", "", "", false},
                           Row{"0.5 mV", "V", "mV", false}, Row{"0.5 V", "V", "mV", false},
                           Row{"0.5 kV", "V", "mV", true}, Row{"5%", "", "", false}}) {
        Shown shown;
        shown.record.NominalUnits = row.nominal;
        shown.record.SU_ToleranceUnits = row.tolerance;
        type(shown.main, "UpperLimitBox", row.text);
        EXPECT_EQ(shown.main.nextStep.find("is not read here") != std::string::npos, row.told) << row.text;
        type(shown.main, "UpperLimitBox", "0.25");
        EXPECT_EQ(shown.main.nextStep.find("is not read here"), std::string::npos);
    }
}

TEST(MainDisplay, FiguresOfOtherEntriesFade) {
    Shown shown;
    const auto state = [&] {
        return shown.text("AcceptRisk") + (shown.at<Control>("AcceptRisk").enabled ? "" : " faded") + ", " +
               shown.main.nextStep;
    };
    EXPECT_EQ(state(), ", Enter nominal value, tolerance and % in-tolerance");
    enter(shown.record, Entry{});
    shown.record.MTE_PctInTol = 0;
    shown.main.refresh();
    EXPECT_EQ(state(), ", Enter tolerance and % in-tolerance of the measuring parameter");
    enter(shown.record, Entry{});
    EXPECT_EQ(state(), ", Ready to compute");
    press(shown.main, "ComputeResults");
    const std::string risk = shown.text("AcceptRisk");
    EXPECT_EQ(state(), risk + ", Computed");
    shown.record.GB_UpperMult = 0.9; // as a worksheet leaves it
    shown.main.refresh();
    EXPECT_EQ(state(), risk + ", Computed without the guardbands: Include under Options uses them");
    shown.record.GB_UpperMult = 1;
    type(shown.main, "MTEOffsetBox", "0.2");
    EXPECT_EQ(state(), risk + " faded, Entries changed: compute again");
    type(shown.main, "MTEOffsetBox", "0.125");
    EXPECT_EQ(state(), risk + ", Computed");
    press(shown.main, "chk_IncludeGuardbands");
    EXPECT_EQ(state(), risk + " faded, Entries changed: compute again");
    shown.record.GB_UpperMult = shown.record.GB_LowerMult = -1; // test limits that have crossed
    shown.ui.expectBox("Compute Failed", "Unable to compute risks.  Guardband may be unrealistic.");
    press(shown.main, "ComputeResults");
    EXPECT_EQ(state(), risk + " faded, Not computed for these entries");
    EXPECT_EQ(shown.main.AcceptRisk.toolTip, "Not computed for these entries");
}

TEST(MainDisplay, TheUncertaintyRatioIsOfTheEntriesThatAreShown) {
    for (const char* choice : {"chk_Symmetric", "SingleUpperOption", "SingleLowerOption"}) {
        Shown shown;
        enter(shown.record, twoSided(1, 0.5, 95));
        press(shown.main, "ComputeResults");
        const std::string before = shown.text("pnl_UncRatio");
        press(shown.main, choice);
        const std::string chosen = shown.text("pnl_UncRatio");
        EXPECT_NE(chosen, before) << choice;
        press(shown.main, "ComputeResults");
        EXPECT_EQ(shown.text("pnl_UncRatio"), chosen) << choice;
    }
}

TEST(MainDisplay, ARatioThatNoBaselineHasIsMarked) {
    for (const auto& [ratio, note] :
         {std::pair{0.009, "no such ratio"}, {0.01, ""}, {4, ""}, {10001, "no such ratio"}}) {
        Shown shown;
        shown.record.EqAccRat = ratio;
        shown.record.EqAccRatDen = "1.00";
        EXPECT_EQ(shown.text("Lbl_EqAccRatNote"), note) << ratio;
    }
}

TEST(MainDisplay, TheWorstCaseIsOfTheEntriesThatAreShownOrNotThere) {
    TestSession test;
    enter(test.record, twoSided(1, 1, 95, 0.125 * 1.959963984540054));
    MainScreen screen(test.session);
    press(screen, "ComputeResults");
    const auto line = [&] {
        screen.refresh();
        test.ui.waitFor([&] { return !screen.worstCase.isComputing(); });
        screen.refresh();
        return screen.Lbl_WorstCase.visible ? textOf(screen, "Lbl_WorstCase") : std::string();
    };
    // Dobbert's table: 2.238 % at 64.72 % in-tolerance for a ratio of 4.
    EXPECT_EQ(line(), "At worst 2.24 % joint (64.7 % in-tolerance)");
    EXPECT_NE(screen.Lbl_WorstCase.toolTip.find("conditional (consumer's) 0.91 %, joint (producer's) 0.86 %"),
              std::string::npos)
        << screen.Lbl_WorstCase.toolTip;
    EXPECT_NE(screen.Lbl_WorstCase.toolTip.find("TUR 4.08 : 1"), std::string::npos);
    type(screen, "MTEOffsetBox", "0.3");
    EXPECT_EQ(line(), "") << "the risks are of other entries";
    press(screen, "ComputeResults");
    EXPECT_NE(line(), "");
    screen.worstCase.turn(false);
    EXPECT_EQ(line(), "");
    EXPECT_EQ(test.settings.ReadSetting("MainScreen", "WorstCase", "", 5), "No");
}

TEST(MainCommands, EveryToolHasItsCommandAndNamesAreUnique) {
    TestSession test;
    MainScreen main(test.session);
    NoFiles chooser;
    const MainCommands commands(test.session, main, chooser);
    for (const ToolButton& button : mainToolbar())
        EXPECT_NE(findItem(main.menus, button.command), nullptr) << button.key;
    std::set<std::string> names;
    const std::function<void(const std::vector<MenuItem>&)> walk = [&](const std::vector<MenuItem>& items) {
        for (const MenuItem& item : items) {
            EXPECT_TRUE(names.insert(item.control).second) << item.control;
            walk(item.items);
        }
    };
    walk(main.menus);
    EXPECT_EQ(findItem(main.menus, "mnu_ToleranceLimits")->caption, "&Tol Ref");
}

TEST(MainDisplay, AFigureThatExactIntegrationShowsOtherwiseIsMarked) {
    TestSession test;
    enter(test.record, withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.2, 16));
    test.record.ComputeEqRatio = false;
    MainScreen screen(test.session);
    press(screen, "ComputeResults");
    EXPECT_TRUE(test.record.RisksComputed);
    EXPECT_TRUE(screen.AcceptRisk.mark.starts_with("Exact integration gives ")) << screen.AcceptRisk.text;
    EXPECT_EQ(screen.Lbl_ExactAccept.text, screen.AcceptRisk.mark);
    EXPECT_TRUE(screen.Lbl_ExactAccept.visible);
    type(screen, "PctInTolBox", "90");
    EXPECT_EQ(screen.AcceptRisk.mark, "") << "a figure of other entries is not judged";
    press(screen, "ComputeResults");
    EXPECT_EQ(screen.AcceptRisk.mark, "") << "right in every shown digit";
}

} // namespace
} // namespace metrisk::testing
