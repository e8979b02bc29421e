// The plot screens: their commands, side by side, and what they say when there is nothing to draw.
#include "desk/plots/PlotScreen.h"
#include "desk/kit/Message.h"
#include "desk/plots/PlotDesk.h"
#include "drawing/Drawing.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Plots : TestSession {
    PlotDesk desk{session};

    Plots() {
        enter(record, Entry{});
        record.SU_Mode_fmt = record.SU_UpperOffset_fmt = record.SU_LowerOffset_fmt = "#,##0.000";
        record.MTE_Offset_fmt = "#,##0.000";
        record.ProcessUncertainty = 0.03;
    }
    /// Opens the plot, lets `act` use it and leaves it.
    void with(PlotKind kind, const std::function<void(Worksheet&)>& act) {
        static constexpr const char* names[] = {"SUPlot", "MTEPlot", "ErrorPlot"};
        ui.expectScreen(names[static_cast<int>(kind)], act);
        desk.show(kind);
    }
};

std::string drawn(Worksheet& screen) {
    Drawing drawing;
    const auto& picture = control<PictureArea>(screen, "pic_Plot");
    if (picture.paint()) picture.paint()(drawing);
    return drawing.text();
}
bool shows(Worksheet& screen, const std::string& text) {
    return drawn(screen).find(text) != std::string::npos;
}
const MenuItem& item(Worksheet& screen, const char* name) {
    const MenuItem* found = findItem(std::as_const(screen.menus), name);
    if (!found) throw std::logic_error(name);
    return *found;
}
void choose(Worksheet& screen, const char* name) {
    EXPECT_TRUE(item(screen, name).enabled()) << name;
    screen.run(item(screen, name));
}

TEST(PlotScreens, OptionsDrawAnew) {
    Plots p;
    p.with(PlotKind::SU, [&](Worksheet& s) {
        EXPECT_EQ(s.caption, "Subject Parameter Bias Distribution");
        EXPECT_TRUE(shows(s, "\"+0.5\"")) << "offsets at first";
        EXPECT_EQ(item(s, "Cmd_ShowOffsets").checked, true);
        choose(s, "Cmd_ShowTolerances");
        EXPECT_TRUE(shows(s, "\"10.5\"") && shows(s, "\"Tolerance\""));
        EXPECT_EQ(item(s, "Cmd_ShowOffsets").checked, false);
        EXPECT_TRUE(p.record.FileChanged) << "the file keeps this option";
        choose(s, "mnu_SUPlotTolOption_1");
        EXPECT_FALSE(shows(s, "\"10.125\"")) << "too near to the centre";
        choose(s, "mnu_ZoomFactor_0");
        EXPECT_TRUE(shows(s, "\"10.125\""));
        EXPECT_EQ(p.record.SUPlot_Zoom, 0.25);
        EXPECT_EQ(item(s, "mnu_ZoomFactor_0").checked, true);
        EXPECT_EQ(item(s, "mnu_ZoomFactor_3").checked, false);
        choose(s, "mnu_CopyPlot");
        choose(s, "mnu_Refresh");
    });
    EXPECT_EQ(p.ui.picturesCopied, 1);
    EXPECT_EQ(p.ui.busyDepth, 0);

    p.with(PlotKind::MTE, [&](Worksheet& s) {
        EXPECT_TRUE(shows(s, "Probability Density vs. MTE Bias"));
        choose(s, "CmdIncludeUncertainty");
        EXPECT_EQ(s.caption, "Total Measurement Error Distribution");
        EXPECT_EQ(item(s, "CmdIncludeUncertainty").caption, "&Exclude Process Uncertainty");
        EXPECT_TRUE(shows(s, "Probability Density vs. Measurement Error"));
        choose(s, "mnu_UseSUTols");
        choose(s, "mnu_ZoomFactor_6");
        EXPECT_TRUE(shows(s, "\"+0.5\""));
    });
    p.with(PlotKind::MTE, [&](Worksheet& s) {
        EXPECT_TRUE(shows(s, "Probability Density vs. Measured Value")) << "on opening";
    });
    p.with(PlotKind::Error, [&](Worksheet& s) {
        EXPECT_TRUE(shows(s, "MTE Bias Uncertainty Included"));
        choose(s, "mnu_InclMTEBias");
        EXPECT_TRUE(shows(s, "MTE Bias Uncertainty Excluded"));
        EXPECT_EQ(item(s, "mnu_InclMTEBias").caption, "&Include MTE Bias Uncertainty");
        choose(s, "mnu_TwoSigmaReference");
        EXPECT_EQ(p.record.ErrorPlot_Param, "Error");
        EXPECT_EQ(item(s, "mnu_SUReference").checked, false);
    });
}

TEST(PlotScreens, WhereThereIsNothingToDraw) {
    Plots p;
    p.record.ProcessUncertainty = 0;
    p.ui.expectBox("No Data Available", "No data to plot.", note);
    p.desk.show(PlotKind::Error);
    p.with(PlotKind::SU, [&](Worksheet& s) { EXPECT_FALSE(item(s, "mnu_ErrorPlot").enabled()); });

    p.record.MTE_DegFreedom = 0.5; // no density below one degree of freedom
    p.ui.expectBox("No Data", "No Data to Plot.", note);
    p.with(PlotKind::MTE, [&](Worksheet& s) { EXPECT_EQ(textOf(s, "pic_Plot"), "No data"); });

    // A failed fit speaks for itself and leaves an empty picture.
    p.record.SU_UpperOffset = p.record.SU_LowerOffset = 0;
    p.record.SU_UpperLimit = p.record.SU_LowerLimit = 10;
    p.with(PlotKind::SU, [&](Worksheet& s) {
        EXPECT_EQ(textOf(s, "pic_Plot"), "No data");
        EXPECT_TRUE(p.record.AbortFlag);
    });
}

TEST(PlotScreens, LimitsThatAreNotThere) {
    Plots p;
    p.record.SU_UpperOffset = p.record.SU_LowerOffset = p.record.SU_Sigma = 0;
    p.record.ErrorPlot_Param = "SU";
    p.with(PlotKind::Error, [&](Worksheet& s) {
        EXPECT_EQ(p.record.ErrorPlot_Param, "Error") << "falls back";
        p.ui.expectBox("Non-viable Option", "Subject parameter limits not available.");
        choose(s, "mnu_SUReference");
        EXPECT_EQ(p.record.ErrorPlot_Param, "Error");
    });
    p.with(PlotKind::MTE, [&](Worksheet& s) {
        p.record.SU_Sigma = 1; // a sigma alone is enough
        choose(s, "mnu_UseSUTols");
    });
    p.record.MTEPlot_UseSUTols = false;
}

TEST(PlotScreens, AUniformDistributionIsSeenWhole) {
    Plots p;
    p.record.SU_PctInTol = 100;
    p.record.Ack100Pct = true;
    p.with(PlotKind::SU, [](Worksheet& s) { EXPECT_FALSE(item(s, "mnu_ZoomFactor_0").enabled()); });
}

TEST(PlotScreens, TwoSideBySide) {
    Plots p;
    Worksheet* measuring = nullptr;
    Worksheet* error = nullptr;
    p.with(PlotKind::SU, [&](Worksheet& su) {
        EXPECT_EQ(item(su, "Cmd_ShowMTEPlot").caption, "&MTE Plot");
        p.ui.expectScreen("MTEPlot", [&](Worksheet& s) { measuring = &s; });
        choose(su, "Cmd_ShowMTEPlot");
        EXPECT_EQ(p.ui.placed.back(), "SUPlot MTEPlot");
        EXPECT_EQ(item(su, "Cmd_ShowMTEPlot").caption, "Re&draw MTE Plot");
        measuring->refresh();
        EXPECT_EQ(item(*measuring, "Cmd_ShowSUPlot").caption, "Re&draw SU Plot");
        // A third one takes over.
        p.ui.expectScreen("ErrorPlot", [&](Worksheet& s) { error = &s; });
        choose(*measuring, "mnu_ErrorPlot");
        EXPECT_EQ(p.ui.placed.back(), "MTEPlot ErrorPlot");
        EXPECT_EQ(item(su, "Cmd_ShowMTEPlot").caption, "&Compare MTE Plot");
        EXPECT_EQ(item(*error, "mnu_ComparePlot").caption, "&Compare SU Plot");
        choose(su, "Cmd_ShowMTEPlot");
        EXPECT_EQ(p.ui.placed.back(), "SUPlot MTEPlot");
        // The close box leaves one alone; its partner stays, and can have it back.
        EXPECT_TRUE(measuring->close(Way::Cancel));
        EXPECT_EQ(item(su, "Cmd_ShowMTEPlot").caption, "&MTE Plot");
        p.ui.expectScreen("MTEPlot", [&](Worksheet& s) { measuring = &s; });
        choose(su, "Cmd_ShowMTEPlot");
        choose(*measuring, "Cmd_Return");
        EXPECT_TRUE(su.closedBy() && measuring->closedBy()) << "both go back";
        EXPECT_FALSE(error->closedBy());
        EXPECT_EQ(item(*error, "mnu_ComparePlot").caption, "&SU Plot");
        error->close(Way::Cancel);
    });
}

} // namespace
} // namespace metrisk::testing
