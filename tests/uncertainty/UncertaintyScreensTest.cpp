// Flows over the process uncertainty worksheet and the screens above it.
#include "base/NumberText.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/OpenAnalysis.h"
#include "desk/uncertainty/BiasCalcOptionScreen.h"
#include "desk/uncertainty/CorrelationScreen.h"
#include "desk/uncertainty/DataEntryScreen.h"
#include "desk/uncertainty/MTEErrorScreen.h"
#include "drawing/Drawing.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"
#include "uncertainty/BiasAnalysis.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

struct Budget : TestSession {
    std::optional<MTEErrorScreen> screen;

    explicit Budget(void (*change)(Analysis&) = [](Analysis&) {}) {
        ClearAnalysis(session);
        enter(record, twoSided(0.05, 0.05, 95, 0.02, 90));
        ValidateAndFit(session);
        record.MTE_ToleranceUnits = "mV";
        record.MTE_TolUnitsFactor = 1000;
        record.NominalUnits = "V";
        change(record);
        screen.emplace(session);
    }
    FieldResult type(const char* box, const char* text) { return testing::type(*screen, box, text); }
    void press(const char* button) { testing::press(*screen, button); }
    std::string text(const char* name) { return textOf(*screen, name); }
    const Control& shown(const char* name) { return control<Control>(*screen, name); }
    /// A row of a rectangle.
    void rectangle(int row, const char* limit) {
        type(("LimitsBox_" + std::to_string(row)).c_str(), limit);
        type(("ConfidenceBox_" + std::to_string(row)).c_str(), "100");
    }
};

TEST(Budget, FillsRowByRowAndReachesTheFit) {
    Budget b;
    EXPECT_EQ(b.text("txt_Description_0"), "MTE Bias");
    EXPECT_EQ(b.text("LimitsBox_0"), "20.0000");
    EXPECT_EQ(b.text("UncertaintyBox_0"), "12.1591");
    EXPECT_EQ(b.text("txt_ProcessUncertainty"), "0.0000");
    EXPECT_EQ(b.text("txt_ProcessDf"), "");
    b.rectangle(2, "1.0");
    EXPECT_EQ(b.text("UncertaintyBox_2"), "0.577");
    EXPECT_TRUE(b.screen->rows[2].IncludeBox.checked) << "a new uncertainty counts";
    b.type("UncertaintyBox_3", "2.25");
    b.type("txt_DegreesFreedom_3", "9");
    EXPECT_EQ(b.text("txt_DegreesFreedom_3"), "9.00");
    EXPECT_EQ(b.text("txt_ProcessUncertainty"), "2.3229");
    EXPECT_EQ(b.text("MTEErrorSigmaBox"), "12.3790 mV");
    EXPECT_EQ(b.text("txt_ProcessDf"), "10.22");
    EXPECT_EQ(b.text("txt_TotalDegFreedom"), "\u221E") << "8,247 of them";
    EXPECT_EQ(b.text("pnl_Share_3"), "3.3 %");
    EXPECT_EQ(b.screen->rows[3].share.toolTip, "Share of Data Acquisition in the squared total");

    b.press("IncludeBox_0");
    EXPECT_EQ(b.text("MTEErrorSigmaBox"), "2.3229");
    b.press("IncludeBox_2");
    EXPECT_EQ(b.text("txt_ProcessUncertainty"), "2.2500");
    b.type("UncertaintyBox_2", "");
    b.type("UncertaintyBox_2", "0.5");
    EXPECT_TRUE(b.screen->rows[2].IncludeBox.checked) << "an emptied row has forgotten its tick";

    EXPECT_EQ(b.record.ProcessUncertainty, 0) << "OK alone writes the record";
    b.press("OptUncertainty");
    EXPECT_TRUE(b.screen->close(Way::Ok));
    EXPECT_NEAR(b.record.ProcessUncertainty, std::hypot(0.5, 2.25) / 1000, 1e-17);
    EXPECT_EQ(b.record.ErrTableText[3][errorColumn::uncertainty], "2.25");
    EXPECT_EQ(b.record.ErrTableText[5][errorColumn::include], "False");
    EXPECT_EQ(b.record.ErrTableDisplay[4][errorColumn::degFreedom], "9.00");
    EXPECT_FALSE(b.record.IncludeMTEBias);
    EXPECT_TRUE(b.record.FileChanged);
    EXPECT_NEAR(b.record.MTE_Sigma, std::hypot(b.record.MTE_StdUncertainty, b.record.ProcessUncertainty),
                1e-15);
}

TEST(Budget, RefusesAndRestores) {
    Budget b;
    b.type("LimitsBox_4", "2.0");
    const struct {
        const char *box, *text, *title, *message;
        BoxKind kind;
    } cases[] = {
        {"LimitsBox_4", "abc", "Error Limits", "abc is not a valid number.", warning},
        {"UncertaintyBox_4", "1e5000", "Uncertainty", "1e5000 is not a valid number.", warning},
        {"ConfidenceBox_4", "x", "Confidence Level", "x is not a valid number.", warning},
        {"txt_DegreesFreedom_4", "x", "Error Limits", "x is not a valid number.", warning},
        {"LimitsBox_4", "-1", "Improper Input", "Must be greater that zero", note},
        {"ConfidenceBox_4", "101", "Confidence Level", "Must be between 0 and 100.", warning},
        {"PctConfidenceBox", "100", "Confidence Level Error", "Must be between 0 and 100", warning},
        {"PctConfidenceBox", "0", "Confidence Level Error", "Must be between 0 and 100", warning},
        {"CoverageFactorBox", "0", "Coverage Factor Error", "Must be greater than 0.", warning},
    };
    for (const auto& c : cases) {
        const std::string before = b.text(c.box);
        b.ui.expectBox(c.title, c.message, c.kind);
        const FieldResult result = b.type(c.box, c.text);
        EXPECT_TRUE(result.stay) << c.box;
        EXPECT_EQ(result.text, before) << c.box;
        EXPECT_EQ(b.text(c.box), before) << c.box;
    }
    b.type("UncertaintyBox_5", "1.5e308");
    b.ui.expectBox("Measurement Process Uncertainty Worksheet", "1.5e308 is not a valid number.");
    EXPECT_TRUE(b.type("UncertaintyBox_6", "1.5e308").stay) << "no total is finite";
    EXPECT_EQ(b.text("UncertaintyBox_6"), "");
    b.press("IncludeBox_5");
    b.type("UncertaintyBox_6", "1.5e308");
    b.ui.expectBox("Measurement Process Uncertainty", "The figures of the table allow no total.");
    b.press("IncludeBox_5");
    EXPECT_FALSE(b.screen->rows[5].IncludeBox.checked);
}

TEST(Budget, CancelDropsEverything) {
    Budget b;
    b.type("UncertaintyBox_4", "2.0");
    b.press("OptUncertainty");
    EXPECT_TRUE(b.screen->close(Way::Cancel));
    EXPECT_FALSE(b.record.IncludeUncertainty);
    EXPECT_EQ(b.record.ErrTableText[4][errorColumn::uncertainty], "");
    b.screen.reset();
    EXPECT_FALSE(b.record.UncertaintyWorksheetOpen);
}

TEST(Budget, TolerancesAreTheRecordsOwn) {
    Budget b;
    EXPECT_FALSE(b.shown("cmd_Tolerances").enabled);
    b.rectangle(2, "1.0");
    b.screen->openTolerances = [&b] { // as the tolerance offset worksheet would
        EXPECT_TRUE(b.record.OffsetFromUncertainty);
        b.record.MTE_ToleranceUnits = "V";
        b.record.MTE_TolUnitsFactor = 1;
        b.record.MTE_Offset = 0.04;
        b.record.MTE_StdUncertainty = 0.02;
    };
    b.screen->refresh();
    b.press("cmd_Tolerances");
    EXPECT_EQ(b.text("UncertaintyBox_0"), "0.0200");
    EXPECT_EQ(b.text("LimitsBox_2"), "0.001");
    EXPECT_EQ(b.text("UncertaintyBox_2"), "0.000577");
    EXPECT_TRUE(b.screen->close(Way::Cancel));
    EXPECT_EQ(b.record.MTE_Offset, 0.04);
    EXPECT_EQ(b.record.ErrTableText[2][errorColumn::limit], "");
}

TEST(Budget, NamesCanBecomeTheDefaultOnes) {
    Budget b;
    b.type("txt_Description_5", "Thermal \"EMF\"");
    b.type("txt_Description_6", " ");
    b.ui.expectBox(
        "Error Source Name Change",
        "You have changed one or more error source names.  Do you want the current names to be the "
        "default names?",
        Answer::Yes);
    EXPECT_TRUE(b.screen->close(Way::Ok));
    EXPECT_EQ(b.record.ErrorSourceName[5], "Thermal \u2033EMF\u2033");
    EXPECT_EQ(b.record.ErrorSourceName[6], "Miscellaneous");
    EXPECT_EQ(b.settings.ReadSetting("ErrorSourceNames", "Ancillary", "", 30), "Thermal \u2033EMF\u2033");
    b.screen.emplace(b.session);
    EXPECT_TRUE(b.screen->close(Way::Ok)) << "they are the default now";
}

TEST(Budget, CorrelationsByHandAndByMouse) {
    Budget b;
    b.type("UncertaintyBox_2", "3");
    b.type("UncertaintyBox_3", "4");
    b.type("txt_Description_3", "MTE Resolution");
    b.ui.expectScreen("CorrelationList", [&](Worksheet& s) {
        EXPECT_EQ(cellOf(s, "lst_Variable_0", 3, 0).text, "MTE Resolution (row 3)");
        auto& first = control<Table>(s, "lst_Variable_0");
        auto& second = control<Table>(s, "lst_Variable_1");
        s.drop(first, 3, second, 2); // either order is the same pair
        typeCell(s, "ss", 0, 2, "-0.9996");
        EXPECT_EQ(cellOf(s, "ss", 0, 2).text, "-0.9996");
        s.drop(first, 4, second, 4);
        selectCells(s, "lst_Variable_0", {2, 0, 2, 0});
        selectCells(s, "lst_Variable_1", {3, 0, 3, 0});
        press(s, "cmd_AddPair");
        EXPECT_EQ(control<Table>(s, "ss").rows.size(), 1u) << "one entry a pair, none with itself";
        for (const char* refused : {"1.01", "x"}) {
            b.ui.expectBox("Unlawful Entry", "The correlation coefficient must be between -1 and 1.", note);
            typeCell(s, "ss", 0, 2, refused);
            EXPECT_EQ(cellOf(s, "ss", 0, 2).text, "");
        }
        paste(s, "ss", 0, 2, "-1");
        s.drop(first, 0, second, 8); // stays without a coefficient
        s.drop(first, 1, second, 8);
        selectCells(s, "ss", {2, 0, 2, 0});
        choose(s, "mnu_ClearPair");
        EXPECT_EQ(control<Table>(s, "ss").rows.size(), 2u);
        EXPECT_TRUE(s.close(Way::Ok));
    });
    choose(*b.screen, "mnu_Correlations");
    EXPECT_EQ(b.text("txt_ProcessUncertainty"), "1.0000") << "4 - 3";
    EXPECT_EQ(b.text("pnl_Share_2"), "-2.0 %");
    EXPECT_EQ(b.text("Lbl_Contradiction"), "");

    b.type("UncertaintyBox_4", "1");
    b.ui.expectScreen("CorrelationList", [](Worksheet& s) {
        auto& first = control<Table>(s, "lst_Variable_0");
        auto& second = control<Table>(s, "lst_Variable_1");
        for (int row : {2, 3}) s.drop(first, row, second, 4);
        paste(s, "ss", 1, 2, "1\n1\n");
        EXPECT_TRUE(s.close(Way::Ok));
    });
    choose(*b.screen, "mnu_Correlations");
    EXPECT_NE(b.text("Lbl_Contradiction"), "");
    b.ui.expectBox("Correlation Coefficients",
                   "The correlation coefficients contradict each other: no errors are correlated like that.");
    b.ui.expectBox(
        "Error Source Name Change",
        "You have changed one or more error source names.  Do you want the current names to be the "
        "default names?",
        Answer::No);
    EXPECT_TRUE(b.screen->close(Way::Ok));
}

/// 100,000 rows of a spreadsheet, with decimal commas, blanks and words.
std::string longColumn() {
    std::string column = "reading\r\n10,0101\r\n\r\n9,998\r\n";
    for (int i = 0; i < 99996; ++i) column += "10,000\t7\r\n";
    return column;
}

/// OK of a grid without samples wiped what had been typed into the row.
TEST(Samples, NoneLeaveATypedRowUnlessAsked) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        Budget b;
        b.type("UncertaintyBox_7", "1.5");
        b.type("txt_DegreesFreedom_7", "1e300");
        EXPECT_EQ(b.text("txt_ProcessDf"), "\u221E");
        b.ui.expectScreen("DataEntryWorksheet", [](Worksheet& s) { s.close(Way::Ok); });
        b.ui.expectBox("Measured Values", "No samples are entered. Clear this error source?", answer, yesNo);
        b.press("cmd_Random_1");
        EXPECT_EQ(b.text("UncertaintyBox_7"), answer == Answer::No ? "1.5" : "");
    }
}

TEST(Samples, PastedTypedAndTurned) {
    Budget b;
    b.ui.expectScreen("DataEntryWorksheet", [](Worksheet& s) {
        EXPECT_EQ(s.caption, "Subject Parameter Data Entry");
        EXPECT_EQ(control<Table>(s, "ss").headings.front(), "Measured Deviation (mV)");
        press(s, "measOption_1");
        paste(s, "ss", 0, 0, longColumn());
        EXPECT_EQ(textOf(s, "Lbl_Taken"), "198 of 99999 taken");
        EXPECT_TRUE(cellOf(s, "ss", 0, 0).marked);
        EXPECT_EQ(cellOf(s, "ss", 1, 0).text, "10.0101");
        EXPECT_EQ(cellOf(s, "ss", 3, 0).text, "9.998");
        EXPECT_EQ(textOf(s, "SampleSizePanel"), "198");
        selectCells(s, "ss", {4, 0, 199, 0});
        choose(s, "CtrlDeleteRow");
        selectCells(s, "ss", {0, 0, 0, 0});
        choose(s, "CtrlDeleteRow");
        EXPECT_EQ(textOf(s, "SampleSizePanel"), "2");
        typeCell(s, "ss", 1, 0, "10.003"); // into the blank row
        EXPECT_EQ(textOf(s, "MeanValuePanel"), "10.0037 V");

        press(s, "measOption_0");
        EXPECT_EQ(cellOf(s, "ss", 0, 0).text, "10.1");
        EXPECT_EQ(cellOf(s, "ss", 2, 0).text, "-2");
        EXPECT_EQ(textOf(s, "MeanValuePanel"), "3.7000 mV");
        EXPECT_EQ(textOf(s, "StdDeviationPanel"), "6.0803 mV");
        press(s, "measOption_1");
        EXPECT_EQ(cellOf(s, "ss", 0, 0).text, "10.0101") << "as typed";

        selectCells(s, "ss", {0, 0, 1, 0});
        choose(s, "CtrlFillDown");
        EXPECT_EQ(cellOf(s, "ss", 1, 0).text, "10.0101");
        choose(s, "CtrlInsert");
        EXPECT_EQ(cellOf(s, "ss", 2, 0).text, "10.0101");
        EXPECT_EQ(textOf(s, "SampleSizePanel"), "3");
        EXPECT_NE(textOf(s, "pic_Samples").find("3 samples"), std::string::npos);
        Drawing drawing;
        control<PictureArea>(s, "pic_Samples").paint()(drawing);
        EXPECT_NE(drawing.text().find("10.0061"), std::string::npos) << drawing.text();
        press(s, "chk_SamplingDistribution");
        EXPECT_TRUE(s.close(Way::Ok));
    });
    b.press("cmd_Random_1");
    EXPECT_EQ(b.text("UncertaintyBox_7"), "4.0333") << "of the mean";
    EXPECT_EQ(b.text("txt_DegreesFreedom_7"), "2.00");
    EXPECT_EQ(b.text("ConfidenceBox_7"), "95");
    EXPECT_EQ(b.text("LimitsBox_7"), "17.3540");
    EXPECT_TRUE(b.shown("SUBiasBox").enabled);

    b.type("UncertaintyBox_8", "1");
    EXPECT_FALSE(b.shown("SUBiasBox").enabled) << "the results belong to other entries";
    EXPECT_EQ(b.shown("SUBiasBox").toolTip, "Not computed for these entries");
    b.press("cmd_BiasAnalysis");
    EXPECT_TRUE(b.shown("SUBiasBox").enabled);
    b.type("CoverageFactorBox", "2");
    EXPECT_EQ(b.text("PctConfidenceBox"), "95.45");
    EXPECT_NEAR(2 * ParseValue(b.text("SUUncertaintyBox"), {}),
                ParseValue(b.text("SUUncertaintyLimitsBox"), {}), 2e-4);
    b.type("PctConfidenceBox", "95");
    EXPECT_EQ(b.text("CoverageFactorBox"), "1.9600");
}

TEST(Samples, RefusalsLoseNothing) {
    Budget b;
    b.ui.expectScreen("DataEntryWorksheet", [&b](Worksheet& s) {
        typeCell(s, "ss", 199, 0, "1");
        selectCells(s, "ss", {0, 0, 0, 0});
        choose(s, "CtrlInsert");
        EXPECT_EQ(textOf(s, "Lbl_Taken"), "The grid holds no more than 200 rows.");
        EXPECT_EQ(cellOf(s, "ss", 199, 0).text, "1");
        b.ui.expectBox("Measured Values", "The samples are too far apart for their statistics.");
        typeCell(s, "ss", 0, 0, "1e200");
        EXPECT_EQ(cellOf(s, "ss", 0, 0).text, "");
        EXPECT_TRUE(s.close(Way::Cancel));
    });
    b.press("cmd_Random_0");
    EXPECT_EQ(b.record.Stat_SampleSize[1], 0);
}

TEST(Budget, SurvivesAFile) {
    const TemporaryFolder folder;
    Budget b;
    b.rectangle(2, "1.0");
    b.type("UncertaintyBox_3", "2.250");
    b.ui.expectScreen("DataEntryWorksheet", [](Worksheet& s) {
        paste(s, "ss", 0, 0, "1.25\n-0.5\n0.75\n");
        EXPECT_TRUE(s.close(Way::Ok));
    });
    b.press("cmd_Random_0");
    b.press("OptUncertainty");
    EXPECT_TRUE(b.screen->close(Way::Ok));
    const Analysis before = b.record;
    WriteAnalysis(b.session, (folder / "budget.mrk").string());
    OpenAnalysis(b.session, (folder / "budget.mrk").string());
    EXPECT_EQ(b.record.ErrTableText, before.ErrTableText);
    EXPECT_EQ(b.record.Stat_Sample, before.Stat_Sample);
    EXPECT_DOUBLE_EQ(b.record.ProcessUncertainty, before.ProcessUncertainty);
    EXPECT_TRUE(b.record.SMPC_Computed);
    b.screen.emplace(b.session);
    EXPECT_TRUE(BiasResultsStand(b.record, b.session.regional));
    EXPECT_EQ(b.text("UncertaintyBox_2"), "0.577");
    EXPECT_EQ(b.text("UncertaintyBox_3"), "2.250");

    // Damage: refused once, as the boxes would.
    b.record.ErrTableText[3][errorColumn::uncertainty] = "-2";
    b.record.ErrTableText[5][errorColumn::limit] = "-1";
    WriteAnalysis(b.session, (folder / "damaged.mrk").string());
    b.ui.expectBox("Improper Input", "Must be greater that zero", note);
    OpenAnalysis(b.session, (folder / "damaged.mrk").string());
    EXPECT_EQ(b.record.ErrTableText[3][errorColumn::uncertainty], "");
    EXPECT_EQ(b.record.ErrTableText[3][errorColumn::include], "False");
    EXPECT_EQ(b.record.ErrTableText[5][errorColumn::limit], "");
}

TEST(BiasReference, TakesTheModelsFigure) {
    TestSession t;
    enter(t.record, Entry{});
    ValidateAndFit(t.session);
    Analysis& r = t.record;
    r.Rel_Model[1] = "Exponential";
    r.Rel_Theta[1][1] = 0.99;
    r.Rel_Theta[2][1] = 0.01; // per month
    r.Rel_Interval[1] = 12;
    r.Rel_IntervalUnits[1] = "Months";
    r.Rel_EOP[1] = 0.88;
    BiasCalcOptionScreen screen(t.session, 1);
    EXPECT_EQ(screen.caption, "Measuring Parameter % In-Tolerance Reference");
    EXPECT_TRUE(screen.BiasOption_1.checked) << "a measuring parameter is used at any time";
    t.ui.expectBox("% In-Tolerance Reference", "This option gives no % in-tolerance.");
    EXPECT_FALSE(screen.close(Way::Ok)) << "AOP is not known";
    press(screen, "BiasOption_0");
    EXPECT_EQ(screen.InTolPanel.text, "88.0000");
    press(screen, "BiasOption_2");
    EXPECT_EQ(screen.InTolPanel.text, "");
    type(screen, "TimeBox", "0.5");
    screen.choose(screen.TimeUnitsBox, 4); // years
    EXPECT_EQ(screen.InTolPanel.text, "93.2347") << "99 exp(-0.06)";
    EXPECT_TRUE(screen.close(Way::Ok));
    EXPECT_NEAR(r.MTE_PctInTol, 99 * std::exp(-0.06), 1e-12);
    EXPECT_EQ(r.Rel_BiasOption[1], "User");
    EXPECT_EQ(r.Rel_UserTimeUnits[1], "Years");
    EXPECT_EQ(r.RelWorksheetTarget, "MTE");
    EXPECT_TRUE(r.FileChanged);
    EXPECT_NEAR(r.MTE_Sigma, 0.125 / 1.8281, 1e-4);

    r.Rel_EOP[1] = 1; // 100 % is no tolerance that can be fitted
    BiasCalcOptionScreen refused(t.session, 1);
    press(refused, "BiasOption_0");
    const double before = r.MTE_PctInTol;
    t.ui.expectBox("% In-Tolerance Reference", "The parameter cannot be fitted with this % in-tolerance.");
    EXPECT_FALSE(refused.close(Way::Ok));
    EXPECT_EQ(r.MTE_PctInTol, before);
    EXPECT_FALSE(r.AbortFlag);
}

} // namespace
} // namespace metrisk::testing
