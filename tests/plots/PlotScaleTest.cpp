// Decades, ticks and the plot window of a peak.
#include "drawing/PlotScale.h"
#include "drawing/Drawing.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

TEST(PlotScale, ANumberIsSplitAtItsDecade) {
    struct Row {
        double value, mantissa, power;
    };
    for (const Row& row : {Row{0.0045, 4.5, 0.001}, Row{1, 1, 1}, Row{0.1, 1, 0.1}, Row{37, 3.7, 10},
                           Row{9.99e12, 9.99, 1e12}, Row{2.5e-300, 2.5, 1e-300}}) {
        double mantissa = 0;
        double power = 0;
        SplitDecade(row.value, mantissa, power);
        EXPECT_NEAR(mantissa / row.mantissa, 1, 1e-4) << row.value;
        EXPECT_NEAR(power / row.power, 1, 1e-12) << row.value;
    }
    double mantissa = -7;
    double power = -8;
    SplitDecade(0, mantissa, power);
    SplitDecade(-3, mantissa, power);
    EXPECT_EQ(mantissa, -7);
    EXPECT_EQ(power, -8);
}

TEST(PlotScale, DivisionsOfAnAxis) {
    for (const auto& [value, parts] : {std::pair{12.0, 4},
                                       {15.0, 5},
                                       {21.0, 3},
                                       {7.0, 1},
                                       {14.0, 2},
                                       {18.0, 3},
                                       {41000.0, 4},
                                       {11.6, 4},
                                       {0.0, 4}})
        EXPECT_EQ(TickDivisions(value), parts) << value;
}

TEST(PlotScale, TheWindowOfAPeak) {
    struct Row {
        double peak, plotMax, verticalScale;
    };
    for (const Row& row : {Row{0.004, 4.1, 0.001}, Row{37, 38, 1}, Row{0.399, 0.41, 1}, Row{0.1, 0.11, 1},
                           Row{1000, 1100, 1}, Row{9999, 11000, 1}, Row{10000, 1.1, 10000},
                           Row{0.0999, 11, 0.01}, Row{4.2e9, 4.3, 1e9}, Row{4.2e-9, 4.3, 1e-9}}) {
        const PlotScale scale = plotScaleFor(PlotRole::Distribution, row.peak);
        EXPECT_NEAR(scale.plotMax, row.plotMax, 1e-9 * row.plotMax) << row.peak;
        EXPECT_NEAR(scale.verticalScale / row.verticalScale, 1, 1e-12) << row.peak;
        EXPECT_GT(scale.plotMax * scale.verticalScale, row.peak);
    }
    EXPECT_EQ(plotScaleFor(PlotRole::Distribution, 1).xLeft, -0.2);
    EXPECT_EQ(plotScaleFor(PlotRole::Reliability, 1).xLeft, -0.25);
}

TEST(Drawing, LinesOfTextGoDownThePage) {
    Drawing up(800, 600);
    up.Scale(0, 10, 1, -5);
    EXPECT_LT(up.TextHeight(), 0);
    EXPECT_GT(up.TextWidth("abc"), 0);
    EXPECT_EQ(up.TextWidth("\u00b1"), up.TextWidth("x")) << "characters, not bytes";
    Drawing down(800, 600);
    EXPECT_GT(down.TextHeight(), 0);
    Drawing none(0, 600);
    none.Scale(0, 1, 1, 0);
    none.Print("x");
    EXPECT_EQ(none.TextWidth("x"), 0);
    EXPECT_TRUE(none.operations().empty());
}

} // namespace
} // namespace metrisk::testing
