// The false accept option from the menu, its reminder, and the gate before plots and reports.
#include "shell/CommandGate.h"
#include "shell/RiskOptionCommand.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

constexpr const char* keep = "Do you want to keep the new risk option?";
constexpr const char* notice =
    "Changing the False Accept Risk option will cause a\nrecalculation of the Baseline "
    "False Accept Risk.\n\nThe Computed False Accept Risk, and the Equivalent\nAccuracy "
    "Ratio will automatically be updated when\nthe Baseline Risk Analysis screen is "
    "closed.";

struct Menu : TestSession {
    int baselineShown = 0;
    void chooseProducer() {
        FalseAcceptOptions_Click(
            session,
            [](FalseAcceptScreen& screen) {
                screen.chooseProducer();
                if (!screen.leave()) screen.chooseConsumer();
            },
            [this](BaselineScreen& screen) {
                ++baselineShown;
                EXPECT_TRUE(screen.cmd_OK());
            });
    }
};

TEST(RiskOption, ChangeRecomputesTheBaselineAndTheRisks) {
    Menu menu;
    enter(menu.record, Entry{});
    menu.ui.expectBox("Change Made", keep, Answer::Yes);
    menu.ui.expectBox("False Accept Risk Option Change", notice);
    menu.chooseProducer();
    EXPECT_EQ(menu.baselineShown, 1);
    EXPECT_NE(menu.record.Base_FalseAccept, 4.1);
    EXPECT_GT(menu.record.FalseAcceptRisk, 0);
    EXPECT_FALSE(menu.record.RisksNeedCompute);
    EXPECT_TRUE(menu.settings.values.empty());
}

TEST(RiskOption, StaleFiguresNeedNoNoticeAndNoChangeNeedsNothing) {
    Menu menu;
    enter(menu.record, Entry{});
    menu.record.RisksNeedCompute = true;
    menu.ui.expectBox("Change Made", keep, Answer::Yes);
    menu.chooseProducer();
    EXPECT_EQ(menu.baselineShown, 0);
    EXPECT_GT(menu.record.FalseAcceptRisk, 0);
    menu.chooseProducer();

    Menu other;
    enter(other.record, Entry{});
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        other.ui.expectBox("Change Made", keep, answer);
        other.chooseProducer();
        EXPECT_EQ(other.record.FalseAcceptOption, 0);
        EXPECT_EQ(other.record.FalseAcceptRisk, 0);
    }
}

TEST(RiskOption, ReminderSpeaksOnlyOfADifference) {
    TestSession test;
    remindOfRiskOption(test.session);
    test.record.FalseAcceptOption = 1;
    test.ui.expectBox(
        "False Accept Risk Option Reminder",
        "Notice: In this analysis, the False Accept Risk Option is\nreferenced to the producer's "
        "perspective.\n\nThe default False Accept Risk Option is referenced to the\nconsumer's "
        "perspective.");
    remindOfRiskOption(test.session);
    test.settings.WriteSetting("RiskOption", "FalseAcceptConvention", "Producer");
    remindOfRiskOption(test.session);
}

TEST(CommandGate, NeedsData) {
    TestSession test;
    for (const GatedCommand plot : {GatedCommand::SubjectPlot, GatedCommand::OtherPlot}) {
        test.ui.expectBox("No Data Available", "No data to plot.");
        EXPECT_FALSE(commandMayRun(test.session, plot));
    }
    test.ui.expectBox("Insufficient Data Available", "No data have been entered for analysis.");
    EXPECT_FALSE(commandMayRun(test.session, GatedCommand::Print));
    enter(test.record, Entry{});
    test.record.MTE_Offset = test.record.MTE_PctInTol = 0;
    EXPECT_TRUE(commandMayRun(test.session, GatedCommand::SubjectPlot));
    EXPECT_FALSE(commandMayRun(test.session, GatedCommand::OtherPlot));
    enter(test.record, Entry{});
    EXPECT_TRUE(commandMayRun(test.session, GatedCommand::OtherPlot));
}

} // namespace
} // namespace metrisk::testing
