// The table of guardband strategies.
#include "desk/decision/StrategyScreen.h"
#include "desk/guardband/GuardbandScreen.h"
#include "persistence/AnalysisContent.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

struct Strategies : TestSession {
    std::optional<StrategyScreen> screen;

    /// 10 V within 1 V, u = 0.2 V, 80 % in tolerance: RSS as published.
    explicit Strategies(const Entry& entry = twoSided(1, 1, 80, 0.2 * 1.959963984540054)) {
        enter(record, entry);
        record.SU_Mode_fmt = record.SU_UpperOffset_fmt = record.SU_LowerOffset_fmt = "#,##0.0";
        record.NominalUnits = record.SU_ToleranceUnits = record.MTE_ToleranceUnits = "V";
        screen.emplace(session);
        settle();
    }
    void settle() {
        ui.waitFor([&] { return !screen->isComputing(); });
    }
    const Table& table() { return control<Table>(*screen, "tbl_Strategies"); }
    std::vector<std::string> row(std::string_view rule) {
        std::vector<std::string> cells;
        for (const auto& each : table().rows)
            if (each[0].text == rule)
                for (const Table::Cell& cell : each) cells.push_back(cell.text);
        return cells;
    }
    int indexOf(std::string_view rule) {
        for (std::size_t i = 0; i < table().rows.size(); ++i)
            if (table().rows[i][0].text == rule) return static_cast<int>(i);
        return -1;
    }
};

TEST(StrategyScreen, ShowsEachRuleWithItsLimitsAndRisks) {
    Strategies w;
    const auto rss = w.row("Root sum of squares");
    ASSERT_EQ(rss.size(), 10u);
    EXPECT_EQ(rss[1], "0.916515");
    EXPECT_EQ(rss[4], "10.91") << "10.9165, inwards";
    EXPECT_EQ(rss[6].substr(0, 4), "1.68");
    EXPECT_EQ(rss[7].substr(0, 4), "7.21");
    EXPECT_TRUE(w.row("False reject target").empty());
    type(*w.screen, "txt_TargetReject", "5");
    w.settle();
    EXPECT_EQ(w.row("False reject target").at(7).substr(0, 4), "5.00");
    w.ui.expectBox("Guardband Strategies", "Please enter a risk above 0 % and below 100 %.");
    EXPECT_TRUE(type(*w.screen, "txt_TargetAccept", "100").stay);
    press(*w.screen, "cmd_Copy");
    EXPECT_NE(w.ui.textsCopied.back().find("Root sum of squares\t0.916515\t"), std::string::npos);
    EXPECT_EQ(textOf(*w.screen, "Lbl_Worst").find("At worst"), 0u);
}

TEST(StrategyScreen, TypesItsMultipliersIntoTheGuardbandWorksheet) {
    Strategies w;
    const std::string before = AnalysisText(w.record);
    selectCells(*w.screen, "tbl_Strategies", {});
    w.ui.beeps = 0;
    w.screen->click(control<Button>(*w.screen, "cmd_Send"), true);
    EXPECT_EQ(w.ui.beeps, 1) << "no row is chosen";
    double typed = 0;
    w.ui.expectScreen("GuardbandAnalysis", [&](Worksheet&) { typed = w.record.GB_UpperMult; });
    w.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
    w.screen->open(control<Table>(*w.screen, "tbl_Strategies"), w.indexOf("Root sum of squares"));
    EXPECT_NEAR(typed, std::sqrt(1 - 0.4 * 0.4), 1e-14);
    w.settle();
    EXPECT_TRUE(AnalysisText(w.record) == before) << "the worksheet was left without changes";
}

TEST(StrategyScreen, SaysWhyThereIsNone) {
    Strategies w(single(Kind::SingleUpper, 40));
    EXPECT_TRUE(w.table().rows.empty());
    EXPECT_FALSE(textOf(*w.screen, "Lbl_Basis").empty());
    EXPECT_FALSE(control<Button>(*w.screen, "cmd_Send").enabled);
}

} // namespace
} // namespace metrisk::testing
