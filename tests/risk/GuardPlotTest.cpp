// The risk plot and the map as a user meets them, without Qt.
#include "desk/sweeps/GuardPlot.h"
#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/guardband/GuardbandScreen.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/sweeps/RiskMapScreen.h"
#include "drawing/Drawing.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

namespace metrisk::testing {
namespace {

struct Plotted : TestSession {
    explicit Plotted(const Entry& entry = twoSided(0.5, 0.5, 90)) {
        enter(record, entry);
        record.SU_ToleranceUnits = record.MTE_ToleranceUnits = "mm";
        FitMeasuringParameter(session);
        FitSubjectParameter(session);
    }
};

void enterRange(Worksheet& s, const char* from, const char* to, const char* points) {
    type(s, "LowerLimitBox", from);
    type(s, "UpperLimitBox", to);
    type(s, "NumberPointsBox", points);
}

bool commandsOn(Worksheet& s) {
    return findItem(s.menus, "mnu_CopyData")->enabled() && findItem(s.menus, "mnu_CopyGraph")->enabled() &&
           findItem(s.menus, "mnu_PrintGraph")->enabled();
}

std::string drawn(Worksheet& s, const char* picture) {
    Drawing drawing;
    const auto& area = control<PictureArea>(s, picture);
    if (area.paint()) area.paint()(drawing);
    return drawing.text();
}

constexpr const char* modifiedTitle = "Automatic Plot Modifications";
constexpr const char* modifiedText =
    "Risk could not be computed for all specified points.  Appropriate changes have been made.";

TEST(GuardPlot, RefusesBadRanges) {
    struct Row {
        Swept swept;
        const char *from, *to, *points, *title, *text, *focus;
    };
    constexpr const char* lower = "Lower Limit Multiplier";
    constexpr const char* upper = "Upper Limit Multiplier";
    constexpr const char* above = "Must be greater than the lower multiplier.";
    constexpr const char* count = "Must be between 2 and 31.";
    const Row rows[] = {
        {Swept::Multiplier, "0", "1", "0", lower, "Must be greater than zero.", "LowerLimitBox"},
        {Swept::Multiplier, "text", "1", "5", lower, "Must be greater than zero.", "LowerLimitBox"},
        {Swept::Multiplier, "0.5", "-1", "5", upper, "Must be between greater than zero.", "UpperLimitBox"},
        {Swept::Multiplier, "1", "0.5", "5", upper, above, "UpperLimitBox"},
        {Swept::KFactor, "0", "0", "5", upper, above, "UpperLimitBox"},
        {Swept::Multiplier, "0.5", "1", "1", "Number of Points", count, "NumberPointsBox"},
        {Swept::Multiplier, "0.5", "1", "32", "Number of Points", count, "NumberPointsBox"},
        {Swept::Multiplier, "0.5", "1", "many", "Number of Points", count, "NumberPointsBox"},
    };
    for (const Row& row : rows) {
        Plotted t;
        GuardPlot s(t.session, row.swept);
        enterRange(s, row.from, row.to, row.points);
        t.ui.expectBox(row.title, row.text);
        press(s, "CmdPlotGraph");
        t.ui.verifyAllShown();
        EXPECT_EQ(t.ui.focusMoves.back(), std::string("GuardPlot.") + row.focus + " selected");
        EXPECT_EQ(t.record.PlotPointCount, 0);
        EXPECT_FALSE(commandsOn(s));
    }
}

TEST(GuardPlot, PercentagesAreBelow100) {
    Plotted t;
    GuardPlot s(t.session, Swept::SubjectPct);
    type(s, "UpperLimitBox", "99");
    t.ui.expectBox("Illegal Input", "Percent in-tolerance must be less than 100%.");
    EXPECT_TRUE(type(s, "UpperLimitBox", "100").stay);
    EXPECT_EQ(textOf(s, "UpperLimitBox"), "99");
}

TEST(GuardPlot, PlotsCopiesAndPrints) {
    Plotted t;
    const Analysis before = t.record;
    t.ui.printerWorks = false;
    GuardPlot s(t.session, Swept::Multiplier);
    EXPECT_EQ(s.caption, "Risk vs. Guardband Multiplier");
    EXPECT_EQ(textOf(s, "pnl_PlotPointsHdr"), "  Plot Guardband Multiplier");
    EXPECT_EQ(textOf(s, "NumberPointsBox"), "11");
    enterRange(s, "0.6", "1", "3.9");
    press(s, "CmdPlotGraph");
    EXPECT_TRUE(commandsOn(s));
    EXPECT_EQ(t.ui.yields, 3);
    EXPECT_EQ(t.ui.busyDepth, 0);
    choose(s, "mnu_CopyData");
    EXPECT_EQ(t.ui.textsCopied.back(),
              "Guardband Multiplier\n"
              "Subject Parameter Standard Uncertainty:  0.3040 mm\n"
              "Measurement Uncertainty:  0.0638 mm\n"
              "(Consumer Option)\n"
              "Guardband Multiplier\tFalse Accept Risk (Consumer Option)\tFalse Reject Risk\n"
              ".600\t.001\t23.411\n"
              ".800\t.119\t9.875\n"
              "1.000\t1.564\t2.140\n");
    choose(s, "mnu_CopyGraph");
    EXPECT_EQ(t.ui.picturesCopied, 1);
    t.ui.expectBox("Print Graph", "The graph could not be printed.");
    choose(s, "mnu_PrintGraph");
    EXPECT_EQ(t.record.MTE_StdUncertainty, before.MTE_StdUncertainty);
    EXPECT_EQ(t.record.SU_Sigma, before.SU_Sigma);
    EXPECT_EQ(t.record.GB_UpperMult, before.GB_UpperMult);
    EXPECT_EQ(t.record.FileChanged, before.FileChanged);

    type(s, "UpperLimitBox", "1.1");
    EXPECT_FALSE(commandsOn(s)) << "the plot is not of this range";
}

TEST(GuardPlot, TheFifthPointFails) {
    Plotted t;
    GuardPlot s(t.session, Swept::KFactor);
    enterRange(s, "0", "9.80", "6"); // the test limits meet at a k of 7.84
    t.ui.expectBox(modifiedTitle, modifiedText, note);
    press(s, "CmdPlotGraph");
    EXPECT_EQ(textOf(s, "LowerLimitBox"), "0");
    EXPECT_EQ(textOf(s, "UpperLimitBox"), "5.88");
    EXPECT_EQ(textOf(s, "NumberPointsBox"), "4");
    EXPECT_EQ(t.record.PlotPointCount, 4);
    EXPECT_TRUE(commandsOn(s));
}

TEST(GuardPlot, CancelKeepsWhatThereIs) {
    for (const int stage : {1, 4}) {
        Plotted t;
        GuardPlot s(t.session, Swept::Multiplier);
        enterRange(s, "0.5", "1", "11");
        t.ui.onYield = [&] {
            EXPECT_FALSE(control<Button>(s, "CmdPlotGraph").enabled);
            if (t.ui.yields == stage) press(s, "CmdCancelPlot");
        };
        t.ui.expectBox(modifiedTitle, modifiedText, note);
        press(s, "CmdPlotGraph");
        t.ui.verifyAllShown();
        EXPECT_EQ(t.record.PlotPointCount, stage == 1 ? 0 : 4) << "one point is no plot";
        EXPECT_EQ(textOf(s, "UpperLimitBox"), stage == 1 ? "1" : "0.7"); // 0.65 shown with one decimal
        EXPECT_EQ(commandsOn(s), stage != 1);
        EXPECT_FALSE(control<Panel>(s, "MessagePanel").visible);
    }
    Plotted t; // closed while it computes: no boxes, but it closes
    GuardPlot s(t.session, Swept::Multiplier);
    enterRange(s, "0.5", "1", "11");
    t.ui.onYield = [&] {
        const bool third = t.ui.yields == 3;
        EXPECT_FALSE(third && s.close(Way::Cancel));
    };
    press(s, "CmdPlotGraph");
    EXPECT_TRUE(s.closedBy());
}

TEST(GuardPlot, KeysInTheBoxes) {
    Plotted t;
    GuardPlot s(t.session, Swept::Multiplier);
    auto& lower = control<TextBox>(s, "LowerLimitBox");
    type(s, "UpperLimitBox", "");
    type(s, "LowerLimitBox", "0.5");
    s.pressReturn(lower);
    EXPECT_EQ(t.ui.focusMoves.back(), "GuardPlot.UpperLimitBox selected");
    s.edit(lower, "0.7");
    s.pressEscape(lower);
    EXPECT_EQ(lower.text, "0.5");
    type(s, "UpperLimitBox", "1");
    s.pressReturn(control<TextBox>(s, "NumberPointsBox"));
    EXPECT_EQ(t.record.PlotPointCount, 11);
}

TEST(GuardPlot, ComesBackOnlyIfNothingHasChanged) {
    Plotted t;
    {
        GuardPlot s(t.session, Swept::MeasuringPct);
        enterRange(s, "80", "95", "5");
        press(s, "CmdPlotGraph");
    }
    const auto opened = [&](Swept swept, bool plotted, const char* from) {
        GuardPlot s(t.session, swept);
        EXPECT_EQ(commandsOn(s), plotted);
        EXPECT_EQ(textOf(s, "LowerLimitBox"), from);
        EXPECT_EQ(textOf(s, "NumberPointsBox"), std::string_view(from) == "80" ? "5" : "11");
    };
    opened(Swept::MeasuringPct, true, "80");
    opened(Swept::SubjectPct, false, "45");
    t.record.MTE_DegFreedom = 7;
    opened(Swept::MeasuringPct, false, "80");
    ClearWorksheets(t.session.record, t.session.settings);
    opened(Swept::MeasuringPct, false, "45");
}

/// Whoever has not asked for a plot yet sees one with round ticks; the analysis stays as it is.
TEST(GuardPlot, OpensDrawnOverAProposedRange) {
    struct Row {
        Swept swept;
        const char *from, *ticks[2], *present;
    };
    for (const Row& row : {Row{Swept::Multiplier, "0.75", {"\"0.85\"", "\"1.15\""}, "present 1.00"},
                           Row{Swept::SubjectPct, "45", {"\"55\"", "\"85\""}, "present 90.00"},
                           Row{Swept::MeasuringPct, "45", {"\"55\"", "\"85\""}, "present 95.00"}}) {
        Plotted t;
        GuardPlot s(t.session, row.swept);
        EXPECT_EQ(textOf(s, "LowerLimitBox"), row.from);
        for (const std::string text : {row.ticks[0], row.ticks[1], row.present})
            EXPECT_NE(drawn(s, "Graph1").find(text), std::string::npos) << text << drawn(s, "Graph1");
        EXPECT_EQ(t.record.PlotPointCount, 0);
        EXPECT_EQ(t.record.PlotLowerText + t.record.GuardPlotMode, "");
        EXPECT_FALSE(commandsOn(s));
    }
}

TEST(GuardPlot, ThePresentPointStandsOnTheCurve) {
    struct Row {
        Swept swept;
        const char* option;
        bool asked, follows;
    };
    for (const Row& row : {Row{Swept::SubjectPct, "chk_IncludeGuardbands", true, false},
                           Row{Swept::SubjectPct, "chk_IncludeGuardbands", false, true},
                           Row{Swept::MeasuringPct, "chk_IncludeMTESigma", true, false},
                           Row{Swept::MeasuringPct, "chk_IncludeMTESigma", false, true}}) {
        Plotted t;
        t.record.GB_UpperMult = t.record.GB_LowerMult = 0.8;
        t.record.ProcessUncertainty = 0.1;
        t.record.ErrTableText[2] = {};
        t.record.ErrTableText[2][3] = "0.1";
        t.record.ErrTableText[2][4] = "True";
        GuardPlot s(t.session, row.swept);
        if (row.asked) press(s, "CmdPlotGraph");
        const std::string before = drawn(s, "Graph1");
        press(s, row.option);
        press(s, "Chk3D_ThickLines"); // draws again
        press(s, "Chk3D_ThickLines");
        EXPECT_EQ(drawn(s, "Graph1") != before, row.follows) << row.option;
        press(s, "CmdPlotGraph");
        EXPECT_NE(drawn(s, "Graph1"), before) << row.option;
    }
}

TEST(GuardPlot, DrawsEachRiskInItsUnit) {
    Plotted t(twoSided(0.5, 0.5, 99.9, 0.05));
    GuardPlot s(t.session, Swept::Multiplier);
    enterRange(s, "0.9", "1", "6");
    press(s, "CmdPlotGraph");
    EXPECT_NE(drawn(s, "Graph1").find("\"Risk (ppm)\""), std::string::npos);
    EXPECT_NE(drawn(s, "Graph1").find("False Accept Risk vs. Guardband Multiplier (Consumer Option)"),
              std::string::npos);
    press(s, "Opt_Both");
    EXPECT_NE(drawn(s, "Graph1").find("\"FA Risk (ppm)\""), std::string::npos);
    EXPECT_NE(drawn(s, "Graph1").find("\"FR Risk (%)\""), std::string::npos);
    EXPECT_NE(drawn(s, "Graph1").find("Decision Risk vs. "), std::string::npos);
}

TEST(GuardPlot, ShowsTheUncertaintyOnTheAxis) {
    Plotted t;
    GuardPlot s(t.session, Swept::SubjectPct);
    enterRange(s, "80", "95", "2");
    press(s, "CmdPlotGraph");
    EXPECT_FLOAT_EQ(t.record.PlotX[2], 95);
    press(s, "optShowSigma");
    EXPECT_NEAR(t.record.PlotX[2], 0.2551067, 1e-6);
    EXPECT_NE(drawn(s, "Graph1").find("Subject Parameter Standard Uncertainty (mm)"), std::string::npos);
    EXPECT_EQ(textOf(s, "UpperLimitBox"), "95");
}

TEST(GuardPlot, SmoothCurveHasAPointAPixel) {
    Plotted t;
    GuardPlot s(t.session, Swept::Multiplier);
    enterRange(s, "0.5", "1.2", "5");
    press(s, "CmdPlotGraph");
    press(s, "chk_SmoothCurve");
    t.ui.waitFor([&] { return !s.isSmoothing(); });
    const auto lines = [&] {
        const std::string text = drawn(s, "Graph1");
        std::size_t count = 0;
        for (std::size_t at = 0; (at = text.find("#1f66b8", at)) != text.npos; ++at) ++count;
        return count;
    };
    EXPECT_GE(lines(), 799u);
    EXPECT_NE(drawn(s, "Graph1").find("Greatest FA 5.05 % at 1.2000"), std::string::npos)
        << textOf(s, "Graph1");
    s.resize(control<PictureArea>(s, "Graph1"), 366, 300);
    t.ui.waitFor([&] { return !s.isSmoothing(); });
    EXPECT_NEAR(static_cast<double>(lines()), 302, 5);
    press(s, "chk_SmoothCurve");
    EXPECT_LT(lines(), 10u);
}

TEST(GuardPlot, MarksPointsWhoseDigitsAreNotExact) {
    for (const double offset : {0.125, 0.0085}) {
        Plotted t(twoSided(0.5, 0.5, 95));
        t.record.MTE_Offset = offset;
        FitMeasuringParameter(t.session);
        GuardPlot s(t.session, Swept::Multiplier);
        enterRange(s, "0.845", "1", "4");
        press(s, "CmdPlotGraph");
        EXPECT_EQ(textOf(s, "Graph1").find("not the exact figure") == std::string::npos, offset > 0.1)
            << textOf(s, "Graph1");
    }
}

TEST(GuardPlot, OpensFromTheOtherScreens) {
    Plotted t;
    t.record.GB_SymmetricK = true;
    t.record.GB_SymmetricMult = false;
    t.ui.expectScreen("GuardPlot",
                      [](Worksheet& s) { EXPECT_EQ(s.caption, "Risk vs. k-Factor Multiplier"); });
    GuardbandScreen guardbands(t.session);
    press(guardbands, "CmdPlot");

    t.ui.expectScreen("BaselineAnalysis", [](Worksheet& baseline) {
        type(baseline, "BaselinePctInTol1", "85");
        type(baseline, "BaselinePctInTol2", "72");
        type(baseline, "BaseAccRat1", "10");
        type(baseline, "BaseAccRat2", "2");
        choose(baseline, "mnu_Plot");
        baseline.close(Way::Cancel);
    });
    t.ui.expectScreen("GuardPlot", [&](Worksheet& s) {
        EXPECT_EQ(textOf(s, "txt_SUPctInTol"), "72.0000");
        EXPECT_NE(drawn(s, "Graph1").find("present 5.00"), std::string::npos) << "the ratio typed there";
        enterRange(s, "2", "10", "3");
        press(s, "CmdPlotGraph");
        choose(s, "mnu_CopyData");
        EXPECT_EQ(t.ui.textsCopied.back().find("Baseline Accuracy Ratio\n(Consumer Option)\n"), 0u);
        press(s, "Opt_Both");
    });
    t.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
    runScreen(screens::baseline, {t.session});
}

TEST(RiskMap, FollowsItsControls) {
    Plotted t;
    RiskMapScreen s(t.session);
    t.ui.waitFor([&] { return !s.isComputing(); });
    const auto& here = textOf(s, "Lbl_Here");
    EXPECT_EQ(here,
              "Present analysis: Accuracy Ratio 4.00, Subject Parameter % In-Tolerance 90.00, False Accept "
              "Risk 1.5645 %, False Reject Risk 2.1404 %");
    const std::string before = drawn(s, "pic_Map");
    EXPECT_FALSE(control<Slider>(s, "sld_Ratio").enabled);
    s.slide(control<Slider>(s, "sld_Multiplier"), 0.8);
    EXPECT_EQ(textOf(s, "Lbl_Multiplier"), "Guardband Multiplier: 0.80");
    t.ui.waitFor([&] { return !s.isComputing(); });
    EXPECT_NE(drawn(s, "pic_Map"), before);
    control<PictureArea>(s, "pic_Map").clicked(0.5, 0.5);
    s.refresh();
    EXPECT_EQ(here.find("Clicked: Accuracy Ratio "), 0u) << here;
    control<PictureArea>(s, "pic_Map").clicked(0.01, 0.5);

    s.choose(control<Choice>(s, "cbo_X"), 1); // the quantity of the other axis
    EXPECT_EQ(control<Choice>(s, "cbo_Y").index, 0);
    t.ui.expectBox("Risk Map", "The range must be rising, of positive values and of percentages below 100.");
    EXPECT_TRUE(type(s, "XToBox", "100").stay);
    type(s, "XToBox", "95");
    press(s, "cmd_Present");
    EXPECT_EQ(textOf(s, "Lbl_Multiplier"), "Guardband Multiplier: 1.00");
    EXPECT_TRUE(s.close(Way::Cancel)) << "while it computes";
}

} // namespace
} // namespace metrisk::testing
