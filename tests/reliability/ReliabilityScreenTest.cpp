// The reliability worksheet and its plot.
#include "desk/reliability/ReliabilityScreen.h"
#include "base/NumberText.h"
#include "desk/compute/ValidateAndFit.h"
#include "drawing/Drawing.h"
#include "reliability/ReliabilityInterval.h"
#include "reliability/ReliabilityPlot.h"
#include "reliability/ReliabilityTexts.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

using namespace reliability;

constexpr const char* const missing = "Missing Data";

struct Worked : TestSession {
    std::optional<ReliabilityScreen> screen;

    explicit Worked(int slot = subjectSlot) {
        enter(record, Entry{});
        ValidateAndFit(session);
        open(slot);
    }
    void open(int slot) {
        record.Rel_ActiveSlot = slot;
        record.FileChanged = false;
        screen.emplace(session);
    }
    void press(const char* name) { testing::press(*screen, name); }
    void type(const char* name, const char* text) { testing::type(*screen, name, text); }
    std::string text(const char* name) { return textOf(*screen, name); }
    double value(const char* box) { return ParseValue(text(box), session.regional); }
    void choose(const char* name, int index) { screen->choose(control<Choice>(*screen, name), index); }
    bool enabled(const char* name) { return control<Control>(*screen, name).enabled; }
    std::string drawn() {
        Drawing drawing;
        screen->pic_RPlot.paint()(drawing);
        return drawing.text();
    }
    /// Everything but a press of Compute.
    void fill(int model, const char* bop, const char* aop, const char* eop) {
        choose("cbo_RModels", model - 1);
        type("CalibrationIntervalBox", "12");
        choose("IntervalUnitsBox", 3);
        if (enabled("BOPBox")) type("BOPBox", bop);
        if (enabled("AOPBox")) type("AOPBox", aop);
        type("EOPBox", eop);
    }
};

TEST(ReliabilityScreen, ComputesCoefficientsAndBack) {
    for (const ReliabilityModel& model : reliabilityModels) {
        SCOPED_TRACE(std::string(model.name));
        Worked w;
        w.fill(model.number, "100", "93.5", "90");
        EXPECT_EQ(w.text("ReliabilityModelCaption"), model.equation);
        EXPECT_EQ(w.enabled("BOPBox"), model.takesBOP);
        EXPECT_EQ(w.enabled("AOPBox"), model.needsAOP);
        EXPECT_EQ(w.enabled("theta3Box"), model.hasC);
        EXPECT_EQ(w.drawn().find("line"), std::string::npos);
        EXPECT_NE(w.drawn().find("Choose a model and enter an interval"), std::string::npos);
        w.press("Compute");
        EXPECT_EQ(w.text("EOPBox"), "90");
        EXPECT_EQ(w.text("BOPBox"), model.takesBOP ? "100" : "100.000");
        EXPECT_EQ(w.text("txt_RPlotData_0"), "12.0");
        EXPECT_EQ(w.text("txt_RPlotData_1"), "90.00");
        EXPECT_GE(w.value("txt_RPlotData_2"), 14.4);
        EXPECT_FALSE(w.screen->Lbl_Questionable.visible);
        EXPECT_NE(w.drawn().find("for the " + std::string(model.name) + " Model"), std::string::npos);
        const double aop = w.value("AOPBox");
        const double b = w.record.Rel_Theta[2][0];

        w.type("theta2Box", w.text("theta2Box").c_str());
        w.press("cmdComputePct");
        EXPECT_NEAR(w.record.Rel_Theta[2][0], b, 6e-6 * b) << "six digits were typed back";
        EXPECT_NEAR(w.value("EOPBox"), 90, 0.1);
        EXPECT_NEAR(w.value("AOPBox"), aop, 0.1);
    }
}

TEST(ReliabilityScreen, TellsWhatIsMissing) {
    Worked w;
    const auto refused = [&](const char* text, const char* focus) {
        w.ui.expectBox(missing, text);
        w.press("Compute");
        EXPECT_EQ(w.ui.focusMoves.back(), std::string("ReliabilityModelCoefficients.") + focus);
    };
    refused("Please specify a Reliability Model.", "cbo_RModels");
    w.choose("cbo_RModels", 0);
    w.type("CalibrationIntervalBox", "soon");
    refused("Please specify a Calibration Interval.", "CalibrationIntervalBox");
    w.type("CalibrationIntervalBox", "12");
    refused("Please select the Calibration Interval units.", "IntervalUnitsBox");
    w.ui.expectBox(missing, "Please select the Calibration Interval units.");
    w.press("cmdComputePct");
    w.choose("IntervalUnitsBox", 0);
    refused("Please input a Beginning of Period % in-tolerance", "BOPBox");
    w.type("EOPBox", "96");
    refused("Can't have End-of-Period reliability higher than Beginning-of-Period reliability.", "BOPBox");
    w.type("BOPBox", "97");
    w.type("EOPBox", "0");
    refused("Please input an End of Period % in-tolerance", "EOPBox");
    w.type("EOPBox", "90");
    w.choose("cbo_RModels", Weibull - 1);
    refused("Please input an Average over Period % in-tolerance", "AOPBox");
}

TEST(ReliabilityScreen, AFailedSolutionLeavesNoFigures) {
    Worked w;
    w.fill(Gamma, "95", "", "90");
    w.press("Compute");
    EXPECT_NE(w.text("AOPBox"), "");
    w.type("EOPBox", "95");
    const std::string glitch = "The parameters obtained by solution are questionable.\n"
                               "The form of the reliability model selected may not be\n"
                               "consistent with the input probabilities.";
    w.ui.expectBox("Reliability Model Glitch", glitch);
    w.press("Compute");
    for (const char* box : {"theta1Box", "theta2Box", "AOPBox", "txt_RPlotData_0", "txt_RPlotData_1"})
        EXPECT_EQ(w.text(box), "") << box;
    EXPECT_EQ(w.drawn().find("line"), std::string::npos);
    EXPECT_FALSE(w.record.AbortFlag);

    w.ui.expectBox("Reliability Model Glitch", glitch);
    w.fill(MixedExponential, "", "98.5", "97");
    w.press("Compute");
    EXPECT_TRUE(w.screen->Lbl_Questionable.visible) << "the curve is drawn, but marked";
    EXPECT_NE(w.text("theta2Box"), "");
    EXPECT_NE(w.drawn(), "clear #000000\n");
}

TEST(ReliabilityScreen, PlotBoxesFollowEachOther) {
    Worked w;
    w.fill(Exponential, "100", "", "90");
    w.press("Compute");
    EXPECT_NE(w.drawn().find("\"interval 12\""), std::string::npos);
    w.type("txt_RPlotData_0", "24");
    EXPECT_EQ(w.text("txt_RPlotData_1"), "81.00");
    EXPECT_NE(w.drawn().find("\"t = 24\""), std::string::npos) << "the interval is another time";
    EXPECT_EQ(w.drawn().find("interval"), std::string::npos);
    w.type("txt_RPlotData_1", "85");
    EXPECT_EQ(w.text("txt_RPlotData_0"), "18.51");
    w.type("txt_RPlotData_0", "-1");
    EXPECT_EQ(w.text("txt_RPlotData_0"), "18.51");
    w.type("txt_RPlotData_2", "0");
    const double limit = w.value("txt_RPlotData_2");
    EXPECT_GT(limit, 24);
    w.type("txt_RPlotData_0", "1000000");
    EXPECT_EQ(w.text("txt_RPlotData_1"), "0.00");
    EXPECT_EQ(w.drawn().find("#ffff00 width 2"), std::string::npos) << "beyond the plot nothing is marked";
    w.type("txt_RPlotData_2", "2000000");
    EXPECT_NE(w.drawn().find("#ffff00 width 2"), std::string::npos);
    w.type("txt_RPlotData_0", "0.000001");
    EXPECT_EQ(w.text("txt_RPlotData_1"), "99.999999") << "never rounded to 100";
    for (const char* bad : {"0", "100", "nothing"}) {
        w.ui.expectBox("Metrisk", "Must be between 0 and 100.");
        w.type("txt_RPlotData_1", bad);
    }
    w.fill(Weibull, "99", "95", "90");
    w.press("Compute");
    w.ui.expectBox("Ill-Conditioned Reliability Function",
                   "An interval cannot be found for the value entered.");
    w.type("txt_RPlotData_1", "99.5");
    EXPECT_EQ(w.text("txt_RPlotData_1"), "90.00") << "above the beginning: put back";
}

TEST(ReliabilityScreen, CommitsByTheBiasOption) {
    const struct {
        int slot;
        const char* option;
        double userTime;
        double pct;
    } rows[] = {
        {subjectSlot, "", 0, 81},         {measuringSlot, "", 0, 90.1199}, {subjectSlot, "EOP", 0, 81},
        {subjectSlot, "AOP", 0, 90.1199}, {subjectSlot, "User", 0, 99.9},  {measuringSlot, "User", 0.5, 90},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.option) + std::to_string(row.slot));
        Worked w(row.slot);
        const auto i = static_cast<std::size_t>(row.slot);
        w.record.Rel_BiasOption[i] = row.option;
        w.record.Rel_UserTime[i] = row.userTime;
        w.record.Rel_UserTimeUnits[i] = "Years";
        w.fill(Exponential, row.userTime == 0 ? "99.9" : "100", "", "81");
        EXPECT_TRUE(w.screen->close(Way::Ok)) << "what was typed is computed first";
        EXPECT_NEAR(row.slot == subjectSlot ? w.record.SU_PctInTol : w.record.MTE_PctInTol, row.pct, 1e-3);
        EXPECT_EQ(row.slot == subjectSlot ? w.record.MTE_PctInTol : w.record.SU_PctInTol, 95);
        EXPECT_TRUE(w.record.FileChanged);
        EXPECT_FALSE(w.record.ComputeNeeded) << "the parameter is fitted";
        w.record.FileChanged = false;
        const double before = w.record.SU_Sigma;
        w.open(row.slot);
        EXPECT_TRUE(w.screen->close(Way::Ok));
        EXPECT_EQ(w.record.SU_Sigma, before) << "opening and OK change no figure";
    }
    Worked certain(measuringSlot);
    certain.fill(Exponential, "100", "", "100");
    certain.ui.expectBox("Illegal In-Tolerance Probability",
                         "The reliability must be greater than 0 and less than 100%.");
    EXPECT_FALSE(certain.screen->close(Way::Ok));
    certain.type("CalibrationIntervalBox", "0");
    certain.ui.expectBox(missing, "Please specify a Calibration Interval.");
    EXPECT_FALSE(certain.screen->close(Way::Ok)) << "what cannot be computed stays";
}

TEST(ReliabilityScreen, CancelPutsBothSlotsBack) {
    EXPECT_TRUE(Worked().screen->close(Way::Cancel)) << "nothing was changed, so nothing is asked";
    Worked w;
    const char* const subject =
        "Do you want to implement changes made to the subject parameter reliability model?";
    const char* const measuring =
        "Do you want to implement changes made to the measuring parameter reliability model?";
    w.fill(Exponential, "99", "", "90");
    w.ui.expectBox("Save Changes?", subject, Answer::Cancel);
    w.press("optParameter_1");
    EXPECT_TRUE(w.screen->optParameter_0.checked);
    w.ui.expectBox("Save Changes?", subject, Answer::Yes, yesNoCancel);
    w.press("optParameter_1");
    EXPECT_EQ(w.screen->caption, "Measuring Parameter Reliability Model Worksheet");
    EXPECT_EQ(w.record.SU_PctInTol, 90);
    EXPECT_EQ(w.text("CalibrationIntervalBox"), "");
    w.fill(Gamma, "99", "", "80");
    w.press("Compute");
    w.ui.expectBox("Save Changes?", measuring, Answer::No, yesNoCancel);
    w.press("optParameter_0");
    EXPECT_EQ(w.record.Rel_Model[1], "");
    EXPECT_EQ(w.text("EOPBox"), "90");
    w.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::Cancel);
    EXPECT_FALSE(w.screen->close(Way::Cancel));
    w.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
    EXPECT_TRUE(w.screen->close(Way::Cancel));
    EXPECT_EQ(w.record.Rel_Model[0], "");
    EXPECT_EQ(w.record.SU_PctInTol, 95);
    EXPECT_FALSE(w.record.FileChanged);
}

TEST(ReliabilityScreen, StoresNoPercentsOfOtherCoefficients) {
    Worked w;
    w.fill(Exponential, "99", "", "90");
    w.press("Compute");
    const char* const ill = "Ill-Conditioned Reliability Function";
    w.type("theta2Box", "-1"); // grows with time
    w.ui.expectBox(ill, illDefinedReliability.text.data());
    w.press("cmdComputePct");
    EXPECT_EQ(w.text("BOPBox") + w.text("EOPBox"), "") << "those of the coefficients before";
    w.ui.expectBox(ill, illDefinedReliability.text.data());
    EXPECT_FALSE(w.screen->close(Way::Ok));
    EXPECT_EQ(w.record.SU_PctInTol, 95);
    w.type("theta2Box", "0.01");
    w.press("cmdComputePct");
    EXPECT_EQ(w.text("EOPBox").size(), 6u) << "not in the picture of what was typed: " << w.text("EOPBox");
    EXPECT_TRUE(w.screen->close(Way::Ok));
}

TEST(ReliabilityScreen, AsksWhichOfTwoKindsOfEntriesCounts) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        Worked w;
        w.fill(Exponential, "100", "", "90");
        w.type("theta1Box", "1");
        w.type("theta2Box", "0.05");
        w.ui.expectBox("Reliability Model Worksheet", "Compute from the percents or from the coefficients?",
                       answer, yesNoCancel);
        EXPECT_EQ(w.screen->close(Way::Ok), answer != Answer::Cancel);
        EXPECT_NEAR(w.record.SU_PctInTol,
                    answer == Answer::Yes  ? 90
                    : answer == Answer::No ? 100 * std::exp(-0.6)
                                           : 95,
                    1e-6);
    }
}

TEST(ReliabilityScreen, ATypedBeginningComesBackWithAModelThatMayHaveIt) {
    Worked w;
    w.fill(Exponential, "99", "", "90");
    w.choose("cbo_RModels", MixedExponential - 1);
    EXPECT_EQ(w.text("BOPBox"), "100.000");
    w.choose("cbo_RModels", Exponential - 1);
    EXPECT_EQ(w.text("BOPBox"), "99");
}

TEST(ReliabilityScreen, RefusesAPercentageThatCannotBeFitted) {
    Worked w;
    enter(w.record, single(Kind::SingleUpper, 95));
    w.open(subjectSlot);
    w.fill(Exponential, "100", "", "40");
    w.record.Computing = true; // lets the check speak
    w.ui.expectBox("Subject Parameter % In-Tolerance",
                   "Must be greater than 50% for single-sided\ncases with an unspecified Physical Limit.");
    EXPECT_FALSE(w.screen->close(Way::Ok));
    EXPECT_EQ(w.record.SU_PctInTol, 95);
    EXPECT_EQ(w.ui.focusMoves.back(), "ReliabilityModelCoefficients.EOPBox");
}

TEST(ReliabilityScreen, OpensAsItWasSaved) {
    Worked w;
    w.record.Rel_Model[0] = "Weibull";
    w.record.Rel_ModelIndex[0] = Gamma; // the name wins
    w.record.Rel_Interval[0] = 12;
    w.record.Rel_IntervalUnits[0] = "Months";
    w.record.Rel_BOP[0] = 1;
    w.record.Rel_AOP[0] = 0.95;
    w.record.Rel_EOP[0] = 0.9;
    w.open(subjectSlot);
    EXPECT_EQ(w.screen->cbo_RModels.index, Weibull - 1);
    EXPECT_EQ(w.text("theta1Box"), "1") << "without coefficients they are computed";
    EXPECT_TRUE(w.screen->close(Way::Cancel)) << "which is no change of the user's";
    w.record.Rel_Theta[1][0] = 0.98;
    w.record.Rel_Theta[2][0] = 0.01;
    w.record.Rel_Theta[3][0] = 2;
    w.open(subjectSlot);
    EXPECT_EQ(w.text("theta2Box"), "0.01") << "those held stand";
    EXPECT_TRUE(w.screen->Lbl_Questionable.visible) << "though the percentages are others";
}

TEST(ReliabilityPlot, IsDrawnInOrder) {
    Drawing drawing;
    DrawReliabilityPlot(drawing, ReliabilityCurve(Exponential, {0.95, 0.01, 0}, 100, 12));
    std::string text = drawing.text();
    std::size_t segments = 0;
    for (std::size_t at; (at = text.find("#e6e6e6 width 1\n")) != std::string::npos; ++segments) {
        const std::size_t start = text.rfind('\n', at) + 1;
        text.erase(start, text.find('\n', at) + 1 - start);
    }
    EXPECT_EQ(segments, 100u);
    const std::string told = "clear #000000\n"
                             "text -0.1357 0.6066 #ffffff 8 \"R(t)\"\n"
                             "text 0.3588 -0.08859 #ffffff 8 \"Time Since Measurement\"\n"
                             "text 0.2626 1.204 #ffff00 8 \"In-tolerance Probability (R) vs. Time\"\n"
                             "text 0.3396 1.164 #ffff00 8 \"for the Exponential Model\"\n"
                             "line 0.12 0 0.12 0.97 #ffff00 width 2\n"
                             "line 0 0 1 0 #00c0c0 width 2\n"
                             "line 0 0 0 0.97 #00c0c0 width 2\n";
    EXPECT_EQ(text.substr(0, told.size()), told);
    for (const char* tick :
         {"line 0.4 0 0.4 -0.01164", "\"40\"", "\"80 %\"", "\"t = 12\"", "\"R = 84.26 %\""})
        EXPECT_NE(text.find(tick), text.npos) << tick << text;
}

TEST(ReliabilityPlot, LimitsAreWhereTheCurveHasFallen) {
    const struct {
        int model;
        Coefficients theta;
        double interval, limit;
    } rows[] = {
        {Exponential, {1, 0.1, 0}, 12, 1.2 * std::log(50) / 0.1},
        {Exponential, {1, 0.01, 0}, 12, 120}, // falls later than ten intervals
        {Exponential, {1, 1, 0}, 12, 14.4},
        {Exponential, {1, 0, 0}, 12, 14.4},
        {Exponential, {1, -1, 0}, 12, 14.4},
        {Gamma, {1, 0.1, 0}, 12, 1.2 * 8.56241 / 0.1},
        {MortalityDrift, {1, 0.1, 0}, 12, 1.2 * std::log(50) / 0.1},
        {MixedExponential, {1, 0.05, 0}, 12, 120}, // falls for ever
        {RestrictedRandomWalk, {1, -1, 1}, 12, 14.4},
        {Exponential, {1, 0.1, 0}, 0, 0},
        {Exponential, {1, 0.1, 0}, -1, 0},
    };
    for (const auto& row : rows)
        EXPECT_NEAR(PlotTimeLimit(row.model, row.theta, row.interval, 1), row.limit, 0.01)
            << row.model << " " << row.theta.b;
}

TEST(ReliabilityTexts, TellEnoughDigits) {
    const Regional regional;
    EXPECT_EQ(coefficientText(0.00794251498369373, regional), "0.00794251");
    EXPECT_EQ(coefficientText(1.23456789e-7, regional), "1.23457E-07");
    EXPECT_EQ(coefficientText(12345678, regional), "12,345,678");
    EXPECT_EQ(timeText(8760, regional), "8,760");
    EXPECT_EQ(timeText(0.00123456, regional), "0.0012346");
    EXPECT_EQ(reliabilityText(0.999999, "#,##0.00", regional), "99.9999");
    EXPECT_EQ(reliabilityText(1, "#,##0.00", regional), "100.00");
    EXPECT_EQ(reliabilityText(0.95, "", regional), "95.000");
}

} // namespace
} // namespace metrisk::testing
