// The decision on a reading, as it is typed.
#include "desk/decision/ReadingScreen.h"
#include "drawing/Drawing.h"
#include "persistence/AnalysisContent.h"
#include "plots/ReadingStrip.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Readings : TestSession {
    ReadingHistory history;
    std::optional<ReadingScreen> screen;

    /// 10 V within 0.5 V, u = 0.0625 V.
    explicit Readings(const Entry& entry = twoSided(0.5, 0.5, 90, 0.0625 * 1.959963984540054)) {
        enter(record, entry);
        record.SU_Mode_fmt = record.SU_UpperOffset_fmt = record.SU_LowerOffset_fmt = "#,##0.0";
        record.NominalUnits = record.SU_ToleranceUnits = "V";
        record.MTE_ToleranceUnits = "mV";
        record.MTE_TolUnitsFactor = 1000;
        open();
    }
    void open() {
        screen.emplace(session, &history);
        screen->begin();
    }
    std::string text(const char* name) { return textOf(*screen, name); }
    void rule(RuleKind kind) {
        auto& choice = control<Choice>(*screen, "cbo_Rule");
        for (int i = 0; i < static_cast<int>(ruleCount()); ++i) {
            screen->choose(choice, i);
            if (settings.ReadSetting("Reading", "Rule", "", 60).starts_with(nameOf(kind))) return;
        }
        FAIL();
    }
    std::size_t ruleCount() { return control<Choice>(*screen, "cbo_Rule").items.size(); }
    static std::string nameOf(RuleKind kind) {
        const std::string name = textOf(DecisionRule{.kind = kind});
        return name.substr(0, name.find('='));
    }
};

TEST(ReadingScreen, DecidesAtEachKeyAndKeepsWhatIsEntered) {
    Readings w;
    EXPECT_EQ(w.text("Lbl_Why"), "Enter a measured value");
    EXPECT_EQ(w.text("box_Tolerance"), "9.50 V to 10.50 V");
    EXPECT_EQ(w.text("box_Uncertainty"), "u = 63 mV, U = 125 mV (k = 2)");
    std::vector<double> decided;
    w.screen->decided = [&](const DecisionRequest& request) { decided.push_back(request.reading); };
    auto& box = control<TextBox>(*w.screen, "txt_Reading");
    w.screen->edit(box, "10.4375");
    EXPECT_EQ(w.text("Lbl_Verdict"), "\u2713 Pass");
    EXPECT_EQ(w.text("box_Conforming"), "84.13 %") << "one u below the limit";
    EXPECT_EQ(w.text("box_Nonconforming"), "15.87 %");
    EXPECT_TRUE(w.history.readings.empty()) << "still being typed";
    w.screen->edit(box, "10.4375x");
    EXPECT_EQ(w.text("Lbl_Verdict"), "-");
    type(*w.screen, "txt_Reading", "10.5625");
    EXPECT_EQ(w.text("Lbl_Verdict"), "\u2717 Fail");
    EXPECT_EQ(w.text("Lbl_Why"), "outside the tolerance");
    ASSERT_EQ(decided, std::vector{10.5625});
    press(*w.screen, "cmd_CopyHistory");
    EXPECT_NE(w.ui.textsCopied.back().find("10.5625 V\tsimple\tFail\t15.87 %"), std::string::npos);
    w.open();
    EXPECT_EQ(cellOf(*w.screen, "tbl_History", 0, 2).text, "10.5625 V") << "outlives the screen";
    w.ui.expectBox("Reading", "Please enter the measured value as a number.");
    EXPECT_TRUE(type(*w.screen, "txt_Reading", "ten").stay);
}

/// By integration over the population, +-0.5 V accepted, and +-0.375 V.
TEST(ReadingScreen, TellsTheFalseAcceptRiskOfItsRuleBeforeAReading) {
    Readings w;
    EXPECT_EQ(w.text("box_FalseAccept"), "1.54 %");
    w.rule(RuleKind::Guard);
    EXPECT_EQ(w.text("box_FalseAccept"), "0.04 %");
}

TEST(ReadingScreen, RulesHaveTheirParametersAndAreRemembered) {
    Readings w;
    w.rule(RuleKind::Guard);
    type(*w.screen, "txt_RuleValue", "0.5");
    type(*w.screen, "txt_Reading", "10.4575");
    EXPECT_EQ(w.text("Lbl_Verdict"), "\u2717 Fail");
    EXPECT_EQ(w.text("Lbl_Why"), "inside the tolerance, by the rule");
    EXPECT_EQ(w.text("box_Acceptance"), "9.57 V to 10.43 V") << "9.5625 and 10.4375, inwards";
    w.screen->choose(control<Choice>(*w.screen, "cbo_Outcomes"), 2);
    EXPECT_EQ(w.text("Lbl_Verdict"), "\u2713 Conditional pass");
    type(*w.screen, "txt_Reject", "0");
    press(*w.screen, "cmd_CopySentence");
    EXPECT_NE(w.ui.textsCopied.back().find("Verdict: Conditional pass."), std::string::npos);
    type(*w.screen, "txt_Coverage", "95%");
    EXPECT_EQ(w.text("box_Uncertainty"), "u = 63 mV, U = 122 mV (k = 1.96)");
    press(*w.screen, "chk_Prior");
    w.open();
    EXPECT_EQ(w.text("txt_RuleValue") + " " + w.text("txt_Reject") + " " + w.text("txt_Coverage"),
              "0.5 0 95%");
    EXPECT_TRUE(control<CheckBox>(*w.screen, "chk_Prior").checked);
    w.ui.expectBox("Decision Rule", "Relaxed acceptance has no middle zone: it has 2 outcomes.");
    EXPECT_TRUE(type(*w.screen, "txt_RuleValue", "-1").stay);
    w.rule(RuleKind::Conformance);
    EXPECT_EQ(w.text("txt_RuleValue"), "95");
    w.ui.expectBox("Decision Rule", "The level must be above 0 and below 100 %.");
    EXPECT_TRUE(type(*w.screen, "txt_RuleValue", "100").stay);
}

TEST(ReadingScreen, ReadsInAnyUnitOfTheRecord) {
    Readings w;
    auto& units = control<Choice>(*w.screen, "cbo_Units");
    ASSERT_EQ(units.items, (std::vector<std::string>{"V", "mV"}));
    w.screen->choose(units, 1);
    type(*w.screen, "txt_Reading", "10437.5");
    EXPECT_EQ(w.text("box_Conforming"), "84.13 %");
    EXPECT_EQ(w.history.readings.at(0).reading, "10.4375 V");
}

TEST(ReadingScreen, SaysWhyThereIsNoDecisionAndShowsNone) {
    Readings w(twoSided(0.5, 0.5, 90, 0));
    w.screen->edit(control<TextBox>(*w.screen, "txt_Reading"), "10");
    EXPECT_EQ(w.text("Lbl_Verdict"), "No decision");
    EXPECT_FALSE(w.text("Lbl_Why").empty());
    EXPECT_EQ(w.text("box_Conforming") + w.text("box_Acceptance") + w.text("Lbl_Sentence"), "");
    EXPECT_FALSE(control<Button>(*w.screen, "cmd_CopySentence").enabled);
}

TEST(ReadingScreen, LeavesTheRecordAsItIs) {
    Readings w;
    const std::string before = AnalysisText(w.record);
    w.rule(RuleKind::Conformance);
    press(*w.screen, "chk_Prior");
    type(*w.screen, "txt_Reading", "10.2");
    EXPECT_EQ(AnalysisText(w.record), before);
    EXPECT_FALSE(w.record.FileChanged);
}

TEST(ReadingStrip, DrawsWhatIsThereWithinThePicture) {
    for (const Entry& entry :
         {twoSided(0.5, 0.5, 90), single(Kind::SingleUpper, 90), single(Kind::SingleLower, 90)}) {
        TestSession test;
        enter(test.record, entry);
        const auto judge = judgeOf(test.record, {}, {.rule = *decisionRuleOf("w=U"), .withPrior = true});
        ASSERT_TRUE(judge);
        for (const double reading : {7.0, 9.6, 10.0, 10.49, 13.0}) {
            const auto judgement = judge->judge(reading);
            ASSERT_TRUE(judgement);
            const ReadingStrip strip = readingStrip(*judge, reading, *judgement);
            EXPECT_EQ(strip.lower.has_value(), entry.kind != Kind::SingleUpper);
            EXPECT_EQ(strip.upper.has_value(), entry.kind != Kind::SingleLower);
            EXPECT_TRUE(strip.reading.at > 0 && strip.reading.at < 1);
            Drawing drawing(500, 140);
            DrawReadingStrip(drawing, strip);
            EXPECT_NE(drawing.text().find("reading"), std::string::npos);
        }
    }
}

} // namespace
} // namespace metrisk::testing
