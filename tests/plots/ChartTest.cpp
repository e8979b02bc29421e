// Axes, charts of risks and contour maps as lists of drawing operations.
#include "drawing/ContourMap.h"
#include "drawing/Drawing.h"
#include "plots/RiskChart.h"
#include "tests/plots/TextBoxes.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <variant>

namespace metrisk {
namespace {

std::string drawn(const Chart& chart) {
    Drawing drawing;
    DrawChart(drawing, chart, {});
    return drawing.text();
}

TEST(Chart, TicksOfAnAxis) {
    struct Row {
        double from, to;
        int atLeast, decimals;
    };
    for (const Row& row : {Row{0.5, 1, 0, 1}, Row{0.5, 1, 3, 3}, Row{0, 1.25, 0, 2}, Row{1, 20, 0, 1},
                           Row{0, 1.0 / 3, 0, 3}, Row{80, 95, 0, 0}, Row{0, 1e-6, 0, 7}})
        EXPECT_EQ(axisOver("", row.from, row.to, row.atLeast).decimals, row.decimals)
            << row.from << " " << row.to;

    const Axis axis = roundAxisOver("", 0.31, 1.94);
    EXPECT_NEAR(axis.firstTick, 0.5, 1e-12);
    EXPECT_NEAR(axis.step, 0.5, 1e-12);
    EXPECT_EQ(axis.decimals, 1);
}

TEST(RiskChart, UnitsAndEndsOfTheAxes) {
    struct Row {
        const char* name;
        RiskPoint first, second;
        ShownRisks shown;
        const char* left;
        double from, to;
        const char* right;
    };
    const Row rows[] = {
        {"ppm", {1, 0.05, 3}, {2, 0.09, 4}, ShownRisks::FalseAccept, "Risk (ppm)", 450, 990, ""},
        {"percent", {1, 0.05, 3}, {2, 0.1, 4}, ShownRisks::FalseAccept, "Risk (%)", 0.045, 0.11, ""},
        {"one unit", {1, 2, 3}, {2, 1, 4}, ShownRisks::Both, "Risk (%)", 0.9, 4.4, ""},
        {"two units", {1, 0.05, 3}, {2, 0.09, 4}, ShownRisks::Both, "FA Risk (ppm)", 450, 990, "FR Risk (%)"},
        {"no risk at all", {1, 0, 3}, {2, 0, 4}, ShownRisks::FalseAccept, "Risk (ppm)", 0, 1, ""},
    };
    for (const Row& row : rows) {
        const std::array points{row.first, row.second};
        const Chart chart = riskChart(points, wordsOf(Swept::Multiplier, false),
                                      {.shown = row.shown, .falseAcceptOption = 1}, {});
        EXPECT_EQ(chart.left.title, row.left) << row.name;
        EXPECT_NEAR(chart.left.from, row.from, 1e-12) << row.name;
        EXPECT_NEAR(chart.left.to, row.to, 1e-12) << row.name;
        EXPECT_EQ(chart.right ? chart.right->title : "", row.right) << row.name;
        EXPECT_NE(chart.title.find("vs. Guardband Multiplier (Producer Option)"), chart.title.npos);
    }
    EXPECT_TRUE(riskChart(std::array{RiskPoint{}}, wordsOf(Swept::KFactor, false), {}, {}).empty());
}

TEST(RiskChart, CurvesStandOnTheirAxes) {
    const std::array points{RiskPoint{0.5, 0.05, 4}, RiskPoint{1, 0.09, 2}};
    const std::string text = drawn(
        riskChart(points, wordsOf(Swept::Multiplier, false), {.shown = ShownRisks::Both, .thick = true}, {}));
    // Shares of the axes: (500 - 450)/540, (900 - 450)/540 on the left; (4 - 1.8)/2.6, (2 - 1.8)/2.6 on the
    // right.
    EXPECT_NE(text.find("line 0 0.09259 1 0.8333 #1f66b8 width 3"), text.npos) << text;
    EXPECT_NE(text.find("\nline 0 0.8462 "), text.npos) << text;
    EXPECT_EQ(text.find("line 0 0.8462 1 0.07692"), text.npos) << "told apart by dashes as well";
    EXPECT_NE(text.find(" 1 0.07692 #b24e00 width 3"), text.npos) << text;
    EXPECT_NE(text.find("\"FA\""), text.npos) << "a legend";
    Drawing nothing(0, 0);
    DrawChart(nothing, riskChart(points, wordsOf(Swept::Multiplier, false), {}, {}), {});
}

TEST(RiskChart, CopiedHeadingsByQuantity) {
    Analysis r;
    r.SU_Sigma = 1234.5;
    r.SU_TolUnitsFactor = 2;
    r.SU_ToleranceUnits = "mV";
    r.FalseAcceptOption = 1;
    const auto heading = [&](Swept swept, bool byUncertainty, bool process) {
        return sweepText(r, {swept, wordsOf(swept, byUncertainty), process}, {}, {});
    };
    EXPECT_EQ(
        heading(Swept::SubjectPct, false, false),
        "SU Pct In-tolerance\nSubject Parameter Standard Uncertainty:  2,469.0000 mV\n(Producer Option)\n"
        "Subject Parameter Percent In-Tolerance\tFalse Accept Risk (Producer Option)\tFalse Reject Risk\n");
    EXPECT_EQ(
        heading(Swept::MeasuringPct, true, true),
        "MTE Pct In-tolerance\nMeasurement Process Uncertainty Included\n"
        "Subject Parameter Standard Uncertainty:  2,469.0000 mV\n(Producer Option)\n"
        "Measuring Parameter Confidence Level (%)\tFalse Accept Risk (Producer Option)\tFalse Reject Risk\n");
    EXPECT_EQ(heading(Swept::BaselineRatio, false, true),
              "Baseline Accuracy Ratio\n(Producer Option)\n"
              "Baseline Accuracy Ratio\tFalse Accept Risk (Producer Option)\tFalse Reject Risk\n");
}

/// A name is on no curve and on no other name, also where a curve ends at a corner.
TEST(Chart, NamesOfMarksKeepClearOfTheCurves) {
    Chart chart{.title = "t", .x = axisOver("x", 0, 1), .left = axisOver("y", 0, 1)};
    constexpr PlotColour ink{black, white};
    Series falling{.name = "FA", .colour = ink}, bent{.name = "FR", .colour = ink};
    for (int i = 0; i <= 20; ++i) {
        const double x = i / 20.0;
        falling.points.push_back({x, 1 - x});
        bent.points.push_back({x, 0.7 - (x - 0.3) * (x - 0.3)});
    }
    falling.marks = {{{0, 1}, "greatest FA", true}, {{1, 0}, "least FA", false}};
    bent.marks = {{{0.3, 0.7}, "greatest FR", true}, {{1, 0.21}, "least FR", false}};
    chart.series = {falling, bent};
    testing::TextBoxes drawn(640, 480);
    DrawChart(drawn, chart, {});
    drawn.expectReadable("names");
    const auto toX = [&](double px) { return -0.16 + px / 640 * 1.22; };
    const auto toY = [&](double px) { return 1.22 - px / 480 * 1.48; };
    for (const auto& box : drawn.boxes()) {
        if (box.text.find("est F") == std::string::npos) continue;
        for (double px = box.left; px <= box.right; px += 1) {
            const double x = toX(px);
            for (const double y : {1 - x, 0.7 - (x - 0.3) * (x - 0.3)})
                EXPECT_FALSE(y < toY(box.top) - 0.01 && y > toY(box.bottom) + 0.01) << box.text;
        }
    }
}

TEST(RiskChart, TextsKeepToThePicture) {
    const std::array one{RiskPoint{0.5, 2, 4}, RiskPoint{1, 3, 2}};
    const std::array two{RiskPoint{99.25, 0.05, 4}, RiskPoint{99.75, 0.09, 2}};
    ContourMap map = {.title = "False Accept Risk (Consumer Option)",
                      .scaleTitle = "False Accept Risk",
                      .x = roundAxisOver("Subject Parameter % In-Tolerance", 49, 99.9),
                      .y = roundAxisOver("Measuring Parameter % In-Tolerance", 49, 99.9),
                      .columns = 2,
                      .rows = 2,
                      .values = {1, 4, 16, std::nanf("")},
                      .levels = {{2, "100 ppm"}, {8, "200 ppm"}}};
    for (const auto& [width, height] : {std::pair{300.0, 200.0}, {400.0, 300.0}, {640.0, 480.0}}) {
        for (const auto& points : {one, two}) {
            testing::TextBoxes drawn(width, height);
            DrawChart(drawn,
                      riskChart(points, wordsOf(Swept::SubjectPct, false), {.shown = ShownRisks::Both}, {}),
                      {});
            drawn.expectReadable("chart");
            EXPECT_GT(drawn.boxes().size(), 10u);
        }
        testing::TextBoxes drawn(width, height);
        DrawContourMap(drawn, map, {});
        drawn.expectReadable("map");
    }
}

TEST(ContourMap, LevelsAreRoundNumbers) {
    const float none = std::nanf("");
    EXPECT_EQ(roundLevels(std::array{0.013F, 0.041F, none}),
              (std::vector{0.015, 0.02, 0.025, 0.03, 0.035, 0.04}));
    const auto levels = roundLevels(std::array{0.0F, 3e-4F, 0.03F});
    ASSERT_EQ(levels.size(), 6u);
    EXPECT_NEAR(levels.front(), 5e-4, 1e-18);
    EXPECT_NEAR(levels.back(), 0.02, 1e-18) << "powers of ten";
    EXPECT_EQ(roundLevels(std::array{1e-30F, 0.5F}).size(), 12u);
    EXPECT_TRUE(roundLevels(std::array{0.5F, 0.5F}).empty());
    EXPECT_TRUE(roundLevels(std::array{none}).empty());
}

TEST(ContourMap, LinesLieWhereTheLevelIs) {
    // A saddle-free 3 x 2 grid whose values are those of x; the last column has none above.
    ContourMap map;
    map.x = axisOver("", 0, 2);
    map.y = axisOver("", 0, 1);
    map.columns = 3;
    map.rows = 2;
    map.values = {1, 4, 16, 1, 4, std::nanf("")};
    map.levels = {{2, "two"}, {8, "eight"}};
    map.here = Point{1, 0.5};
    Drawing drawing;
    const PlotFrame frame = DrawContourMap(drawing, map, {});
    const std::string text = drawing.text();
    // Halfway by its logarithm between 1 and 4; the cell without a value has no line.
    EXPECT_NE(text.find("line 0.25 0 0.25 1 #462814"), text.npos) << text;
    EXPECT_EQ(text.find("line 0.75 0 0.75"), text.npos) << text;
    EXPECT_NE(text.find("\"eight\""), text.npos);
    EXPECT_NE(text.find("#828282"), text.npos) << "what could not be computed is hatched";
    EXPECT_NE(text.find("\"Not computed\""), text.npos);
    EXPECT_NE(text.find("line 0.48 0.5 0.52 0.5 #0046be width 2"), text.npos) << "the mark";

    const auto corner = placeOnMap(frame, -frame.left / (frame.right - frame.left),
                                   frame.top / (frame.top - frame.bottom)); // of the axes
    ASSERT_TRUE(corner);
    EXPECT_NEAR(corner->x, 0, 1e-9);
    EXPECT_NEAR(corner->y, 0, 1e-9);
    EXPECT_FALSE(placeOnMap(frame, 0.01, 0.5));
}

} // namespace
} // namespace metrisk
