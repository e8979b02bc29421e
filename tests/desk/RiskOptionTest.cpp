// The false accept option from the menu, its reminder, and the gate before plots and reports.
#include "desk/compute/DataGate.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/shell/RiskOptionCommand.h"
#include "risk/evaluate/BaselineFigures.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

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
    /// `kept`: the answer to the question of the choice.
    void chooseProducer(Answer kept) {
        ui.expectScreen("FAFORM", [kept](Worksheet& screen) {
            press(screen, "ProducerRiskOption");
            press(screen, "cmd_Close");
            if (kept == Answer::Cancel) press(screen, "ConsumerRiskOption");
        });
        ui.expectBox("Change Made", keep, kept, yesNoCancel);
    }
};

TEST(RiskOption, ChangeRecomputesTheBaselineAndTheRisks) {
    Menu menu;
    enter(menu.record, Entry{});
    menu.chooseProducer(Answer::Yes);
    menu.ui.expectBox("False Accept Risk Option Change", notice, note);
    menu.ui.expectScreen("BaselineAnalysis", [](Worksheet& screen) {
        EXPECT_EQ(textOf(screen, "pnl_FAOption"), "Producer Option");
        press(screen, "cmd_OK");
    });
    FalseAcceptOptions_Click(menu.session);
    EXPECT_NE(menu.record.Base_FalseAccept, 4.1);
    EXPECT_GT(menu.record.FalseAcceptRisk, 0);
    EXPECT_FALSE(menu.record.RisksNeedCompute);
    EXPECT_TRUE(menu.settings.empty());
}

TEST(RiskOption, AStandardHasTheFiguresOfTheNewOption) {
    Menu menu;
    enter(menu.record, Entry{});
    menu.record.UserOption = "Z540";
    menu.record.Base_SUPctInTol = 85;
    menu.record.Base_MTEPctInTol = 96.028;
    menu.chooseProducer(Answer::Yes);
    menu.ui.expectBox("False Accept Risk Option Change", notice, note);
    menu.ui.expectScreen("BaselineAnalysis", [](Worksheet& screen) { press(screen, "cmd_OK"); });
    FalseAcceptOptions_Click(menu.session);
    EXPECT_EQ(menu.record.Base_MTEPctInTol, 90.601);
    EXPECT_NEAR(menu.record.Base_FalseAccept, 2, 5e-5);
}

TEST(RiskOption, StaleFiguresNeedNoNoticeAndNoChangeNeedsNothing) {
    Menu menu;
    enter(menu.record, Entry{});
    menu.record.RisksNeedCompute = true;
    EXPECT_TRUE(baselineIsCurrent(menu.record)) << "as rounded as settings hold it";
    menu.chooseProducer(Answer::Yes);
    FalseAcceptOptions_Click(menu.session);
    EXPECT_GT(menu.record.FalseAcceptRisk, 0);
    EXPECT_FALSE(baselineIsCurrent(menu.record)) << "that of the other option";
    MainScreen screen(menu.session);
    EXPECT_FALSE(screen.BaseAcceptRisk.enabled);
    EXPECT_FALSE(screen.Lbl_AcceptMark.visible);
    storeBaselineRisks(menu.record);
    EXPECT_NEAR(menu.record.Base_FalseAccept, 2.9212, 5e-5);
    MainScreen again(menu.session);
    EXPECT_TRUE(again.BaseAcceptRisk.enabled);

    Menu other;
    enter(other.record, Entry{});
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        other.chooseProducer(answer);
        FalseAcceptOptions_Click(other.session);
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
        "perspective.",
        note);
    remindOfRiskOption(test.session);
    test.settings.WriteSetting("RiskOption", "FalseAcceptConvention", "Producer");
    remindOfRiskOption(test.session);
}

TEST(DataGate, NeedsData) {
    TestSession test;
    for (const Needs plot : {Needs::Subject, Needs::BothForPlot}) {
        test.ui.expectBox("No Data Available", "No data to plot.", note);
        EXPECT_FALSE(haveData(test.session, plot));
    }
    test.ui.expectBox("Insufficient Data Available", "No data have been entered for analysis.");
    EXPECT_FALSE(haveData(test.session, Needs::Both));
    enter(test.record, Entry{});
    test.record.MTE_Offset = test.record.MTE_PctInTol = 0;
    EXPECT_TRUE(haveData(test.session, Needs::Subject));
    EXPECT_FALSE(haveData(test.session, Needs::BothForPlot));
    enter(test.record, Entry{});
    EXPECT_TRUE(haveData(test.session, Needs::BothForPlot));
}

} // namespace
} // namespace metrisk::testing
